#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <functional>

// What is under edit is written to a file every minute, so that a machine that stops takes no more than a minute of
// work with it. Such a file is never what is stored: nothing but the operator's own save makes that of it.
//
// The files stand in the folder `drafts` beside the INI file, those of each machine and user in a folder of their own,
// for their owner alone. One that stands at the start was left behind, as whoever closes an editor takes its file away.

struct KeptDraft {
    QString file;
    QString kind;  // which editor takes it up
    QString title; // what it is, in the operator's words
    QDateTime kept;
    QJsonObject content;
    bool duringSave = false; // the program ended while a save was under way: it may be stored
    bool isReadable = false; // else damaged, or of a newer program; then file and time are all there is
};

namespace KeptDrafts {

// Those left behind for the database that the INI file names, the newest first.
QList<KeptDraft> left();
// Takes one away; one that is gone is no failure.
void drop(const QString& file);
// Why the last one could not be written, in the operator's words; empty when it was, or nothing was to be written.
QString failure();
// The folder of this machine and user.
QString folder();

} // namespace KeptDrafts

// What an editor keeps of its work.
struct KeptWork {
    QString title;
    QJsonObject content;
    QString kind = {};
};

// The file of one editor.
class DraftKeeping {
public:
    // Writes what stands in the editor, unless the file says so already. A failure, also one of `collect`, is logged
    // and remembered, as it must not come between the operator and the typing.
    void keep(const std::function<KeptWork()>& collect);
    // Goes on with a file that was left behind.
    void takeUp(const KeptDraft& draft);
    // The work is stored or given up.
    void forget();

    // While a save runs, what is kept may be stored as well, which the file says. A rename, so that it works on a full
    // disk, too.
    void beginSave();
    void endSave();

private:
    void write(const KeptWork& work);
    void moveTo(const QString& suffix);

    QString m_file;
    QJsonObject m_content;
    bool m_saving = false;
};
