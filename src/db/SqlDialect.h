#pragma once

#include "db/Schema.h"
#include "db/SqlTokens.h"

#include <QCache>
#include <QDateTime>
#include <QString>
#include <QStringList>

// Turns a statement of the system's own SQL into that of an engine. What the engines share stands here; each engine
// overrides only what differs. Raises an error with the position for a statement that it cannot read, a date that is
// none, and a literal that does not fit the column that it meets.
//
// The system's SQL: [name] or a bare name, 'text', #2005/03/01#, NOW(), & between texts, IIF, ISNULL(x), LIKE with
// % _ and the bracket escapes, DISTINCTROW, parenthesised joins, COUNT SUM MIN MAX AVG, + - *, and the statements
// SELECT, INSERT, UPDATE, DELETE, DROP TABLE, CREATE INDEX and ALTER COLUMN.
class SqlDialect {
public:
    SqlDialect();
    virtual ~SqlDialect();

    // The engine's statement; NOW() stands in it as the moment given by the clock seam.
    QString translate(const QString& statement);

    // --- what the engines say in their own way ---
    virtual QString name(const QString& name) const = 0;
    virtual QString date(const QDateTime& value) const = 0;
    // A value (in brackets, when it is more than one word) of text that compares as columns do, without regard to the
    // case of Latin letters.
    virtual QString caseBlind(const QString& expression) const = 0;
    // A value as a part of a joined text, NULL counting as empty; a number in its one plain form.
    virtual QString asText(const QString& operand) const = 0;
    virtual QString numberAsText(const QString& operand) const = 0;
    // The pattern of a LIKE as a literal: `escaped` has a backslash before each sign taken as it stands.
    virtual QString likePattern(const QString& escaped) const = 0;
    // A term of an ORDER BY or of an index; NULL sorts before every value.
    virtual QString sortTerm(const QString& expression, bool descending) const = 0;
    // ALTER COLUMN to a whole number that is not null; empty when the engine has no such statement.
    virtual QString alterToInteger(const QString& table, const QString& column) const = 0;

    QString text(const QString& value) const; // a literal in single quotes
    // A choice between two values.
    QString choice(const QString& condition, const QString& yes, const QString& no) const;

private:
    struct Translation {
        QStringList pieces; // between them stands NOW()
    };
    QCache<QString, Translation> m_seen;
};

class SqliteDialect final : public SqlDialect {
public:
    QString name(const QString& name) const override;
    QString date(const QDateTime& value) const override;
    QString caseBlind(const QString& expression) const override;
    QString asText(const QString& operand) const override;
    QString numberAsText(const QString& operand) const override;
    QString likePattern(const QString& escaped) const override;
    QString sortTerm(const QString& expression, bool descending) const override;
    QString alterToInteger(const QString& table, const QString& column) const override;
};

class PostgresDialect final : public SqlDialect {
public:
    QString name(const QString& name) const override;
    QString date(const QDateTime& value) const override;
    QString caseBlind(const QString& expression) const override;
    QString asText(const QString& operand) const override;
    QString numberAsText(const QString& operand) const override;
    QString likePattern(const QString& escaped) const override;
    QString sortTerm(const QString& expression, bool descending) const override;
    QString alterToInteger(const QString& table, const QString& column) const override;
};
