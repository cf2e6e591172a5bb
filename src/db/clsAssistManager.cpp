#include "db/clsAssistManager.h"

#include "base/AppError.h"
#include "base/Numbers.h"

clsAssistManager gAssistManager;

clsAssistManager::clsAssistManager()
    : TableManager(u"補助設定"_qs, {{&clsAssist::AsstNo, u"管理No"_qs},
                                    {&clsAssist::AsstGr, u"分類"_qs},
                                    {&clsAssist::AsstData, u"設定値"_qs},
                                    {&clsAssist::AsstView, u"表示名"_qs},
                                    {&clsAssist::AsstMemo, u"説明"_qs}}) {}

bool clsAssistManager::GetData(const QString& AsstNo, clsAssist& assist) { return get({AsstNo}, assist); }

void clsAssistManager::DeleteData(const QString& AsstNo) { remove({AsstNo}); }

void clsAssistManager::SaveData(clsAssist& assist) {
    Transaction transaction(connection());
    if (Val(assist.AsstNo) > 0) {
        update(assist);
    } else {
        insert(assist);
        assist.AsstNo = largestNumber();
        if (assist.AsstNo.isEmpty()) throw AppError(u"追加した管理Noの取得に失敗しました。"_qs, u"clsAssistManager"_qs);
    }
    transaction.commit();
}

SqlTerm clsAssistManager::ofGroup(int group) const { return equal(&clsAssist::AsstGr, QString::number(group)); }

QList<clsAssist> clsAssistManager::group(int group) {
    QList<clsAssist> values;
    GetList(values, ofGroup(group), byKey());
    return values;
}
