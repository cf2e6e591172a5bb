#include "base/basMessage.h"

#include "base/AppError.h"
#include "base/clsLogger.h"

#include <QHash>

#include <exception>

namespace {

struct MessageForm {
    QString behind; // follows the caller's text
    MessageIcon icon = MessageIcon::Warning;
    MessageButtons buttons = MessageButtons::Ok;
    bool defaultIsNo = false;
};

const QHash<int, MessageForm>& forms() {
    using enum MessageIcon;
    using enum MessageButtons;
    static const QHash<int, MessageForm> table{
        {Message::EnterValue, {u"を入力して下さい。"_qs}},
        {Message::ChooseValue, {u"を選択して下さい。"_qs}},
        {Message::Invalid, {u"が無効です。"_qs}},
        {Message::Duplicate, {u"が重複しています。"_qs}},
        {Message::NotFound, {u"が見つかりません。"_qs}},
        {Message::Missing, {u"がありません。"_qs}},
        {Message::Overflow, {u"がオーバーフローします。"_qs}},
        {Message::NotSet, {u"が設定されていません。"_qs}},
        {Message::AskSave, {u"は変更されています。保存しますか？"_qs, Question, YesNoCancel}},
        {Message::AskDelete, {u"を削除しますか？"_qs, Question, YesNo, true}},
        {Message::AskPrint, {u"印刷を開始しますか？"_qs, Question, YesNo}},
        {Message::AskClear,
         {u"をクリアしますか？\n\n※クリアすると現在の消費税相当額で金額を再計算します。"_qs, Question, YesNo, true}},
        {Message::AskRun,
         {u"を実行します。よろしいですか？\n\n※実行すると現在の消費税相当額で金額を再計算します。"_qs, Question, YesNo,
          true}},
        {Message::SaveFirst, {u"を保存した後、実行して下さい。"_qs}},
        {Message::AskCancel, {u"の編集を取り消します。よろしいですか？"_qs, Question, YesNo}},
        {Message::Warning, {}},
        {Message::Information, {{}, Information}},
        {Message::Question, {{}, Question, YesNo}},
        {Message::QuestionNo, {{}, Question, YesNo, true}},
        {Message::QuestionRetry, {{}, Question, RetryCancel}},
        {Message::QuestionCancel, {{}, Question, YesNoCancel}},
        {Message::Failure, {{}, Critical}},
        {Message::QuestionPlain, {{}, Question, YesNo}},
    };
    return table;
}

// The error under handling, in the words of the operator.
AppError currentError() {
    try {
        throw;
    } catch (const AppError& error) {
        return error;
    } catch (const std::exception& error) {
        return AppError(QString::fromUtf8(error.what()), u"Halvane"_qs);
    } catch (...) {
        return AppError(u"未定義ｴﾗｰ"_qs, u"Halvane"_qs);
    }
}

} // namespace

QString GetMessageText(int code, const QString& text) {
    const auto form = forms().find(code);
    if (form == forms().end()) return u"未定義ｴﾗｰ"_qs;
    if (code == Message::Failure && std::current_exception()) {
        const AppError error = currentError();
        return error.description() + u" ("_qs + QString::number(static_cast<qint32>(error.number())) + u")"_qs;
    }
    return text + form->behind;
}

qint16 ShowMessage(int code, const QString& text) {
    const MessageForm form = forms().value(code);
    return seams().message({u"Halvane"_qs, GetMessageText(code, text), form.icon, form.buttons, form.defaultIsNo});
}

bool AskOk(const QString& text) {
    return seams().message({u"Halvane"_qs, text, MessageIcon::Question, MessageButtons::OkCancel}) == AnswerNone;
}

void SetWaitCursor(bool on) { seams().waitCursor(on); }

void ReportError() {
    SetWaitCursor(false);
    const AppError error = currentError();
    writeLog(error.description() + u" ("_qs + error.source() + u")"_qs);
    ShowMessage(Message::Warning, error.description());
}
