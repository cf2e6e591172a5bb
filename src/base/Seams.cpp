#include "base/Seams.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

qint16 answerOnConsole(const MessageBoxRequest& request) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(request.title), qUtf8Printable(request.text));
    switch (request.buttons) {
    case MessageButtons::Ok:
        return AnswerNone;
    case MessageButtons::YesNo:
        return AnswerNo;
    case MessageButtons::YesNoCancel:
    case MessageButtons::RetryCancel:
    case MessageButtons::OkCancel:
        return AnswerCancel;
    }
    return AnswerNone;
}

} // namespace

Seams defaultSeams() {
    Seams seams;
    seams.message = answerOnConsole;
    seams.waitCursor = [](bool) {};
    seams.openWithShell = [](const QString&) {};
    seams.saveFile = [](FileDialogRequest&) { return QString(); };
    seams.openFolder = [](const FileDialogRequest&) { return QString(); };
    seams.openFile = [](const FileDialogRequest&) { return QString(); };
    seams.letEventsRun = [] { QCoreApplication::processEvents(); };
    seams.now = [] { return QDateTime::currentDateTime(); };
    seams.programFolder = [] { return QCoreApplication::applicationDirPath(); };
    return seams;
}

Seams& seams() {
    static Seams instance = defaultSeams();
    return instance;
}

QDateTime currentDateTime() { return seams().now(); }

QDate currentDate() { return seams().now().date(); }

QString programFolder() { return seams().programFolder(); }
