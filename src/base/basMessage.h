#pragma once

#include "base/Seams.h"

#include <QString>

class AppError;

// Every message of the system passes here; the box title is always the application title.
QString GetMessageText(int code, const QString& text);
// Shows the box of a code and answers with the pressed button (see `MessageAnswer`). Code 991 shows the current error.
qint16 ShowMessage(int code, const QString& text);

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
