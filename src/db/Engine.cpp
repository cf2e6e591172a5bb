#include "db/Engine.h"

#include "base/AppError.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSqlQuery>

#include <limits>

namespace {

// A network that has gone silent counts as cut after 14 seconds without an answer (5, then 3 questions 3 apart), and
// after 15 (in milliseconds) without the other side having taken what was sent.
const QString signsOfLife =
    u"keepalives=1;keepalives_idle=5;keepalives_interval=3;keepalives_count=3;tcp_user_timeout=15000"_qs;

class SqliteEngine final : public Engine {
public:
    SqliteEngine() : Engine(std::make_unique<SqliteDialect>()) {}

    QString driver() const override { return u"QSQLITE"_qs; }

    void configure(QSqlDatabase& database, const ConnectionSettings& settings) const override {
        // The engine would make an empty file of a mistyped name.
        if (!QFileInfo(settings.path).isFile())
            throw AppError(u"データベースが見つかりません。\n"_qs + settings.path, u"Connection"_qs);
        database.setDatabaseName(settings.path);
        database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_qs.arg(settings.timeout * 1000));
    }

    // The rollback journal, since write-ahead logging must not be used on a network share. EXTRA: with FULL the folder
    // is not synced after the journal goes, and a power cut would bring it back to undo what was told as done. The
    // cache (kibibytes) holds what a sort over a large office looks up again and again.
    QStringList greeting(const ConnectionSettings&) const override {
        return {u"PRAGMA journal_mode = DELETE"_qs, u"PRAGMA synchronous = EXTRA"_qs, u"PRAGMA foreign_keys = OFF"_qs,
                u"PRAGMA cache_size = -32768"_qs};
    }

    QString beginTransaction() const override { return u"BEGIN IMMEDIATE"_qs; }
    // The lock is taken by the first look, which also undoes what a broken-off writer left.
    QStringList beginReading() const override {
        return {u"BEGIN DEFERRED"_qs, u"SELECT COUNT(*) FROM sqlite_master"_qs};
    }
    bool queuesForLocks() const override { return false; }
    QString waitForLocks(qint64 milliseconds) const override {
        return u"PRAGMA busy_timeout = %1"_qs.arg(milliseconds);
    }
    QString lockTable(const QString&) const override { return {}; }

    QString columnType(const Schema::Column& column) const override {
        switch (column.type) {
        // Not INTEGER: a key of that type would draw a number by itself where none was given.
        case Schema::SmallInteger:
        case Schema::Integer:
            return u"INT"_qs;
        case Schema::Double:
        case Schema::Currency:
            return u"REAL"_qs;
        case Schema::Date:
            return u"TEXT"_qs;
        default:
            return u"TEXT COLLATE NOCASE"_qs;
        }
    }

    QString autoKey() const override { return u"INTEGER PRIMARY KEY AUTOINCREMENT"_qs; }
    QString tableSuffix() const override { return u" STRICT"_qs; }

    QString columnNames(const QString& table) const override {
        return u"SELECT name FROM pragma_table_info(%1) ORDER BY cid"_qs.arg(SqliteDialect().text(table));
    }

    QString lastAutoKey(const QString& table, const QString&) const override {
        return u"SELECT seq FROM sqlite_sequence WHERE name = "_qs + SqliteDialect().text(table);
    }

    QStringList setLastAutoKey(const QString& table, const QString&, qint64 last) const override {
        const QString name = SqliteDialect().text(table);
        return {u"DELETE FROM sqlite_sequence WHERE name = "_qs + name,
                u"INSERT INTO sqlite_sequence (name, seq) VALUES (%1, %2)"_qs.arg(name).arg(last)};
    }

    Fault fault(const QSqlError& error) const override {
        const int code = error.nativeErrorCode().toInt();
        const int family = code & 0xFF;
        if (family == 5 || family == 6) return Fault::Busy;
        const bool isKey = code == 1555 || code == 2067 || code == 2579; // primary key, unique index, row id
        return isKey ? Fault::Duplicate : Fault::Other;
    }

    // The file keeps a number for whoever uses it. A commit can fail after its journal went, when the folder is not
    // synced; the data are there then, and with them the number.
    QString signOfTransaction(const Ask& ask) const override {
        const int number = QRandomGenerator::global()->bounded(1, std::numeric_limits<int>::max());
        ask(u"PRAGMA user_version = %1"_qs.arg(number));
        return QString::number(number);
    }

    Outcome outcome(const QString& sign, const Ask& ask) const override {
        return ask(u"PRAGMA user_version"_qs) == sign ? Outcome::Committed : Outcome::Undone;
    }
};

class PostgresEngine final : public Engine {
public:
    PostgresEngine() : Engine(std::make_unique<PostgresDialect>()) {}

    QString driver() const override { return u"QPSQL"_qs; }

    void configure(QSqlDatabase& database, const ConnectionSettings& settings) const override {
        const qsizetype colon = settings.path.startsWith(u'/') ? -1 : settings.path.lastIndexOf(u':');
        const QString port = colon >= 0 ? settings.path.mid(colon + 1) : QString();
        database.setHostName(colon >= 0 ? settings.path.left(colon) : settings.path);
        if (!port.isEmpty()) database.setPort(port.toInt());
        database.setDatabaseName(settings.database);
        database.setUserName(settings.user);
        database.setPassword(settings.password);
        database.setConnectOptions(u"connect_timeout=%1;"_qs.arg(qMax<qint64>(settings.timeout, 2)) + signsOfLife);
    }

    // To the server a limit of 0 is none at all.
    QStringList greeting(const ConnectionSettings& settings) const override {
        const QString machine =
            u"Halvane %1 %2"_qs.arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid());
        return {u"SET application_name = "_qs + PostgresDialect().text(machine),
                u"SET client_min_messages = warning"_qs, u"SET standard_conforming_strings = on"_qs,
                u"SET datestyle = 'ISO, YMD'"_qs,
                u"SET lock_timeout = %1"_qs.arg(qMax<qint64>(settings.timeout * 1000, 1)),
                // The server's side of the same, so that a machine that is gone holds no lock for longer.
                u"SET tcp_keepalives_idle = 5"_qs, u"SET tcp_keepalives_interval = 3"_qs,
                u"SET tcp_keepalives_count = 3"_qs, u"SET tcp_user_timeout = 15000"_qs};
    }

    // Texts compare by code point, which the database's own order of letters must not change.
    void check(QSqlDatabase& database) const override {
        QSqlQuery query(database);
        query.exec(u"SELECT datcollate, datctype, pg_encoding_to_char(encoding) FROM pg_database "
                   u"WHERE datname = current_database()"_qs);
        if (query.next() && query.value(0) == u"C"_qs && query.value(1) == u"C"_qs && query.value(2) == u"UTF8"_qs)
            return;
        throw AppError(u"データベースの文字の並び順が対応していません。\n"
                       u"文字コード UTF8、照合順序 C のデータベースを使ってください。"_qs,
                       u"Connection"_qs);
    }

    // Of a limit that it learns only while it runs the server supposes a tenth of the rows, and prefers an index to a
    // sort of them all. This limit is none.
    QString soonest(const QString& engineStatement) const override {
        return engineStatement + u" LIMIT (SELECT NULL::bigint)"_qs;
    }

    QString beginTransaction() const override { return u"BEGIN"_qs; }
    QStringList beginReading() const override { return {u"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_qs}; }

    QString lockTable(const QString& table) const override {
        return u"LOCK TABLE %1 IN EXCLUSIVE MODE"_qs.arg(PostgresDialect().name(table));
    }

    QString columnType(const Schema::Column& column) const override {
        switch (column.type) {
        case Schema::SmallInteger:
        case Schema::Integer:
            return u"integer"_qs;
        case Schema::Double:
            return u"double precision"_qs;
        case Schema::Currency:
            return u"numeric(19,4)"_qs;
        case Schema::Date:
            return u"timestamp(0)"_qs;
        default:
            return u"citext"_qs;
        }
    }

    QString autoKey() const override { return u"integer GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY"_qs; }

    // halvane_text gives a value as the text that the other engine joins.
    QStringList newDatabase() const override {
        QStringList statements{u"CREATE EXTENSION IF NOT EXISTS citext"_qs};
        const auto define = [&statements](const QString& type, const QString& body) {
            statements << u"CREATE OR REPLACE FUNCTION halvane_text(value %1) RETURNS text LANGUAGE sql IMMUTABLE "
                          u"AS $$ SELECT COALESCE(%2, '') $$"_qs.arg(type, body);
        };
        for (const QString& type : {u"text"_qs, u"citext"_qs, u"integer"_qs, u"bigint"_qs})
            define(type, u"value::text"_qs);
        for (const QString& type : {u"numeric"_qs, u"double precision"_qs})
            define(type, u"trim_scale(round(value::numeric, 10))::text"_qs);
        define(u"timestamp"_qs, u"CASE WHEN value = date_trunc('day', value) THEN to_char(value, 'YYYY/MM/DD') "
                                u"ELSE to_char(value, 'YYYY/MM/DD HH24:MI:SS') END"_qs);
        return statements;
    }

    QString advanceAutoKey(const QString& table, const QString& column) const override {
        const PostgresDialect dialect;
        return u"SELECT setval(%1, GREATEST(MAX(%2), 1), MAX(%2) IS NOT NULL) FROM %3"_qs.arg(
            sequence(table, column), dialect.name(column), dialect.name(table));
    }

    QString lastAutoKey(const QString& table, const QString& column) const override {
        return u"SELECT pg_sequence_last_value(%1::regclass)"_qs.arg(sequence(table, column));
    }

    QStringList setLastAutoKey(const QString& table, const QString& column, qint64 last) const override {
        return {u"DO $$ BEGIN PERFORM setval(%1, %2); END $$"_qs.arg(sequence(table, column)).arg(last)};
    }

    QString columnNames(const QString& table) const override {
        return u"SELECT attname FROM pg_attribute WHERE attrelid = to_regclass(%1) AND attnum > 0 AND NOT attisdropped "
               u"ORDER BY attnum"_qs.arg(PostgresDialect().text(PostgresDialect().name(table)));
    }

    // What the server says bears a code; what has none comes from the way to it, however it was cut. A server that only
    // reads (25006) has changed places with another, which the next opening may find.
    Fault fault(const QSqlError& error) const override {
        const QString state = error.nativeErrorCode();
        if (state == u"55P03" || state == u"40P01") return Fault::Busy;
        if (state == u"23505") return Fault::Duplicate;
        const bool lost = error.type() == QSqlError::ConnectionError || state.isEmpty() || state.startsWith(u"08") ||
                          state.startsWith(u"57P") || state == u"25006";
        return lost ? Fault::Lost : Fault::Other;
    }

    QString signOfTransaction(const Ask& ask) const override {
        return ask(u"SELECT pg_current_xact_id_if_assigned()"_qs);
    }

    Outcome outcome(const QString& sign, const Ask& ask) const override {
        const QString status = ask(u"SELECT pg_xact_status('%1')"_qs.arg(sign));
        if (status != u"in progress"_qs) return status == u"committed"_qs ? Outcome::Committed : Outcome::Undone;
        ask(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
            u"WHERE backend_xid = '%1'::xid8::xid"_qs.arg(sign));
        return Outcome::UnderWay;
    }

private:
    static QString sequence(const QString& table, const QString& column) {
        const PostgresDialect dialect;
        return u"pg_get_serial_sequence(%1, %2)"_qs.arg(dialect.text(dialect.name(table)), dialect.text(column));
    }
};

} // namespace

std::unique_ptr<Engine> Engine::make(Provider provider) {
    if (provider == Provider::PostgreSQL) return std::make_unique<PostgresEngine>();
    return std::make_unique<SqliteEngine>();
}
