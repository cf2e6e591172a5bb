#pragma once

#include "db/Connection.h"
#include "db/SqlKeys.h"
#include "db/clsSQLMaker.h"

// What a table can do by its key, which the schema tells; it needs no record. Key values are given as texts in the
// order of the key columns (see `SqlKey`). Failures rise as AppError.
class KeyedTable {
public:
    explicit KeyedTable(QString table) : m_table(std::move(table)) {}

    // Keeps the connection and reads the table's columns.
    void Prepare(Connection& connection);
    // Forgets the connection, which is about to close.
    void Release() { m_connection = nullptr; }

    const QString& table() const { return m_table; }
    // The row of a key, or the rows of an owner, who is named by the first key columns.
    SqlTerm keyed(const QStringList& values) const { return SqlKey(m_table, values); }
    // The order by the key.
    SqlTerm byKey() const;

protected:
    // Raises an error before `Prepare` and after the connection closed.
    Connection& connection() const;
    clsSQLMaker& sql() { return m_sql; }
    const QStringList& key() const { return SqlKeyColumns(m_table); }

    qint64 count(const SqlTerm& where = {});
    bool exists(const QStringList& values) { return count(keyed(values)) > 0; }
    void remove(const QStringList& values);
    void removeAll() { execute(u"DELETE FROM [%1]"_qs.arg(m_table)); }
    // The largest number in the last key column; empty when there is none.
    QString largestNumber(const SqlTerm& among = {});
    // That plus 1.
    QString nextNumber(const SqlTerm& among = {});

    // A number that no row has yet, from the series named as the column; of a yearly one the system date's year stands
    // ahead. Empty when none can be drawn. Raises an error for a number that the column does not hold.
    enum class Series { Endless, Yearly };
    QString drawNew(const QString& column, Series series = Series::Endless);
    // The same where nothing can go on without it: raises an error when none can be drawn.
    QString drawNeeded(const QString& column, Series series = Series::Endless);

    void execute(const QString& sql);
    Recordset query(const QString& sql);
    // The first field of the first row; empty when there is none.
    QString scalar(const QString& sql);

private:
    QString m_table;
    Connection* m_connection = nullptr;
    clsSQLMaker m_sql;
};
