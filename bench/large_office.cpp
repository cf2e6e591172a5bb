// Makes the office in the database of an INI file a large one, to see how the program does there.
//   large_office FILE.ini 100000           multiplies the estimates of the sample, with all that belongs to them
//   large_office FILE.ini 500000 200000    adds customers of many names with a case each, and estimates for them; the
//                                          same numbers give the same office
//   large_office FILE.ini masters 5000     multiplies the master estimates of the sample
#include "base/AppError.h"
#include "base/clsProfile.h"
#include "db/Connection.h"

#include <QCoreApplication>
#include <QDate>
#include <QRandomGenerator>

#include <cstdio>

namespace {

const QStringList estimateTables{u"顧客見積情報"_qs, u"顧客見積種目"_qs, u"顧客見積基本製作要素"_qs,
                                 u"顧客見積完成要素"_qs, u"顧客見積請求"_qs};

const QStringList masterTables{u"マスタ見積情報"_qs, u"マスタ見積種目"_qs, u"マスタ見積基本製作要素"_qs,
                               u"マスタ見積完成要素"_qs};

// Copies the rows whose id starts with two zeros, as all of the sample's do, under another start; a code ends with it.
void repeat(Connection& connection, const QString& table, const QString& id, const QString& start) {
    QStringList names, values;
    for (const Schema::Column& column : Schema::table(table)->columns) {
        if (column.name == id) continue;
        names << u'[' + column.name + u']';
        values << names.last() +
                      (id == u"製品ID" && column.name == u"製品コード" ? u" & '-%1'"_qs.arg(start) : QString());
    }
    connection.execute(u"INSERT INTO [%1] ([%2], %3) SELECT '%4' & [%2], %5 FROM [%1] WHERE [%2] LIKE '00%'"_qs.arg(
        table, id, names.join(u", "_qs), start, values.join(u", "_qs)));
}

// Until a table holds so many rows.
void enlarge(Connection& connection, const QStringList& tables, const QString& id, qint64 wanted) {
    const auto count = [&] {
        return connection.scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(tables.first())).toLongLong();
    };
    const qint64 sample = count();
    Transaction transaction(connection);
    for (qint64 i = 36; (i - 35) * sample < wanted; ++i)
        for (const QString& table : tables)
            repeat(connection, table, id, QString::number(i, 36).rightJustified(2, u'0'));
    transaction.commit();
    connection.engineExecute(u"ANALYZE"_qs);
    std::printf("%s: %lld\n", qUtf8Printable(tables.first()), count());
}

// --- many customers ---

constexpr int rowsPerStatement = 500;

const QStringList familyNames{u"青木|ｱｵｷ"_qs,   u"石川|ｲｼｶﾜ"_qs, u"上野|ｳｴﾉ"_qs,  u"江口|ｴｸﾞﾁ"_qs,    u"大野|ｵｵﾉ"_qs,
                              u"加藤|ｶﾄｳ"_qs,   u"木村|ｷﾑﾗ"_qs,  u"久保|ｸﾎﾞ"_qs,  u"近藤|ｺﾝﾄﾞｳ"_qs,   u"斎藤|ｻｲﾄｳ"_qs,
                              u"柴田|ｼﾊﾞﾀ"_qs,  u"鈴木|ｽｽﾞｷ"_qs, u"関|ｾｷ"_qs,     u"高橋|ﾀｶﾊｼ"_qs,    u"千葉|ﾁﾊﾞ"_qs,
                              u"中島|ﾅｶｼﾞﾏ"_qs, u"西田|ﾆｼﾀﾞ"_qs, u"野口|ﾉｸﾞﾁ"_qs, u"長谷川|ﾊｾｶﾞﾜ"_qs, u"平野|ﾋﾗﾉ"_qs,
                              u"藤井|ﾌｼﾞｲ"_qs,  u"堀|ﾎﾘ"_qs,     u"松本|ﾏﾂﾓﾄ"_qs, u"三輪|ﾐﾜ"_qs,      u"村上|ﾑﾗｶﾐ"_qs,
                              u"森|ﾓﾘ"_qs,      u"山本|ﾔﾏﾓﾄ"_qs, u"吉田|ﾖｼﾀﾞ"_qs, u"渡辺|ﾜﾀﾅﾍﾞ"_qs,   u"和田|ﾜﾀﾞ"_qs};
const QStringList givenNames{u"明|ｱｷﾗ"_qs,    u"一郎|ｲﾁﾛｳ"_qs, u"恵子|ｹｲｺ"_qs, u"健|ｹﾝ"_qs,    u"幸子|ｻﾁｺ"_qs,
                             u"茂|ｼｹﾞﾙ"_qs,   u"進|ｽｽﾑ"_qs,    u"隆|ﾀｶｼ"_qs,   u"千代|ﾁﾖ"_qs,  u"直子|ﾅｵｺ"_qs,
                             u"信夫|ﾉﾌﾞｵ"_qs, u"花子|ﾊﾅｺ"_qs,  u"博|ﾋﾛｼ"_qs,   u"文子|ﾌﾐｺ"_qs, u"誠|ﾏｺﾄ"_qs,
                             u"美咲|ﾐｻｷ"_qs,  u"恵|ﾒｸﾞﾐ"_qs,   u"康夫|ﾔｽｵ"_qs, u"陽子|ﾖｳｺ"_qs, u"良|ﾘｮｳ"_qs};
const QStringList products{u"短下肢装具"_qs, u"長下肢装具"_qs, u"骨格構造下腿義足"_qs,
                           u"足底装具"_qs,   u"腰椎装具"_qs,   u"車椅子"_qs};
const QStringList places{u"愛知県|名古屋市中区"_qs, u"愛知県|岡崎市"_qs,     u"岐阜県|岐阜市"_qs,
                         u"岐阜県|大垣市"_qs,       u"三重県|津市"_qs,       u"三重県|四日市市"_qs,
                         u"静岡県|浜松市"_qs,       u"静岡県|静岡市葵区"_qs, u"長野県|飯田市"_qs};
const QStringList streets{u"栄"_qs, u"本町"_qs, u"緑が丘"_qs, u"駅前通"_qs, u"川端"_qs};

// Rows on their way into one table, many to a statement.
class Rows {
public:
    Rows(Connection& connection, const QString& table, const QStringList& columns)
        : m_connection(connection),
          m_head(u"INSERT INTO \"%1\" (\"%2\") VALUES "_qs.arg(table, columns.join(u"\", \""_qs))) {}

    void add(const QStringList& values) {
        QStringList quoted;
        for (const QString& value : values) quoted << u'\'' + value + u'\'';
        m_rows << u'(' + quoted.join(u", "_qs) + u')';
        if (m_rows.size() == rowsPerStatement) write();
    }
    void write() {
        if (!m_rows.isEmpty()) m_connection.engineExecute(m_head + m_rows.join(u", "_qs));
        m_rows.clear();
    }

private:
    Connection& m_connection;
    QString m_head;
    QStringList m_rows;
};

QString number(qint64 value, int digits) { return QString::number(value).rightJustified(digits, u'0'); }

void addOffice(Connection& connection, int customers, int estimates) {
    QRandomGenerator random(20240401);
    const auto pick = [&random](const QStringList& texts) {
        return texts.at(random.bounded(static_cast<int>(texts.size())));
    };
    const auto day = [&random](int years) {
        return QDate(2026, 10, 1).addDays(-random.bounded(365 * years)).toString(u"yyyy/MM/dd"_qs);
    };
    Transaction transaction(connection);
    Rows persons(connection, u"顧客情報"_qs,
                 {u"顧客ID"_qs, u"顧客枝番"_qs, u"顧客番号"_qs, u"名前1"_qs, u"名前2"_qs, u"フリガナ1"_qs,
                  u"フリガナ2"_qs, u"生年月日"_qs, u"電話"_qs, u"郵便番号"_qs, u"都道府県"_qs, u"市区郡"_qs,
                  u"住所1"_qs});
    Rows cases(connection, u"顧客カルテ"_qs,
               {u"顧客ID"_qs, u"顧客枝番"_qs, u"カルテNo"_qs, u"病名原因"_qs, u"受注先No"_qs, u"受注先"_qs});
    for (int i = 1; i <= customers; ++i) {
        const QString id = u'1' + number(i, 7);
        const QStringList family = pick(familyNames).split(u'|'), given = pick(givenNames).split(u'|');
        const QStringList place = pick(places).split(u'|');
        persons.add({id, u"1"_qs, u'9' + number(i, 7), family.at(0), given.at(0), family.at(1), given.at(1), day(90),
                     u"00-0000-"_qs + number(random.bounded(10'000), 4), number(random.bounded(1'000), 3) + u"-0000"_qs,
                     place.at(0), place.at(1), pick(streets) + QString::number(1 + random.bounded(99))});
        const QString order = QString::number(1 + random.bounded(5));
        cases.add({id, u"1"_qs, u"1"_qs, u"右片麻痺"_qs, order, u"見本病院"_qs + order});
    }
    persons.write();
    cases.write();
    Rows orders(connection, u"顧客見積情報"_qs,
                {u"見積ID"_qs, u"顧客ID"_qs, u"顧客枝番"_qs, u"カルテNo"_qs, u"見積番号"_qs, u"見積名称"_qs,
                 u"処理区分"_qs, u"受付日"_qs, u"採型日"_qs, u"納品実績日"_qs, u"製品コード"_qs, u"見積総合計"_qs});
    Rows claims(connection, u"顧客見積請求"_qs,
                {u"見積ID"_qs, u"請求No"_qs, u"法別No"_qs, u"請求先No"_qs, u"請求先"_qs, u"請求金額"_qs});
    for (int i = 1; i <= estimates; ++i) {
        const QString id = u'1' + number(i, 9);
        orders.add({id, u'1' + number(1 + random.bounded(customers), 7), u"1"_qs, u"1"_qs, u"9"_qs + number(i, 9),
                    u"(交付)"_qs + pick(products), QString::number(1 + random.bounded(9)), day(10), day(10), day(10),
                    u"P"_qs + number(random.bounded(500), 4), QString::number(1000 + random.bounded(1'000'000))});
        for (int claim = 1 + random.bounded(2); claim > 0; --claim) {
            const QString payer = QString::number(1 + random.bounded(6));
            claims.add({id, QString::number(claim), QString::number(1 + random.bounded(12)), payer,
                        u"見本請求先"_qs + payer, QString::number(1000 + random.bounded(100'000))});
        }
    }
    orders.write();
    claims.write();
    transaction.commit();
    connection.engineExecute(u"ANALYZE"_qs);
    std::printf("%d customers, %d estimates\n", customers, estimates);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 3 && argc != 4) return 2;
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(QString::fromLocal8Bit(argv[1]))));
        connection.open();
        const QString first = QString::fromLocal8Bit(argv[2]);
        const int wanted = first.toInt();
        if (argc == 3)
            enlarge(connection, estimateTables, u"見積ID"_qs, wanted);
        else if (first == u"masters")
            enlarge(connection, masterTables, u"製品ID"_qs, QString::fromLocal8Bit(argv[3]).toInt());
        else
            addOffice(connection, QString::fromLocal8Bit(argv[3]).toInt(), wanted);
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "large_office: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
