#include "db/TableMaintenance.h"

#include "base/Application.h"
#include "base/clsLogger.h"
#include "db/Connection.h"
#include "db/TableManager.h"
#include "db/clsSysSettingManager.h"

namespace {

const QString insertHead = u" INSERT INTO [システム設定] ([No], [設定項目], [設定値], [備考]) VALUES ("_qs;

bool hasSetting(Connection& connection, int No, QString* value = nullptr) {
    Recordset rows = connection.query(u" SELECT * FROM [システム設定] WHERE [No] = %1"_qs.arg(No));
    if (!rows.next()) return false;
    if (value) *value = rows.value(u"設定値"_qs);
    return true;
}

} // namespace

void TableMaintenance(Connection& connection) {
    writeLog(u"テーブルメンテナンスの開始"_qs);
    QString stored;
    if (!hasSetting(connection, Setting::DatabaseVersion, &stored)) {
        stored = u"000000"_qs;
        connection.execute(insertHead + u"   99, 'ＤＢバージョン', '"_qs + stored + u"', 'ＤＢのバージョン番号')"_qs);
    }
    if (stored < u"020105"_qs) connection.execute(u" ALTER TABLE [システム設定] ALTER COLUMN [No] INTEGER NOT NULL"_qs);
    if (!hasSetting(connection, Setting::UsesProductName))
        connection.execute(insertHead + u"   44, 'マスタ見積名称利用', '0', '0：なし、1：あり')"_qs);
    const QString version = programVersionCode();
    if (stored < version)
        connection.execute(u" UPDATE [システム設定] SET [設定値] = "_qs + sqlText(version) + u" WHERE [No] = 99"_qs);
    writeLog(u"テーブルメンテナンスの終了"_qs);
}
