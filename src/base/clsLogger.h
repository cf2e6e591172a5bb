#pragma once

#include <QString>

#include <memory>

// Appends to the log of the day and prunes old ones. The file is open only while a line is written, so that several
// machines can share the folder and the log can be read at any time.
class clsLogger {
public:
    // Reads `Log`/`Path` and `Log`/`SaveDays`, and deletes logs older than that many days (0 or less keeps all). A
    // `SaveDays` that is no number raises a type error.
    clsLogger();

    // The path of the log file; it keeps the date of the day on which the logger was made.
    QString FileNm() const { return m_file; }
    // Writes time stamp and message as one line; a line that cannot be written is lost.
    void WriteLog(const QString& message) const;
    // Nothing stays open between lines and nothing is deleted.
    void RemoveFile() const {}

private:
    QString m_file;
};

// The one logger of the run; nothing before `InitializeApp`.
extern std::unique_ptr<clsLogger> gLogger;
// Off in normal use; with it on, every statement goes to the log.
extern bool gSqlLogEnabled;

// Writes to the log when there is one.
void writeLog(const QString& message);
void WriteSqlLog(const QString& text);
