#include "db/KeyedTable.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/clsLogger.h"

void KeyedTable::Prepare(Connection& connection) {
    m_connection = &connection;
    m_sql.Prepare(connection, m_table);
}

SqlTerm KeyedTable::byKey() const {
    QList<SqlTerm> columns;
    for (const QString& column : key()) columns << SqlColumn{m_table, column};
    return SqlTerm::joined(columns, u","_qs);
}

Connection& KeyedTable::connection() const {
    if (!m_connection) throw AppError(u"データベースが開かれていません。"_qs, u"TableManager"_qs);
    return *m_connection;
}

qint64 KeyedTable::count(const SqlTerm& where) {
    return scalar(SqlSelect(u"SELECT COUNT(*) FROM [%1]"_qs.arg(m_table), where)).toLongLong();
}

void KeyedTable::remove(const QStringList& values) {
    execute(SqlSelect(u"DELETE FROM [%1]"_qs.arg(m_table), keyed(values)));
}

QString KeyedTable::largestNumber(const SqlTerm& among) {
    return scalar(SqlSelect(u"SELECT MAX([%1]) FROM [%2]"_qs.arg(key().last(), m_table), among));
}

QString KeyedTable::nextNumber(const SqlTerm& among) { return numberText(Val(largestNumber(among)) + 1); }

void KeyedTable::execute(const QString& sql) {
    WriteSqlLog(sql);
    connection().execute(sql);
}

Recordset KeyedTable::query(const QString& sql) {
    WriteSqlLog(sql);
    return connection().query(sql);
}

QString KeyedTable::scalar(const QString& sql) {
    Recordset rows = query(sql);
    return rows.next() ? rows.value(0) : QString();
}
