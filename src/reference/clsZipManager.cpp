#include "reference/clsZipManager.h"

#include "base/basMessage.h"

clsZipManager gZipManager;

namespace {

constexpr qsizetype codesPerStatement = 500;

} // namespace

clsZipManager::clsZipManager()
    : TableManager(u"郵便番号簿"_qs, {{&clsZip::Zip, u"郵便番号"_qs},
                                      {&clsZip::Pref, u"都道府県名"_qs},
                                      {&clsZip::City, u"市区町村名"_qs},
                                      {&clsZip::Town, u"町域名"_qs}}) {}

bool clsZipManager::GetZipData(clsZip& zip, const QString& strZip7, const QString& strPref, const QString& strCity,
                               const QString& strAddr1) {
    const SqlTerm where = SqlAllOf(
        {strZip7.isEmpty() ? SqlTerm() : equal(&clsZip::Zip, strZip7), SqlContains(column(&clsZip::Pref), strPref),
         SqlContains(column(&clsZip::City), strCity), SqlContains(column(&clsZip::Town), strAddr1)});
    return !where.isEmpty() && readFirst(zip, where);
}

Recordset clsZipManager::selectList(const SqlTerm& where, const SqlTerm& sort) {
    return query(SqlSelect(u"SELECT [郵便番号], [都道府県名], [市区町村名], [町域名] AS 住所 FROM [郵便番号簿]"_qs,
                           where, sort));
}

QList<clsZip> clsZipManager::startingWith(const QString& zip) {
    QList<clsZip> found;
    GetList(found, startsWith({{&clsZip::Zip, zip}}), column(&clsZip::Zip));
    return found;
}

Recordset clsZipManager::GetSelectListFromAddr(const QString& inPref, const QString& inAdr, const SqlTerm& sort) {
    const SqlTerm where =
        SqlAllOf({equal(&clsZip::Pref, inPref), SqlStartsWith(u"([市区町村名] & [町域名])"_qs, inAdr)});
    if (count(where) == 0) ShowMessage(Message::Information, u"該当する郵便番号情報は登録されていません。"_qs);
    return selectList(where, sort);
}

Recordset clsZipManager::GetSelectListFromZip(const QString& zip, const SqlTerm& sort) {
    return selectList(startsWith({{&clsZip::Zip, zip}}), sort);
}

void clsZipManager::rebuild(const std::function<void()>& fill) {
    execute(u"DROP TABLE [郵便番号簿]"_qs);
    fill();
    execute(u"CREATE INDEX IDX_ZIPNO ON 郵便番号簿 (郵便番号)"_qs);
    execute(u"CREATE INDEX IDX_PREF  ON 郵便番号簿 (都道府県名)"_qs);
    execute(u"CREATE INDEX IDX_CITY  ON 郵便番号簿 (市区町村名)"_qs);
    execute(u"CREATE INDEX IDX_TOWN  ON 郵便番号簿 (町域名)"_qs);
    execute(u"CREATE INDEX IDX_ALL   ON 郵便番号簿 (都道府県名,市区町村名,町域名)"_qs);
}

void clsZipManager::ImportCsv(const QString& path) {
    rebuild([&] { execute(u"SELECT * INTO [郵便番号簿] FROM [;database="_qs + path + u"].[郵便番号簿]"_qs); });
}

void clsZipManager::removeCodes(const QList<clsZip>& rows) {
    for (qsizetype first = 0; first < rows.size(); first += codesPerStatement) {
        QStringList codes;
        for (const clsZip& row : rows.mid(first, codesPerStatement)) codes << row.Zip;
        execute(SqlSelect(u"DELETE FROM [郵便番号簿]"_qs, SqlOneOf(column(&clsZip::Zip), codes)));
    }
}

void clsZipManager::ImportPublished(const PostalFiles::Book& book, const std::function<void(qint64 rows)>& progress) {
    const auto row = [&book](qint64 place) {
        const bool isTown = place < book.towns.size();
        const clsZip& zip = isTown ? book.towns.at(place) : book.offices.at(place - book.towns.size());
        return QStringList{zip.Zip, zip.Pref, zip.City, zip.Town};
    };
    QStringList columns;
    for (const Field<clsZip>& field : fields()) columns << field.column;
    const auto insertAll = [&] { connection().insertRows(table(), columns, book.size(), row, progress); };
    if (book.towns.isEmpty()) {
        removeCodes(book.offices);
        return insertAll();
    }
    rebuild([&] {
        connection().createTable(*Schema::table(table()), table());
        insertAll();
    });
}
