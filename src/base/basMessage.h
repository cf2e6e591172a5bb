#pragma once

#include "base/Seams.h"

#include <QString>

class AppError;

// The codes by what follows the caller's text, and by the buttons.
namespace Message {
enum Code : int {
    EnterValue = 101,  // を入力して下さい。
    ChooseValue = 102, // を選択して下さい。
    Invalid = 111,     // が無効です。
    Duplicate = 112,   // が重複しています。
    NotFound = 121,    // が見つかりません。
    Missing = 122,     // がありません。
    Overflow = 123,    // がオーバーフローします。
    NotSet = 124,      // が設定されていません。
    AskSave = 201,     // は変更されています。保存しますか？
    AskDelete = 202,   // を削除しますか？
    AskPrint = 203,    // 印刷を開始しますか？
    AskClear = 204,    // をクリアしますか？ with what becomes of the amounts
    AskRun = 205,      // を実行します。よろしいですか？ likewise
    SaveFirst = 301,   // を保存した後、実行して下さい。
    AskCancel = 302,   // の編集を取り消します。よろしいですか？
    Warning = 901,     // the text alone, as all below
    Information = 902,
    Question = 904,
    QuestionNo = 905, // いいえ is the default
    QuestionRetry = 908,
    QuestionCancel = 909,
    Failure = 991, // the current error
    QuestionPlain = 992,
};
} // namespace Message

// Every message of the system passes here; the box title is always the application title.
QString GetMessageText(int code, const QString& text);
// Shows the box of a code and answers with the pressed button (see `MessageAnswer`). Code 991 shows the current error.
qint16 ShowMessage(int code, const QString& text);

// A question with OK and キャンセル, which has no code. True for OK.
bool AskOk(const QString& text);

void SetWaitCursor(bool on);

// The one handler at the end of every event: cursor back, a log line with description and source, the message. To be
// called in a catch block; an exception of any other kind is reported with its own words.
void ReportError();

// Runs an event's work and ends in `ReportError` on a failure. True when it ended well.
template <class Work> bool guarded(Work&& work) {
    try {
        work();
        return true;
    } catch (...) {
        ReportError();
        return false;
    }
}
