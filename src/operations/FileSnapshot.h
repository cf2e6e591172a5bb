#pragma once

#include "db/Connection.h"

#include <QFile>
#include <QList>

#include <functional>

// Copies a database file as it stands at one moment while other machines go on saving. They would wait as long as it
// takes to write the copy; so it is written first without a lock, again and again where they changed something, until a
// pass is quick, and only the last pass, which finds next to nothing, keeps them waiting: as long as it takes to read
// the file once.
class FileSnapshot {
public:
    // So much of all bytes is read in a pass.
    using Progress = std::function<void(qint64 done, qint64 all)>;

    // `target` is a file that does not exist yet. Failures raise an error with its path.
    FileSnapshot(const QString& file, QString target);

    // Passes without a lock.
    void copyAhead(const Progress& progress);
    // The pass that counts; the caller reads from one state of the database meanwhile.
    void complete();
    // To be called while nobody in this process has the file locked: closing it would end the locks.
    void close();

    // Milliseconds that the last pass took.
    qint64 lastPass() const { return m_lastPass; }

private:
    void pass(const Progress& progress);
    void write(qint64 at, const QByteArray& bytes);
    [[noreturn]] void fail(const QFile& file) const;

    QFile m_source;
    QFile m_target;
    QList<size_t> m_marks; // of each part as it stands in the copy
    qint64 m_lastPass = 0;
};
