#include "db/DraftSave.h"

void DraftSave::tellDoubt() {
    throw AppError(u"データベースから返事がないため、保存が終わったかどうかを確認できません。\n"
                   u"入力は画面に残っています。もう一度実行すると、先に確認してから保存します。"_qs,
                   u"DraftSave"_qs);
}
