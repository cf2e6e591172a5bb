#pragma once

#include "db/Schema.h"
#include "db/SqlTokens.h"

#include <QList>
#include <QString>
#include <QStringList>

class SqlDialect;

// The walk over one statement's words. It makes the engine's text and checks each literal against the column that it
// meets: a number column takes a number, a date column a date, and a text column anything as text.
class SqlTranslator {
public:
    SqlTranslator(const SqlDialect& dialect, QList<SqlToken> tokens);

    // The engine's statement in pieces; between two pieces stands NOW().
    QStringList run();

private:
    // A value in the engine's words, with the column when it is one.
    struct Operand {
        QString text;
        const Schema::Column* column = nullptr;
        bool literal = false;
    };

    const SqlToken& at(qsizetype ahead = 0) const;
    const SqlToken& take();
    bool accept(QStringView word);
    bool acceptSymbol(QStringView symbol);
    void expect(QStringView word);
    void expectSymbol(QStringView symbol);
    QString takeName();

    QString selectStatement();
    QString insertStatement();
    QString updateStatement();
    QString deleteStatement();
    QString dropStatement();
    QString createIndexStatement();
    QString alterStatement();

    QStringList columnList();
    QString valuesList(const QString& table, const QStringList& columns);
    // Words up to the end of the statement or of the enclosing bracket.
    QString clauses();
    QString sortTerms();
    QString word();
    QString comparison(const Operand& left);
    QString listOf(const Schema::Column* column);
    QString between(const Schema::Column* column);
    QString likeOf(const SqlToken& token) const;

    Operand operand(const Schema::Column* expected = nullptr);
    Operand joined(const Schema::Column* expected);
    Operand primary(const Schema::Column* expected);
    Operand function();
    Operand columnOperand();
    QString bracket();
    QString expressionUntilComma();
    QString literal(const SqlToken& token, const Schema::Column* column, bool negative) const;
    QString dateLiteral(const SqlToken& token) const;
    const Schema::Column* findColumn(const QString& table, const QString& name) const;
    void collectTables();

    const SqlDialect& m_dialect;
    QList<SqlToken> m_tokens;
    QList<const Schema::Table*> m_tables;
    qsizetype m_at = 0;
    int m_depth = 0;
};
