#pragma once

#include "db/ConnectionSettings.h"
#include "db/Schema.h"
#include "db/SqlDialect.h"

#include <QSqlDatabase>
#include <QSqlError>

#include <functional>
#include <memory>

// What differs between the engines beside the words of a statement: opening, types, locks, and the meaning of errors.
class Engine {
public:
    static std::unique_ptr<Engine> make(Provider provider);
    virtual ~Engine() = default;

    SqlDialect& dialect() { return *m_dialect; }

    virtual QString driver() const = 0;
    // Sets the connection's options; raises an error when a file that must exist is missing.
    virtual void configure(QSqlDatabase& database, const ConnectionSettings& settings) const = 0;
    // The statements that every new connection runs first.
    virtual QStringList greeting(const ConnectionSettings& settings) const = 0;
    // Raises an error when the database is not one that the system can work with.
    virtual void check(QSqlDatabase&) const {}
    // The statement for a list that is shown while it is read: planned for its first rows, not for its last.
    virtual QString soonest(const QString& engineStatement) const { return engineStatement; }
    virtual QString beginTransaction() const = 0;
    // The statements that begin to read from one state of the database, whatever others write meanwhile.
    virtual QStringList beginReading() const = 0;
    // Whether who waits for a lock gets it in turn; if not, the statement that sets how long one waits.
    virtual bool queuesForLocks() const { return true; }
    virtual QString waitForLocks(qint64) const { return {}; }
    // Empty when the transaction itself holds the lock.
    virtual QString lockTable(const QString& table) const = 0;
    virtual QString columnType(const Schema::Column& column) const = 0;
    virtual QString autoKey() const = 0; // type and key words of a key that is issued on insert
    virtual QString tableSuffix() const { return {}; }
    virtual QStringList newDatabase() const { return {}; }
    // The statement that moves the issued keys above the highest; empty when the engine does so by itself.
    virtual QString advanceAutoKey(const QString&, const QString&) const { return {}; }
    // The last key issued in a table with one such key column: to read it (nothing or NULL when there was none), and
    // to set it.
    virtual QString lastAutoKey(const QString& table, const QString& column) const = 0;
    virtual QStringList setLastAutoKey(const QString& table, const QString& column, qint64 last) const = 0;
    // Lists the column names of a table in order.
    virtual QString columnNames(const QString& table) const = 0;

    enum class Fault { Other, Busy, Lost, Duplicate };
    virtual Fault fault(const QSqlError& error) const = 0;

    // --- a commit without an answer ---
    // Gives the first field of a statement's first row.
    using Ask = std::function<QString(const QString& engineStatement)>;
    // What tells the transaction under way from all others, also after its end; empty when it has written nothing.
    virtual QString signOfTransaction(const Ask& ask) const = 0;
    // What became of it. One that is still under way belongs to a connection that is gone, and is ended.
    enum class Outcome { Committed, Undone, UnderWay };
    virtual Outcome outcome(const QString& sign, const Ask& ask) const = 0;

protected:
    explicit Engine(std::unique_ptr<SqlDialect> dialect) : m_dialect(std::move(dialect)) {}

private:
    std::unique_ptr<SqlDialect> m_dialect;
};
