#pragma once

#include "base/AppError.h"
#include "db/ConnectionSettings.h"
#include "db/Recordset.h"
#include "db/Schema.h"

#include <QString>

#include <functional>
#include <memory>

class AppError;
class Engine;
class QSqlQuery;

// The answer to a commit was lost, and what became of it could not be found out yet. `sign` names the transaction.
class CommitInDoubt : public AppError {
public:
    explicit CommitInDoubt(QString sign);
    const QString& sign() const { return m_sign; }

private:
    QString m_sign;
};

// The one door to SQL. Statements are those of the system's own SQL (see `SqlDialect`). All failures rise as AppError
// with a description in the operator's language; a password never stands in one.
//
// A connection that was lost is opened anew by the next command. What asks for rows or begins a transaction does so by
// itself, as nothing can be done twice by it; the loss of a transaction under way is an error.
class Connection {
public:
    explicit Connection(ConnectionSettings settings);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens an existing database; raises an error when there is none.
    void open();
    void close();
    bool isOpen() const;
    const ConnectionSettings& settings() const { return m_settings; }

    // Runs a statement and gives the number of rows touched. Takes "SELECT * INTO t FROM [;database=file].u WHERE …",
    // too, which makes t with the rows of u in another database file.
    qint64 execute(const QString& statement);
    Recordset query(const QString& statement);
    // The same for a list that is shown while it is read: its first rows come soon, all of them perhaps later.
    Recordset querySoonest(const QString& statement);
    // The first field of the first row; empty when there is no row.
    QString scalar(const QString& statement);

    // Transactions nest: inner levels are savepoints. After a failed statement a level can only be rolled back. The
    // outermost takes the write lock when it begins. A commit or rollback without a begin raises an error.
    void begin();
    // When the answer to the outermost commit is lost, what became of it is looked up: it ends well when the data are
    // stored, with an error when they are not, and with CommitInDoubt while neither can be told.
    void commit();
    void rollback();
    // What became of a commit in doubt. Raises CommitInDoubt again as long as it cannot be told.
    bool wasCommitted(const QString& sign);
    int transactionDepth() const { return m_depth; }
    // Begins to read from one state of the database, which a rollback ends. On a server the others go on meanwhile; who
    // wants to write to a file waits.
    void beginReading();
    // Within a transaction: waits for, and keeps to its end, the sole right to write to a table.
    void lockForWriting(const QString& table);

    // The columns of a table as they stand in the database; raises an error when there is no such table.
    QList<Schema::Column> columns(const QString& table);
    bool tableExists(const QString& table);

    // Makes a table of the schema with its keys and indexes.
    void createTable(const Schema::Table& table, const QString& name = {});
    // What the engine needs before the first table is made.
    void prepareNewDatabase();
    // Copies the rows of a table from another database; the target table must exist. `where` is a filter in the
    // system's SQL, empty for all rows; `progress` is called after each batch with the number of rows so far.
    qint64 copyRows(Connection& source, const QString& sourceTable, const QString& targetTable,
                    const QString& where = {}, const std::function<void(qint64)>& progress = {});
    // Inserts so many rows of texts, many at once: `row` gives their values, one for each column, which are cut to its
    // size; an empty one is NULL. `progress` is called now and then with the number of rows so far.
    void insertRows(const QString& table, const QStringList& columns, qint64 count,
                    const std::function<QStringList(qint64 row)>& row,
                    const std::function<void(qint64)>& progress = {});
    // After rows with given keys were written: the next issued key is above the highest.
    void advanceAutoKeys();
    // Issued keys go on where those of another database stand, also above keys whose rows are gone.
    void continueAutoKeys(Connection& source);

    // For tests and tools: every statement as it was given, before it runs.
    std::function<void(const QString&)> onStatement;

    // For tools that must check the engine itself, such as its integrity check. The engine's own words.
    QString engineScalar(const QString& engineStatement);
    void engineExecute(const QString& engineStatement);

private:
    friend class Engine;
    struct Private;

    template <class Work> auto onceMoreIfLost(Work work);
    void ensureUsable();
    void reopen();
    qint64 run(const QString& engineStatement);
    bool copyInto(const QString& statement, qint64& rows);
    void finishStream();
    QSqlQuery asked(const QString& engineStatement);
    Recordset streamed(const QString& statement, const QString& engineStatement);
    void beginOutermost();
    void beginInTurn();
    void commitOutermost();
    bool lookUp(const QString& sign);

    ConnectionSettings m_settings;
    std::unique_ptr<Private> m_private;
    int m_depth = 0;
};

// Whether an error tells that another one has the database locked.
bool isBusy(const AppError& error);

// Reads from one state of the database to the end of its scope.
class Reading {
public:
    explicit Reading(Connection& connection) : m_connection(connection) { m_connection.beginReading(); }
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

private:
    Connection& m_connection;
};

// Rolls back at the end of its scope unless committed.
class Transaction {
public:
    explicit Transaction(Connection& connection) : m_connection(connection) { m_connection.begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Connection& m_connection;
    bool m_open = true;
};
