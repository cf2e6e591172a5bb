#include "db/ConnectionState.h"

#include "base/AppError.h"
#include "base/clsLogger.h"
#include "db/FailureWords.h"
#include "db/RecordsetStream.h"
#include "db/SelectInto.h"

#include <QDeadlineTimer>
#include <QRandomGenerator>
#include <QScopedValueRollback>
#include <QSqlQuery>
#include <QThread>

#include <chrono>

namespace {

constexpr int shortestPause = 2; // milliseconds
constexpr int pauseOfLookUp = 50;

const QString busyWords = u"データベースは他の端末が使用中です。しばらく待ってから、もう一度実行してください。"_qs;

void pauseForOthers() { QThread::msleep(QRandomGenerator::global()->bounded(shortestPause, longestPause)); }

} // namespace

void Connection::Private::raise(Engine::Fault fault, const QSqlError& error) const {
    const QString words = failureWords(provider, error);
    switch (fault) {
    case Engine::Fault::Busy:
        throw AppError(busyWords, u"Connection"_qs);
    case Engine::Fault::Lost:
        throw AppError(u"データベースとの接続が切れました。もう一度実行してください。"_qs, u"Connection"_qs);
    case Engine::Fault::Duplicate:
        throw AppError(u"同じキーのデータが既に登録されています。\n"_qs + words, u"Connection"_qs);
    case Engine::Fault::Other:
        break;
    }
    throw AppError(u"データベースの処理に失敗しました。\n"_qs + words, u"Connection"_qs);
}

Connection::Connection(ConnectionSettings settings)
    : m_settings(std::move(settings)), m_private(std::make_unique<Private>()) {
    m_private->engine = Engine::make(m_settings.provider);
    m_private->provider = m_settings.provider;
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
                                   m_settings.description(), failureWords(m_settings.provider, database.lastError())),
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
    if ((m_private->failed || m_private->ended) && m_depth > 0)
        throw AppError(u"前の処理が失敗したため、続けて実行できません。最初からやり直してください。"_qs,
                       u"Connection"_qs);
}

// A server that was started anew, or a line that was cut over night, is found out by the first command only.
template <class Work> auto Connection::onceMoreIfLost(Work work) {
    const bool known = m_private->lost;
    try {
        return work();
    } catch (const AppError&) {
        if (known || !m_private->lost || m_depth > 0) throw;
    }
    return work();
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
    if (m_depth > 0) return run(engineStatement);
    Transaction transaction(*this); // which waits for its turn, and looks up a lost answer
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

QSqlQuery Connection::asked(const QString& engineStatement) {
    ensureUsable();
    finishStream();
    QSqlQuery query(m_private->database());
    query.setForwardOnly(true);
    if (!query.exec(engineStatement)) m_private->fail(query.lastError());
    return query;
}

Recordset Connection::streamed(const QString& statement, const QString& engineStatement) {
    if (onStatement) onStatement(statement);
    QSqlQuery query = onceMoreIfLost([&] { return asked(engineStatement); });
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
    QSqlQuery query = onceMoreIfLost([&] { return asked(engineStatement); });
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
    if (m_depth > 0) {
        ensureUsable();
        run(u"SAVEPOINT "_qs + m_private->savepoint(m_depth));
    } else {
        m_private->failed = m_private->ended = false;
        onceMoreIfLost([this] { beginOutermost(); });
    }
    ++m_depth;
}

void Connection::beginOutermost() {
    ensureUsable();
    if (m_private->engine->queuesForLocks())
        run(m_private->engine->beginTransaction());
    else
        beginInTurn();
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
    if (!taken) m_private->raise(m_private->engine->fault(query.lastError()), query.lastError());
}

void Connection::beginReading() {
    ensureUsable();
    m_private->failed = m_private->ended = false;
    const QStringList statements = m_private->engine->beginReading();
    run(statements.first());
    ++m_depth;
    try {
        for (const QString& look : statements.mid(1)) run(look);
    } catch (const AppError&) {
        rollback();
        throw;
    }
}

void Connection::commit() {
    if (m_depth == 0) throw AppError(u"トランザクションが開始されていません。"_qs, u"Connection"_qs);
    ensureUsable();
    if (m_depth == 1) return commitOutermost();
    run(u"RELEASE SAVEPOINT "_qs + m_private->savepoint(m_depth - 1));
    --m_depth;
}

// --- a commit and its answer ---

// A file that others are reading lets the commit be taken back in order; after any other failure the engine is asked
// anew, as the data may be stored.
void Connection::commitOutermost() {
    const auto ask = [this](const QString& statement) { return engineScalar(statement); };
    const QString sign = m_private->engine->signOfTransaction(ask);
    finishStream();
    const auto failure = m_private->attempt(u"COMMIT"_qs);
    if (failure) {
        const Engine::Fault fault = m_private->engine->fault(*failure);
        if (fault == Engine::Fault::Busy || sign.isEmpty()) m_private->fail(*failure);
        m_private->attempt(u"ROLLBACK"_qs); // in case it stands open still
        m_private->lost = m_private->lost || fault == Engine::Fault::Lost;
        m_private->ended = true;
        if (!lookUp(sign)) m_private->raise(fault, *failure);
    }
    m_depth = 0;
    m_private->sinceRelease.start();
}

bool Connection::wasCommitted(const QString& sign) {
    if (m_depth > 0) throw AppError(u"トランザクションの中では確認できません。"_qs, u"Connection"_qs);
    return lookUp(sign);
}

// A server that is on its way back gets the time that one waits for a lock. The transaction itself stays begun, for its
// guard to end.
bool Connection::lookUp(const QString& sign) {
    const QScopedValueRollback outside(m_depth, 0);
    const auto ask = [this](const QString& statement) { return engineScalar(statement); };
    const QDeadlineTimer deadline(std::chrono::seconds{m_settings.timeout});
    do {
        try {
            const Engine::Outcome outcome = m_private->engine->outcome(sign, ask);
            if (outcome != Engine::Outcome::UnderWay) return outcome == Engine::Outcome::Committed;
        } catch (const AppError& error) {
            writeLog(u"保存の確認："_qs + error.description());
        }
        QThread::msleep(pauseOfLookUp);
    } while (!deadline.hasExpired());
    throw CommitInDoubt(sign);
}

CommitInDoubt::CommitInDoubt(QString sign)
    : AppError(u"データベースから返事がないため、保存が終わったかどうかを確認できません。\n"
               u"一覧などで確かめてから、もう一度実行してください。"_qs,
               u"Connection"_qs),
      m_sign(std::move(sign)) {}

// --- the end of transactions ---

void Connection::rollback() {
    if (m_depth == 0) throw AppError(u"トランザクションが開始されていません。"_qs, u"Connection"_qs);
    --m_depth;
    if (m_private->lost || m_private->ended) return; // it has been rolled back already
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

namespace {

void rollBackQuietly(Connection& connection) {
    try {
        connection.rollback();
    } catch (const AppError& error) {
        // The failure under way says what went wrong; this one only follows it.
        writeLog(u"ロールバック失敗："_qs + error.description());
    }
}

} // namespace

bool isBusy(const AppError& error) { return error.description() == busyWords; }

Reading::~Reading() { rollBackQuietly(m_connection); }

Transaction::~Transaction() {
    if (m_open) rollBackQuietly(m_connection);
}

void Transaction::commit() {
    m_connection.commit();
    m_open = false;
}
