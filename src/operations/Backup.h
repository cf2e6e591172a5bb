#pragma once

#include "db/ConnectionSettings.h"
#include "operations/DatabaseCopy.h"

#include <QString>

#include <functional>

// A backup is one database file of the embedded engine, whichever engine the office is on, and a copy of the settings.
// It stands under its name only when it was proven and is on the disk.
namespace Backup {

// What is being done, and how far it is; false from it stops the work, which then leaves nothing behind.
using Progress = std::function<bool(const QString& part, qint64 done, qint64 all)>;

// What a copy was found to hold.
struct Proof {
    QString version; // of the program that it was made for
    QStringList tables;
    QList<DatabaseCopy::Count> counts; // of these tables

    bool isOlder() const; // than this program
    QStringList report() const;
};

// Opens a copy, checks every page of it, finds every table with its columns, and counts rows and yen. A copy that is
// damaged, cut off or of something else raises an error with its path and the reason.
Proof prove(const QString& file, const Progress& progress = {});

// Makes the pair of a stamp in a folder, which must exist. On a file others go on saving meanwhile, on a server, too.
// Rows and yen agree with the source, or an error rises and nothing is left; a file that others changed since is
// compared by its bytes alone. Gives the path of the copy.
enum class Made { ByOperator, ByItself };
QString make(const ConnectionSettings& office, const QString& folder, const QString& stamp, Made made,
             const Progress& progress = {});

// Deletes the pair of a stamp, whichever exists.
void remove(const QString& folder, const QString& stamp);

// An error with the path when it is no folder, or none that can be written to.
void requireFolder(const QString& folder);

} // namespace Backup
