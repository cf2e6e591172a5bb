#include "HalvaneTest.h"
#include "support/Raised.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "db/Schema.h"
#include "price/PriceFiles.h"

#include <QBuffer>

#include <random>

namespace {

int rounds() {
    const int asked = qEnvironmentVariableIntValue("HALVANE_FUZZ");
    return asked > 0 ? asked : 20'000;
}

// Pieces that damaged files are made of.
const QList<QByteArray>& pieces() {
    static const QList<QByteArray> list{",",
                                        "\"",
                                        "\r\n",
                                        "\n",
                                        "\r",
                                        "\xEF\xBB\xBF",
                                        "\xFF\xFE",
                                        QByteArray(1, '\0'),
                                        "-",
                                        "1e9",
                                        "999999999999",
                                        ".5",
                                        "9000001",
                                        "\x81",
                                        "\x83\x5C",
                                        "\xFD",
                                        "７",
                                        "\x82\x56",
                                        ",,,,,,,,,,,,",
                                        "0x",
                                        QByteArray(300, 'x'),
                                        QByteArray(40, ',')};
    return list;
}

// What the price files of an office look like.
QByteArray seed(const QString& table) {
    static const QHash<QString, QString> lines{
        {u"価格種目"_qs, u"1,義足,B-1,\"名\",形①\r\n2,装具,C-1,名,形\r\n"_qs},
        {u"価格基本"_qs, u"1,1,下肢装具,E-9,長下肢装具,＊,,2,100,100,100,90,90,90\r\n"_qs},
        {u"価格加算"_qs, u"1,1,下肢装具,E-9,断端加算,3,100,90\r\n7,,義足,A-1,断端,3,15900,\r\n"_qs},
        {u"価格要素"_qs, u"1,1,下肢装具,E-9,支持部,皮革,100,100,100,90,90,90\r\n"_qs},
        {u"価格部品"_qs, u"1,下肢装具,足部,単軸,架空工業,K-1,1,○,,備考,100,90\r\n"_qs}};
    return Text::toCp932(lines.value(table));
}

class Damage {
public:
    explicit Damage(unsigned seed) : m_random(seed) {}

    int below(qsizetype limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    QByteArray done(QByteArray bytes) {
        for (int i = below(6); i >= 0; --i) damage(bytes);
        return bytes;
    }

private:
    void damage(QByteArray& bytes) {
        const int at = below(bytes.size() + 1);
        switch (below(6)) {
        case 0:
            bytes.insert(at, pieces().at(below(pieces().size())));
            break;
        case 1:
            bytes.insert(at, static_cast<char>(m_random()));
            break;
        case 2:
            bytes.remove(at, below(8) + 1);
            break;
        case 3:
            bytes.truncate(at);
            break;
        case 4:
            bytes.insert(at, bytes.mid(below(bytes.size() + 1), below(60)));
            break;
        default:
            if (at < bytes.size()) bytes[at] = static_cast<char>(m_random());
        }
    }

    std::mt19937 m_random;
};

// What the engine takes for the value of a column.
bool fits(const Schema::Column& column, const QString& value) {
    if (column.isNumber())
        return value.isEmpty() || (isPlainNumber(value) && Val(value) >= 0 && Val(value) <= PriceFiles::largestPrice);
    return column.size == 0 || Text::signs(value) <= column.size;
}

} // namespace

// Any bytes are read as lines of a price file or told, and what is not told can be stored.
class PriceReaderTest : public QObject {
    Q_OBJECT

private slots:
    void anyBytesAreReadOrTold() {
        const auto start = static_cast<unsigned>(QDate::currentDate().toJulianDay());
        Damage damage(start);
        int good = 0;
        for (int round = 0; round < rounds(); ++round) {
            const QString table = Schema::priceTables().at(damage.below(5));
            const QByteArray bytes = damage.done(seed(table));
            const QString words = fault(table, bytes, good);
            if (words.isEmpty()) continue;
            QFAIL(qPrintable(u"%1, seed %2, round %3: %4\n%5"_qs.arg(table).arg(start).arg(round).arg(
                words, QString::fromLatin1(bytes.toHex()))));
        }
        qInfo("%d files, %d of them good", rounds(), good);
        QVERIFY(good > rounds() / 100 && good < rounds());
    }

private:
    static QString fault(const QString& table, const QByteArray& bytes, int& good) {
        QBuffer file;
        file.setData(bytes);
        file.open(QIODevice::ReadOnly);
        const QList<PriceFiles::Fault> faults = PriceFiles::faultsOf(table, u"file"_qs, file);
        const int lines = static_cast<int>(bytes.count('\n')) + 1;
        for (const PriceFiles::Fault& fault : faults)
            if (fault.line < 0 || fault.line > lines || fault.reason.isEmpty()) return u"a fault nowhere"_qs;
        file.seek(0);
        int before = 0;
        for (PriceFiles::Reader line(file); line.next(); before = line.number()) {
            if (line.number() <= before || line.number() > lines) return u"a line out of order"_qs;
            const QString words = faultOfLine(table, line.fields(), faults.isEmpty());
            if (!words.isEmpty()) return words;
        }
        if (faults.isEmpty()) ++good;
        return {};
    }

    static QString faultOfLine(const QString& table, const QStringList& fields, bool isGood) {
        for (const QString& field : fields)
            for (const QChar sign : {u',', u'"', u'\r', u'\n'})
                if (field.contains(sign)) return u"a field with a separator"_qs;
        PriceRow row;
        const auto error = errorOf([&] { row = PriceFiles::rowOf(table, fields); });
        const bool isShort = fields.size() < PriceFiles::fieldCount(table);
        if (isShort != bool(error)) return u"a short line"_qs;
        if (!isGood) return {};
        for (const QString& column : PriceFiles::columnsOf(table))
            if (!fits(*Schema::table(table)->column(column), row.value(column)))
                return u"an untold value of "_qs + column;
        return {};
    }
};

HALVANE_TEST(PriceReaderTest)
#include "PriceReaderTest.moc"
