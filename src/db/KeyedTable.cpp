#include "db/KeyedTable.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/clsLogger.h"
#include "db/clsAutoIdsManager.h"

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

// Numbers typed by hand, or drawn under a wrong clock, may run ahead of the series, which then skips them.
QString KeyedTable::drawNew(const QString& column, Series series) {
    const int size = Schema::table(m_table)->column(column)->size;
    QString number;
    do {
        number = gAutoIdsManager.GetNewId(column);
        if (number.isEmpty()) return {};
        if (series == Series::Yearly) number.prepend(gSysYear);
        if (number.size() > size)
            throw AppError(u"新しい%1 %2 は %3 文字を超えるため登録できません。採番の最終値を確認してください。"_qs.arg(
                               column, number, QString::number(size)),
                           m_table);
    } while (count(SqlEqual({m_table, column}, number)) > 0);
    return number;
}

QString KeyedTable::drawNeeded(const QString& column, Series series) {
    const QString number = drawNew(column, series);
    if (number.isEmpty()) throw AppError(u"新規の%1を自動的に取得できませんでした。"_qs.arg(column), m_table);
    return number;
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
