#pragma once

#include "db/SqlText.h"

#include <QStringList>

// What the schema tells about keys, in the text of statements. Values are texts: that of a number column must be a
// number and that of a date column a date, or a type error rises; a text counts as it is stored, without blanks behind.

// A column that has a value, or one of several.
SqlTerm SqlEqual(const SqlColumn& column, const QString& value);
SqlTerm SqlOneOf(const SqlColumn& column, const QStringList& values);
// A date column from one day to another; an empty one is no bound.
SqlTerm SqlPeriod(const SqlColumn& column, const QString& from, const QString& to);
// Columns of a table that have these values, in turn; there are as many columns as values, or more.
SqlTerm SqlEqual(const QString& table, const QStringList& columns, const QStringList& values);

// The key columns of a table; raises an error for one that has none.
const QStringList& SqlKeyColumns(const QString& table);
// The row of a key, or, with values for its first columns alone, the rows of an owner. Refuses a key without a value,
// which would mean every row.
SqlTerm SqlKey(const QString& table, const QStringList& values);

// A table whose rows name one of another by its key, under the same column names.
struct SqlReference {
    QString table, other;

    // "([a].[k] = [b].[k]) AND …"
    QString match() const;
    // The tables joined so far with the other one, which may lack the row.
    QString leftJoin(const QString& joined) const;
    // With the other one, without which a row is left out.
    QString innerJoin(const QString& joined) const;
};
