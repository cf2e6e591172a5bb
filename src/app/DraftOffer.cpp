#include "app/DraftOffer.h"

#include "base/AppError.h"
#include "base/basMessage.h"
#include "estimates/screens/frmCsEstimate.h"
#include "master/screens/frmMsEstimate.h"

namespace {

using Editor = void (*)(QWidget* menu, const KeptDraft& draft);

template <class S> void openEditor(QWidget* menu, const KeptDraft& draft) {
    openScreen<S>(
        menu, [&draft](S& screen) { screen.Left = draft; }, [](S&) {});
}

Editor editorOf(const KeptDraft& draft) {
    static const QHash<QString, Editor> table{{u"frmCsEstimate"_qs, openEditor<frmCsEstimate>},
                                              {u"frmMsEstimate"_qs, openEditor<frmMsEstimate>}};
    return table.value(draft.kind);
}

QString nameOf(const KeptDraft& draft) {
    const QString title = draft.isReadable ? draft.title : u"壊れているか、新しい版の Halvane のもので、開けません"_qs;
    return u"%1　%2"_qs.arg(title, draft.kept.toString(u"M月d日 H:mm"_qs));
}

} // namespace

QString DraftOffer::text(const QList<KeptDraft>& drafts) {
    if (drafts.isEmpty()) {
        const QString reason = KeptDrafts::failure().section(u'\n', -1);
        return reason.isEmpty() ? QString() : u"入力中の下書きを保存できませんでした。"_qs + reason;
    }
    const KeptDraft& newest = drafts.first();
    QString text = u"反映されていない下書き："_qs + nameOf(newest);
    if (newest.duringSave) text += u"（反映の途中）"_qs;
    if (drafts.size() > 1) text += u"　ほか %1 件"_qs.arg(drafts.size() - 1);
    return text;
}

void DraftOffer::open(QWidget* menu, const KeptDraft& draft) {
    const Editor editor = draft.isReadable ? editorOf(draft) : nullptr;
    if (!editor) throw AppError(u"この下書きは、壊れているか、新しい版の Halvane のもので、開けません。"_qs);
    if (draft.duringSave)
        ShowMessage(Message::Information,
                    u"この下書きは反映の途中で終わっています。すでに登録されていることがあります。\n"
                    u"一覧で確かめてから反映して下さい。"_qs);
    editor(menu, draft);
}

void DraftOffer::drop(const KeptDraft& draft) {
    if (ShowMessage(Message::QuestionNo,
                    u"下書きを捨てます。元には戻せません。よろしいですか？\n"_qs + nameOf(draft)) == AnswerYes)
        KeptDrafts::drop(draft.file);
}
