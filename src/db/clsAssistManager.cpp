#include "db/clsAssistManager.h"

#include "base/AppError.h"
#include "base/basCommon.h"

clsAssistManager gAssistManager;

clsAssistManager::clsAssistManager()
    : TableManager(u"補助設定"_qs, {{&clsAssist::AsstNo, u"管理No"_qs},
                                    {&clsAssist::AsstGr, u"分類"_qs},
                                    {&clsAssist::AsstData, u"設定値"_qs},
                                    {&clsAssist::AsstView, u"表示名"_qs},
                                    {&clsAssist::AsstMemo, u"説明"_qs}}) {}

bool clsAssistManager::GetData(const QString& AsstNo, clsAssist& assist) {
    return readFirst(assist, u"[管理No] = "_qs + sqlNumber(AsstNo));
}

void clsAssistManager::DeleteData(const QString& AsstNo) {
    execute(u"DELETE FROM [補助設定] WHERE [管理No] = "_qs + sqlNumber(AsstNo));
}

void clsAssistManager::SaveData(clsAssist& assist) {
    const QStringList columns = columnsWithout({u"管理No"_qs});
    Transaction transaction(connection());
    if (Val(assist.AsstNo) > 0) {
        update(assist, columns, {u"管理No"_qs});
    } else {
        insert(assist, columns);
        assist.AsstNo = connection().scalar(u"SELECT MAX([管理No]) FROM [補助設定]"_qs);
        if (assist.AsstNo.isEmpty())
            throw AppError(u"追加した管理Noの取得に失敗しました。"_qs, u"clsAssistManager"_qs);
    }
    transaction.commit();
}

QList<clsAssist> clsAssistManager::group(int group) {
    QList<clsAssist> values;
    GetList(values, u"[分類] = %1"_qs.arg(group), u"[管理No]"_qs);
    return values;
}
