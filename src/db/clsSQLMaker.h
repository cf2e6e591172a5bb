#pragma once

#include "db/Schema.h"

#include <QHash>
#include <QList>
#include <QString>

class Connection;

// Composes INSERT, UPDATE, SELECT and DELETE text for one table from name and value lists, after the table's live
// columns. It runs nothing. Values are text; null and blank alike mean NULL. A text longer than its column is cut; a
// value of a number column that is no number, or of a date column that is no date, raises a type error before any
// statement is made of it.
class clsSQLMaker {
public:
    // Reads the columns of the table (its name right-trimmed).
    void Prepare(Connection& connection, const QString& tableName);
    void RemoveAll();
    void AddData(const QString& name, const QString& value);
    void AddKey(const QString& name, const QString& value);

    // `登録日` and `更新日` are stamped with NOW() unless they were given.
    QString GetSqlForInsert();
    // Refuses an update without a key.
    QString GetSqlForUpdate();
    QString GetSqlForSelect() const;
    // Refuses a deletion without a key.
    QString GetSqlForDelete() const;

private:
    struct Entry {
        QString name;
        QString value;
        Schema::TypeCode type;
    };

    Schema::Column columnOf(const QString& name) const;
    void stamp(const QString& column, bool& given);
    static QString rendered(const Entry& entry, bool isKey);
    static QString keyClause(const QList<Entry>& keys);
    QString names() const;

    QString m_table;
    QHash<QString, Schema::Column> m_columns;
    QList<Entry> m_data;
    QList<Entry> m_keys;
    bool m_addDateGiven = false;
    bool m_updDateGiven = false;
};
