#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

// The names of backups: "Halvane" and a stamp of 14 digits (yyyymmddhhnnss), with ".db" for the copy of the database
// and
// ".ini" for that of the settings.
namespace BackupFiles {

QString stampOf(const QDateTime& moment);
// The stamp in a file's name; empty for a name that belongs to no backup.
QString stampIn(const QString& fileName);
std::optional<QDateTime> momentOf(const QString& stamp);

QString databaseName(const QString& stamp);
QString profileName(const QString& stamp);

// The stamps of the backups of a folder, the oldest first; none when there is no such folder.
QStringList list(const QString& folder);
// Those that were made without being asked for.
QStringList automatic(const QString& folder);

// A stamp as the operator reads it ("2026年11月22日　01時45分53秒"), and back.
QString shown(const QString& stamp);
QString stampOfShown(const QString& line);

// Of backups that make themselves those that need not be kept: all but the newest of each of seven days, of five weeks
// and of twelve months.
QStringList superfluous(const QStringList& stamps);

} // namespace BackupFiles
