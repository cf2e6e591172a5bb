#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

// A file that is written whole or not at all: beside its place, down to the disk, then put in the place of the one that
// stands there. Nothing is done before `commit` has come back. A new file is for its owner alone, as such files hold
// persons or passwords; one that is rewritten keeps its owner and mode.
//
// Every failure raises an error with the word for the file, its path and the reason, and leaves what stood there.
class WholeFile {
public:
    explicit WholeFile(const QString& path, QString what = u"ファイル"_qs);

    void write(const QByteArray& bytes);
    void commit();

private:
    [[noreturn]] void fail();
    void keepOwner();

    QSaveFile m_file;
    QString m_what;
};

// The mode of a new file that the people of one office share.
inline constexpr QFileDevice::Permissions officeFileMode =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::WriteGroup;

// Waits until a file and its name are on the disk; false when that failed (errno says why).
bool fileSynced(const QString& path);

// The operator's words for a failed call of the system (its errno); the system's own for one that is rare.
QString systemFailure(int code);
