#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

// What a lower floor needs of a higher one passes through these replaceable functions. The program fills them with
// Qt's dialogs and the real clock; tests and scenarios fill them with queues and fixed values.

enum class MessageIcon { Warning, Question, Information, Critical };
enum class MessageButtons { Ok, YesNo, YesNoCancel, RetryCancel, OkCancel };

// The answers of `ShowMessage`; OK answers None.
enum MessageAnswer : qint16 { AnswerNone = 0, AnswerCancel = 2, AnswerRetry = 4, AnswerYes = 6, AnswerNo = 7 };

struct MessageBoxRequest {
    QString title;
    QString text;
    MessageIcon icon = MessageIcon::Warning;
    MessageButtons buttons = MessageButtons::Ok;
    bool defaultIsNo = false;
};

struct FileDialogRequest {
    QString caption;
    QString folder = {};      // start folder, empty: the platform's own choice
    QString fileName = {};    // proposed name, saving only
    QStringList filters = {}; // "CSV (*.csv)", in order
    int filter = 0;           // preselected filter, from 0
};

struct Seams {
    // Shows a box and answers with the pressed button.
    std::function<qint16(const MessageBoxRequest&)> message;
    std::function<void(bool)> waitCursor;
    // Opens a document by its association.
    std::function<void(const QString& path)> openWithShell;
    // The chosen path, empty when cancelled; the chosen filter goes back into the request.
    std::function<QString(FileDialogRequest&)> saveFile;
    std::function<QString(const FileDialogRequest&)> openFolder;
    std::function<QString(const FileDialogRequest&)> openFile;
    // Lets pending events run once, so that long work shows its progress.
    std::function<void()> letEventsRun;
    std::function<QDateTime()> now;
    // The folder of the program, without a separator at its end.
    std::function<QString()> programFolder;
};

// The seams in force. Without a filled seam a message is written to standard error and answered with its default.
Seams& seams();
// The seams as they stand before anything fills them; tests go back to these.
Seams defaultSeams();

QDateTime currentDateTime();
QDate currentDate();
QString programFolder();
