#pragma once

#include "db/Connection.h"
#include "db/Engine.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <optional>

inline constexpr int longestPause = 10; // milliseconds, of who leaves a write lock to others

// What the parts of the connection share.
struct Connection::Private {
    std::unique_ptr<Engine> engine;
    Provider provider = Provider::SQLite;
    QString name = QUuid::createUuid().toString();
    std::weak_ptr<Recordset::Stream> stream;
    bool open = false;
    bool lost = false;
    bool failed = false;        // a statement of the transaction under way
    bool ended = false;         // the transaction under way, by its commit, however that went
    QElapsedTimer sinceRelease; // of the write lock

    bool letGoJustNow() const { return sinceRelease.isValid() && sinceRelease.elapsed() < longestPause; }

    QSqlDatabase database() const { return QSqlDatabase::database(name, false); }
    QString savepoint(int depth) const { return u"level%1"_qs.arg(depth); }

    // The error of a statement, if it fails.
    std::optional<QSqlError> attempt(const QString& engineStatement) const {
        QSqlQuery query(database());
        if (query.exec(engineStatement)) return std::nullopt;
        return query.lastError();
    }

    // In the operator's words.
    [[noreturn]] void raise(Engine::Fault fault, const QSqlError& error) const;
    [[noreturn]] void fail(const QSqlError& error) {
        const Engine::Fault fault = engine->fault(error);
        lost = lost || fault == Engine::Fault::Lost;
        failed = true;
        raise(fault, error);
    }
};
