#pragma once

#include "db/ConnectionSettings.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class Connection;

// Moves a whole office from one database to a new one, on either engine. The yearly price files are no part of it: on
// both engines they stay beside the program.
namespace DatabaseCopy {

// What one database holds of a table.
struct Count {
    qint64 rows = 0;
    QString yen = u"0"_qs; // the sum of all its money columns; "0" for a table without one
    bool operator==(const Count&) const = default;
};

struct Comparison {
    QString table;
    Count from;
    Count to;
    bool agrees() const { return from == to; }
};

// Whether others may write to the source while it is copied. On a server they then go on, and the copy is of the moment
// when it began; at a file they wait.
enum class Others { Wait, GoOn };

// Copies every table into a new database and gives the closing comparison; the target is filled in one transaction.
// Raises an error, and leaves nothing behind, when the target exists, when a step fails, or when the two sides differ.
// `progress` gets a line for each step.
QList<Comparison> copy(const ConnectionSettings& from, const ConnectionSettings& to, Others others = Others::Wait,
                       const std::function<void(const QString&)>& progress = {});

// The tables of the schema, and what a broken-off price revision left of an office's own rows.
QStringList tablesOf(Connection& source);
Count countOf(Connection& connection, const QString& table);

// Rows and yen of each table in two open databases.
QList<Comparison> compare(Connection& from, Connection& to, const QStringList& tables);
// The comparison as lines of a table for the screen or a file; tables that differ are marked.
QStringList report(const QList<Comparison>& comparisons);
// The first side of it alone.
QStringList countReport(const QList<Comparison>& comparisons);

} // namespace DatabaseCopy
