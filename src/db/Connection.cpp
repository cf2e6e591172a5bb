#include "db/Connection.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/clsLogger.h"
#include "db/Engine.h"
#include "db/RecordsetStream.h"
#include "db/SelectInto.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>
#include <QUuid>

#include <chrono>
#include <exception>

namespace {

constexpr int rowsPerBatch = 500;
constexpr int shortestPause = 2; // milliseconds
constexpr int longestPause = 10;

void pauseForOthers() { QThread::msleep(QRandomGenerator::global()->bounded(shortestPause, longestPause)); }

[[noreturn]] void raise(Engine::Fault fault, const QSqlError& error) {
    const QString words = error.databaseText().trimmed();
    switch (fault) {
    case Engine::Fault::Busy:
        throw AppError(u"データベースは他の端末が使用中です。しばらく待ってから、もう一度実行してください。"_qs,
                       u"Connection"_qs);
    case Engine::Fault::Lost:
        throw AppError(u"データベースとの接続が切れました。もう一度実行してください。"_qs, u"Connection"_qs);
    case Engine::Fault::Duplicate:
        throw AppError(u"同じキーのデータが既に登録されています。\n"_qs + words, u"Connection"_qs);
    case Engine::Fault::Other:
        break;
    }
    throw AppError(u"データベースの処理に失敗しました。\n"_qs + words, u"Connection"_qs);
}

// A field as a value to bind: both engines read numbers and dates from text.
QVariant bindable(const Recordset& rows, int index, const Schema::Column* column) {
    if (rows.isNull(index)) return QVariant(QMetaType(QMetaType::QString));
    const QString text = rows.value(index);
    if (!column || !column->isDate()) return text;
    const auto moment = parseDate(text);
    const bool timed = moment && moment->time() != QTime(0, 0);
    return timed ? moment->toString(u"yyyy/MM/dd HH:mm:ss"_qs) : text;
}

} // namespace

struct Connection::Private {
    std::unique_ptr<Engine> engine;
    QString name = QUuid::createUuid().toString();
    std::weak_ptr<Recordset::Stream> stream;
    bool open = false;
    bool lost = false;
    bool failed = false;        // a statement of the transaction under way
    QElapsedTimer sinceRelease; // of the write lock

    bool letGoJustNow() const { return sinceRelease.isValid() && sinceRelease.elapsed() < longestPause; }

    QSqlDatabase database() const { return QSqlDatabase::database(name, false); }
    QString savepoint(int depth) const { return u"level%1"_qs.arg(depth); }

    [[noreturn]] void fail(const QSqlError& error) {
        const Engine::Fault fault = engine->fault(error);
        lost = lost || fault == Engine::Fault::Lost;
        failed = true;
        raise(fault, error);
    }
};

Connection::Connection(ConnectionSettings settings)
    : m_settings(std::move(settings)), m_private(std::make_unique<Private>()) {
    m_private->engine = Engine::make(m_settings.provider);
}

Connection::~Connection() { close(); }

// --- opening ---

void Connection::open() {
    close();
    m_private->failed = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(m_private->engine->driver(), m_private->name);
        try {
            if (!database.isValid())
                throw AppError(u"データベースのドライバー %1 が利用できません。"_qs.arg(m_private->engine->driver()),
                               u"Connection"_qs);
            m_private->engine->configure(database, m_settings);
            database.setNumericalPrecisionPolicy(QSql::HighPrecision);
            if (!database.open())
                throw AppError(u"データベースに接続できません。\n%1\n%2"_qs.arg(
                                   m_settings.description(), database.lastError().databaseText().trimmed()),
                               u"Connection"_qs);
            if (!m_settings.administration) m_private->engine->check(database);
        } catch (...) {
            database = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_private->name);
            throw;
        }
    }
    m_private->open = true;
    m_private->lost = false;
    for (const QString& statement : m_private->engine->greeting(m_settings)) run(statement);
}

void Connection::close() {
    m_private->lost = false;
    if (!m_private->open) return;
    if (const auto stream = m_private->stream.lock()) stream->detach();
    m_private->open = false;
    m_depth = 0;
    m_private->database().close();
    QSqlDatabase::removeDatabase(m_private->name);
}

bool Connection::isOpen() const { return m_private->open; }

// A lost connection is opened anew by the next command, but never in the middle of a transaction, whose earlier
// statements are gone. A transaction with a failed statement can only be rolled back: one engine ends it by itself, and
// the other would commit the half of it.
void Connection::ensureUsable() {
    if (m_private->lost && m_depth == 0) reopen();
    if (!m_private->open) throw AppError(u"データベースが開かれていません。"_qs, u"Connection"_qs);
    if (m_private->lost)
        throw AppError(u"データベースとの接続が切れました。もう一度実行してください。"_qs, u"Connection"_qs);
    if (m_private->failed && m_depth > 0)
        throw AppError(u"前の処理が失敗したため、続けて実行できません。最初からやり直してください。"_qs,
                       u"Connection"_qs);
}

void Connection::reopen() {
    try {
        open();
    } catch (const AppError&) {
        m_private->lost = true; // the next command tries again
        throw;
    }
}

// --- statements ---

// Another statement on the connection would end a query that is being read.
void Connection::finishStream() {
    if (const auto stream = m_private->stream.lock()) stream->buffer();
    m_private->stream.reset();
}

qint64 Connection::run(const QString& engineStatement) {
    finishStream();
    QSqlQuery query(m_private->database());
    if (!query.exec(engineStatement)) m_private->fail(query.lastError());
    return query.isSelect() ? 0 : qMax(0, query.numRowsAffected());
}

qint64 Connection::execute(const QString& statement) {
    if (onStatement) onStatement(statement);
    ensureUsable();
    qint64 rows = 0;
    if (copyInto(statement, rows)) return rows;
    const QString engineStatement = m_private->engine->dialect().translate(statement);
    if (engineStatement.isEmpty()) return 0;
    if (m_depth > 0 || m_private->engine->queuesForLocks()) return run(engineStatement);
    Transaction transaction(*this); // which waits for its turn
    rows = run(engineStatement);
    transaction.commit();
    return rows;
}

Recordset Connection::query(const QString& statement) {
    return streamed(statement, m_private->engine->dialect().translate(statement));
}

Recordset Connection::querySoonest(const QString& statement) {
    Engine& engine = *m_private->engine;
    return streamed(statement, engine.soonest(engine.dialect().translate(statement)));
}

Recordset Connection::streamed(const QString& statement, const QString& engineStatement) {
    if (onStatement) onStatement(statement);
    ensureUsable();
    finishStream();
    QSqlQuery query(m_private->database());
    query.setForwardOnly(true);
    if (!query.exec(engineStatement)) m_private->fail(query.lastError());
    auto stream = std::make_shared<Recordset::Stream>(std::move(query));
    stream->onError = [state = m_private.get()](const QSqlError& error) { state->fail(error); };
    m_private->stream = stream;
    return Recordset(std::move(stream));
}

QString Connection::scalar(const QString& statement) {
    Recordset rows = query(statement);
    return rows.next() ? rows.value(0) : QString();
}

QString Connection::engineScalar(const QString& engineStatement) {
    ensureUsable();
    finishStream();
    QSqlQuery query(m_private->database());
    if (!query.exec(engineStatement)) m_private->fail(query.lastError());
    return query.next() ? query.value(0).toString() : QString();
}

void Connection::engineExecute(const QString& engineStatement) {
    ensureUsable();
    run(engineStatement);
}

bool Connection::copyInto(const QString& statement, qint64& rows) {
    const auto copy = SelectInto::parse(statement);
    if (!copy) return false;
    const Schema::Table* table = Schema::table(copy->target);
    if (!table) throw AppError(u"表 %1 は定義されていません。"_qs.arg(copy->target), u"Connection"_qs);
    Connection source(ConnectionSettings::sqliteFile(copy->file));
    source.open();
    Transaction transaction(*this);
    createTable(*table, Schema::spelling(copy->target));
    rows = copyRows(source, copy->source, copy->target, copy->where);
    transaction.commit();
    return true;
}

// --- transactions ---

void Connection::begin() {
    ensureUsable();
    if (m_depth == 0) m_private->failed = false;
    if (m_depth > 0)
        run(u"SAVEPOINT "_qs + m_private->savepoint(m_depth));
    else if (m_private->engine->queuesForLocks())
        run(m_private->engine->beginTransaction());
    else
        beginInTurn();
    ++m_depth;
}

// Who waits for a file's write lock can only try again and again. The engine's own way, up to ten times a second,
// leaves the lock to whoever lets go of it and takes it again at once. So who has just let go pauses before the next
// try, and the pauses are short and random, so that all who wait have the same chance.
void Connection::beginInTurn() {
    if (m_private->letGoJustNow()) pauseForOthers();
    const QDeadlineTimer deadline(std::chrono::seconds{m_settings.timeout});
    run(m_private->engine->waitForLocks(0));
    QSqlQuery query(m_private->database());
    const auto begun = [&] { return query.exec(m_private->engine->beginTransaction()); };
    const auto busy = [&] { return m_private->engine->fault(query.lastError()) == Engine::Fault::Busy; };
    bool taken = begun();
    while (!taken && busy() && !deadline.hasExpired()) {
        pauseForOthers();
        taken = begun();
    }
    run(m_private->engine->waitForLocks(m_settings.timeout * 1000));
    if (!taken) raise(m_private->engine->fault(query.lastError()), query.lastError());
}

void Connection::commit() {
    if (m_depth == 0) throw AppError(u"トランザクションが開始されていません。"_qs, u"Connection"_qs);
    ensureUsable();
    run(m_depth == 1 ? u"COMMIT"_qs : u"RELEASE SAVEPOINT "_qs + m_private->savepoint(m_depth - 1));
    if (--m_depth == 0) m_private->sinceRelease.start();
}

void Connection::rollback() {
    if (m_depth == 0) throw AppError(u"トランザクションが開始されていません。"_qs, u"Connection"_qs);
    --m_depth;
    if (m_private->lost) return; // the server has rolled back already
    m_private->failed = false;
    if (m_depth == 0) {
        run(u"ROLLBACK"_qs);
        m_private->sinceRelease.start();
        return;
    }
    const QString savepoint = m_private->savepoint(m_depth);
    run(u"ROLLBACK TO SAVEPOINT "_qs + savepoint);
    run(u"RELEASE SAVEPOINT "_qs + savepoint);
}

void Connection::lockForWriting(const QString& table) {
    if (m_depth == 0) throw AppError(u"トランザクションが開始されていません。"_qs, u"Connection"_qs);
    const QString statement = m_private->engine->lockTable(table);
    if (!statement.isEmpty()) run(statement);
}

Transaction::~Transaction() {
    if (!m_open) return;
    try {
        m_connection.rollback();
    } catch (const AppError& error) {
        // The failure under way says what went wrong; this one only follows it.
        writeLog(u"ロールバック失敗："_qs + error.description());
    }
}

void Transaction::commit() {
    m_connection.commit();
    m_open = false;
}

// --- tables ---

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
