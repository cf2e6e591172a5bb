#include "reference/clsZipManager.h"

#include "base/basCommon.h"
#include "base/basMessage.h"

clsZipManager gZipManager;

clsZipManager::clsZipManager()
    : TableManager(u"郵便番号簿"_qs, {{&clsZip::Zip, u"郵便番号"_qs},
                                      {&clsZip::Pref, u"都道府県名"_qs},
                                      {&clsZip::City, u"市区町村名"_qs},
                                      {&clsZip::Town, u"町域名"_qs}}) {}

qint64 clsZipManager::GetCount() {
    Recordset rows = connection().query(u"SELECT count(*) AS CNT FROM [郵便番号簿] ;"_qs);
    return rows.next() ? rows.value(u"CNT"_qs).toLongLong() : 0;
}

bool clsZipManager::GetZipData(clsZip& zip, const QString& strZip7, const QString& strPref, const QString& strCity,
                               const QString& strAddr1) {
    const QString where = SqlAllOf({strZip7.isEmpty() ? QString() : u"[郵便番号] = "_qs + sqlText(strZip7),
                                    SqlContains(u"[都道府県名]"_qs, strPref), SqlContains(u"[市区町村名]"_qs, strCity),
                                    SqlContains(u"[町域名]"_qs, strAddr1)});
    return !where.isEmpty() && readFirst(zip, where);
}

Recordset clsZipManager::selectList(const QString& where, const QString& order) {
    return connection().query(
        u"SELECT [郵便番号], [都道府県名], [市区町村名], [町域名] AS 住所 FROM [郵便番号簿] WHERE "_qs + where +
        u" ORDER BY "_qs + order);
}

Recordset clsZipManager::GetSelectListFromAddr(const QString& inPref, const QString& inAdr, const QString& order) {
    const QString where =
        SqlAllOf({u"[都道府県名] = "_qs + sqlText(inPref), SqlStartsWith(u"([市区町村名] & [町域名])"_qs, inAdr)});
    if (connection().scalar(u"SELECT COUNT(*) FROM [郵便番号簿] WHERE "_qs + where) == u"0")
        ShowMessage(902, u"該当する郵便番号情報は登録されていません。"_qs);
    return selectList(where, order);
}

Recordset clsZipManager::GetSelectListFromZip(const QString& zip, const QString& order) {
    return selectList(u"[郵便番号] LIKE '"_qs + SqlQuote(zip, true) + u"%'"_qs, order);
}

void clsZipManager::ImportCsv(const QString& path) {
    execute(u"DROP TABLE [郵便番号簿]"_qs);
    execute(u"SELECT * INTO [郵便番号簿] FROM [;database="_qs + path + u"].[郵便番号簿]"_qs);
    execute(u"CREATE INDEX IDX_ZIPNO ON 郵便番号簿 (郵便番号)"_qs);
    execute(u"CREATE INDEX IDX_PREF  ON 郵便番号簿 (都道府県名)"_qs);
    execute(u"CREATE INDEX IDX_CITY  ON 郵便番号簿 (市区町村名)"_qs);
    execute(u"CREATE INDEX IDX_TOWN  ON 郵便番号簿 (町域名)"_qs);
    execute(u"CREATE INDEX IDX_ALL   ON 郵便番号簿 (都道府県名,市区町村名,町域名)"_qs);
}
