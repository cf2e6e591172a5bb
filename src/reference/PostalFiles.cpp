#include "reference/PostalFiles.h"

#include "base/AppError.h"
#include "base/Archive.h"
#include "base/Csv.h"
#include "base/Text.h"
#include "base/basCommon.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

namespace PostalFiles {

namespace {

// Where a file's lines hold what a book needs.
struct Shape {
    qsizetype fields;
    int code, pref, city, town;
    int rest; // of the address behind the town, -1 for none
};
constexpr Shape townShape{15, 2, 6, 7, 8, -1};
constexpr Shape officeShape{13, 7, 3, 4, 5, 6};

[[noreturn]] void refuse(const QString& name, const QString& reason) {
    throw AppError(u"郵便番号のデータではありません。\n%1\n%2"_qs.arg(name, reason), u"PostalFiles"_qs);
}

QString decoded(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? Text::fromCp932(bytes) : text;
}

bool isCode(const QString& text) {
    return text.size() == 7 &&
           std::all_of(text.begin(), text.end(), [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
}

bool fits(const QStringList& line, const Shape& shape) {
    return line.size() == shape.fields && isCode(line.at(shape.code)) && !line.at(shape.pref).isEmpty() &&
           !line.at(shape.city).isEmpty();
}

clsZip rowOf(const QStringList& line, const Shape& shape) {
    QString town = line.at(shape.town);
    if (shape.rest >= 0) town += line.at(shape.rest);
    return {FormatZip(line.at(shape.code)), line.at(shape.pref), line.at(shape.city), town};
}

bool hasOpenBracket(const QString& town) { return town.count(u'（') > town.count(u'）'); }

bool isSame(const clsZip& one, const clsZip& other) {
    return one.Zip == other.Zip && one.Pref == other.Pref && one.City == other.City && one.Town == other.Town;
}

// Collects the towns; a name whose bracket is still open goes on in the next line of the same code.
class TownList {
public:
    explicit TownList(QList<clsZip>& towns) : m_towns(towns) {}

    void add(const clsZip& line) {
        if (m_isOpen && line.Zip == m_open.Zip)
            m_open.Town += line.Town;
        else
            begin(line);
        m_isOpen = hasOpenBracket(m_open.Town);
        if (!m_isOpen) close();
    }
    void close() {
        if (m_open.Zip.isEmpty()) return;
        m_open.Town = cleanTown(m_open.Town);
        if (!isKnown()) m_towns << m_open;
        m_open = {};
        m_isOpen = false;
    }

private:
    void begin(const clsZip& line) {
        close();
        m_open = line;
    }
    // The lines of one code stand together.
    bool isKnown() const {
        for (auto row = m_towns.rbegin(); row != m_towns.rend() && row->Zip == m_open.Zip; ++row)
            if (isSame(*row, m_open)) return true;
        return false;
    }

    QList<clsZip>& m_towns;
    clsZip m_open;
    bool m_isOpen = false;
};

} // namespace

QString cleanTown(const QString& town) {
    static const QRegularExpression brackets(u"（[^）]*(）|$)"_qs);
    static const QRegularExpression lots(u"第?[０-９]+地割.*[〜～、].*$"_qs);
    QString name = town;
    name.remove(brackets);
    name.remove(lots);
    const bool isAll = name.endsWith(u"一円") && name != u"一円"; // which is a town, too
    const bool isRest = name == u"以下に掲載がない場合" || name.endsWith(u"の次に番地がくる場合");
    return isAll || isRest ? QString() : name.trimmed();
}

void readText(const QByteArray& bytes, const QString& name, Book& book) {
    const QList<QStringList> lines = Csv::read(decoded(bytes));
    if (lines.isEmpty()) refuse(name, u"データがありません。"_qs);
    const bool isTowns = fits(lines.first(), townShape);
    const Shape& shape = isTowns ? townShape : officeShape;
    TownList towns(book.towns);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!fits(lines.at(i), shape)) refuse(name, u"%1 行目の形が違います。"_qs.arg(i + 1));
        if (isTowns)
            towns.add(rowOf(lines.at(i), shape));
        else
            book.offices << rowOf(lines.at(i), shape);
    }
    towns.close();
}

void read(const QString& path, Book& book) {
    const QString shown = QDir::toNativeSeparators(path);
    if (path.endsWith(u".zip"_qs, Qt::CaseInsensitive)) {
        const QList<PackedFile> files = unpack(path, u".csv"_qs);
        if (files.isEmpty()) refuse(shown, u"圧縮ファイルの中に CSV ファイルがありません。"_qs);
        for (const PackedFile& file : files) readText(file.bytes, shown + u" : "_qs + file.name, book);
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) refuse(shown, file.errorString());
    readText(file.readAll(), shown, book);
}

QStringList find(const QString& folder) {
    const QStringList present = QDir(folder).entryList(QDir::Files);
    const auto first = [&](const QStringList& bases) -> QString {
        for (const QString& base : bases)
            for (const QString& suffix : {u".csv"_qs, u".zip"_qs})
                for (const QString& name : present)
                    if (name.compare(base + suffix, Qt::CaseInsensitive) == 0) return QDir(folder).filePath(name);
        return {};
    };
    QStringList found{first({u"utf_ken_all"_qs, u"ken_all"_qs}), first({u"jigyosyo"_qs})};
    found.removeAll({});
    return found;
}

} // namespace PostalFiles
