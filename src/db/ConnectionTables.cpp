#include "db/ConnectionState.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Text.h"
#include "db/RecordsetStream.h"

#include <QSqlDriver>
#include <QSqlQuery>

namespace {

constexpr int rowsPerBatch = 500;
constexpr int rowsPerStatement = 250;

// A field as a value to bind: both engines read numbers and dates from text.
QVariant bindable(const Recordset& rows, int index, const Schema::Column* column) {
    if (rows.isNull(index)) return QVariant(QMetaType(QMetaType::QString));
    const QString text = Text::wholeSigns(rows.value(index));
    if (!column || !column->isDate()) return text;
    const auto moment = parseDate(text);
    const bool timed = moment && moment->time() != QTime(0, 0);
    return timed ? moment->toString(u"yyyy/MM/dd HH:mm:ss"_qs) : text;
}

QVariant bindableText(const QString& text, int size) {
    return text.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(Text::first(text, size));
}

} // namespace

QList<Schema::Column> Connection::columns(const QString& table) {
    const Schema::Table* known = Schema::table(table);
    ensureUsable();
    finishStream();
    QSqlQuery query(m_private->database());
    query.setForwardOnly(true);
    if (!query.exec(m_private->engine->columnNames(Schema::spelling(table)))) m_private->fail(query.lastError());
    QList<Schema::Column> result;
    while (query.next()) {
        const QString name = query.value(0).toString();
        const Schema::Column* column = known ? known->column(name) : nullptr;
        result << (column ? *column : Schema::Column{name, Schema::LongText, 0});
    }
    if (result.isEmpty()) throw AppError(u"表 %1 が見つかりません。"_qs.arg(table), u"Connection"_qs);
    return result;
}

bool Connection::tableExists(const QString& table) {
    return m_private->database().tables().contains(Schema::spelling(table), Qt::CaseInsensitive);
}

void Connection::prepareNewDatabase() {
    for (const QString& statement : m_private->engine->newDatabase()) engineExecute(statement);
}

void Connection::createTable(const Schema::Table& table, const QString& name) {
    const QString tableName = name.isEmpty() ? table.name : name;
    SqlDialect& dialect = m_private->engine->dialect();
    QStringList parts;
    for (const Schema::Column& column : table.columns) {
        const bool issued = table.autoKey && table.key.first() == column.name;
        QString line = dialect.name(column.name) + u' ' +
                       (issued ? m_private->engine->autoKey() : m_private->engine->columnType(column));
        if (!issued && table.key.contains(column.name)) line += u" NOT NULL"_qs;
        parts << line;
    }
    if (!table.key.isEmpty() && !table.autoKey) {
        QStringList key;
        for (const QString& column : table.key) key << dialect.name(column);
        parts << u"PRIMARY KEY ("_qs + key.join(u", "_qs) + u")"_qs;
    }
    engineExecute(u"CREATE TABLE %1 (%2)%3"_qs.arg(dialect.name(tableName), parts.join(u", "_qs),
                                                   m_private->engine->tableSuffix()));
    // A table without a key is an imported book, whose importer makes the indexes after the rows.
    const bool imported = !name.isEmpty() && table.key.isEmpty();
    for (const QStringList& index : imported ? QList<QStringList>() : table.indexes) {
        QStringList quoted;
        for (const QString& column : index) quoted << u'[' + column + u']';
        execute(u"CREATE INDEX [IDX_%1_%2] ON [%1] (%3)"_qs.arg(tableName)
                    .arg(table.indexes.indexOf(index) + 1)
                    .arg(quoted.join(u", "_qs)));
    }
}

qint64 Connection::copyRows(Connection& source, const QString& sourceTable, const QString& targetTable,
                            const QString& where, const std::function<void(qint64)>& progress) {
    const QList<Schema::Column> targetColumns = columns(targetTable);
    const QList<Schema::Column> sourceColumns = source.columns(sourceTable);
    SqlDialect& dialect = m_private->engine->dialect();
    QStringList bracketed, names;
    for (const Schema::Column& column : targetColumns) {
        for (const Schema::Column& from : sourceColumns)
            if (from.name == column.name) {
                bracketed << u'[' + column.name + u']';
                names << dialect.name(column.name);
            }
    }
    QString select = u"SELECT %1 FROM [%2]"_qs.arg(bracketed.join(u", "_qs), sourceTable);
    if (!where.isEmpty()) select += u" WHERE "_qs + where;
    QSqlQuery insert(m_private->database());
    const QStringList marks(names.size(), u"?"_qs);
    finishStream();
    if (!insert.prepare(u"INSERT INTO %1 (%2) VALUES (%3)"_qs.arg(dialect.name(Schema::spelling(targetTable)),
                                                                  names.join(u", "_qs), marks.join(u", "_qs))))
        m_private->fail(insert.lastError());
    const Schema::Table* known = Schema::table(targetTable);
    Recordset rows = source.query(select);
    while (rows.next()) {
        for (int i = 0; i < names.size(); ++i) {
            const Schema::Column* column = known ? known->column(bracketed.at(i).mid(1).chopped(1)) : nullptr;
            insert.bindValue(i, bindable(rows, i, column));
        }
        if (!insert.exec()) m_private->fail(insert.lastError());
        if (progress && rows.position() % rowsPerBatch == 0) progress(rows.position());
    }
    if (progress) progress(rows.position());
    return rows.position();
}

void Connection::insertRows(const QString& table, const QStringList& columns, qint64 count,
                            const std::function<QStringList(qint64 row)>& row,
                            const std::function<void(qint64)>& progress) {
    ensureUsable();
    finishStream();
    const Schema::Table* known = Schema::table(table);
    SqlDialect& dialect = m_private->engine->dialect();
    QStringList names;
    for (const QString& column : columns) names << dialect.name(column);
    const QString marks = u'(' + QStringList(columns.size(), u"?"_qs).join(u',') + u')';
    QSqlQuery insert(m_private->database());
    qint64 prepared = 0;
    for (qint64 first = 0; first < count; first += rowsPerStatement) {
        const qint64 rows = qMin<qint64>(rowsPerStatement, count - first);
        if (rows != prepared &&
            !insert.prepare(u"INSERT INTO %1 (%2) VALUES %3"_qs.arg(
                dialect.name(Schema::spelling(table)), names.join(u", "_qs), QStringList(rows, marks).join(u','))))
            m_private->fail(insert.lastError());
        prepared = rows;
        int place = 0;
        for (qint64 i = first; i < first + rows; ++i) {
            const QStringList values = row(i);
            for (qsizetype column = 0; column < columns.size(); ++column)
                insert.bindValue(place++, bindableText(values.at(column), known->column(columns.at(column))->size));
        }
        if (!insert.exec()) m_private->fail(insert.lastError());
        if (progress) progress(first + rows);
    }
}

void Connection::advanceAutoKeys() {
    for (const Schema::Table& table : Schema::tables()) {
        if (!table.autoKey) continue;
        const QString statement = m_private->engine->advanceAutoKey(table.name, table.key.first());
        if (!statement.isEmpty()) engineScalar(statement);
    }
}

void Connection::continueAutoKeys(Connection& source) {
    for (const Schema::Table& table : Schema::tables()) {
        if (!table.autoKey) continue;
        const QString column = table.key.first();
        const qint64 last = source.engineScalar(source.m_private->engine->lastAutoKey(table.name, column)).toLongLong();
        if (last <= 0) continue;
        for (const QString& statement : m_private->engine->setLastAutoKey(table.name, column, last))
            engineExecute(statement);
    }
}
