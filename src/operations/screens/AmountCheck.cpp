#include "operations/screens/AmountCheck.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "operations/clsSearchAbnormal.h"
#include "ui/ProgressBox.h"

void AmountCheck::run(QWidget* parent) {
    if (ShowMessage(Message::QuestionNo, u"顧客見積金額チェックには数分かかります。。\n実行しますか?"_qs) != AnswerYes)
        return;
    ShowMessage(Message::Warning,
                u"チェックを開始します。\nOKボタンを押して完了メッセージがでるまでお待ちください。"_qs);
    clsSearchAbnormal check;
    check.Prepare(gDbManager.Connection());
    ProgressBox box(parent, u"見積金額チェック"_qs, ProgressBox::Stop::Offered);
    check.progress = [&box](const QString& pass, qint64 done, qint64 all) { return box.tell(pass, done, all); };
    if (check.WriteKanseiLost() && check.WriteKihonLost()) check.WriteBothLost();
}
