#pragma once

#include "db/Schema.h"
#include "db/SqlTokens.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class SqlDialect;

// The walk over one statement's words. It makes the engine's text and checks each literal against the value that it
// meets: a number takes a number, a date a date, and a text anything as text. What the engines would answer differently
// (values of different kinds compared, arithmetic on texts or dates) is refused.
class SqlTranslator {
public:
    SqlTranslator(const SqlDialect& dialect, QList<SqlToken> tokens);

    // The engine's statement in pieces; between two pieces stands NOW().
    QStringList run();

private:
    enum class Kind { Unknown, Text, Number, Date, Truth };

    // A literal as it was read, for it takes the kind of the value that it meets.
    struct Literal {
        SqlToken token;
        bool negative = false;
    };

    // A value in the engine's words.
    struct Operand {
        QString text;
        Kind kind = Kind::Unknown;
        std::optional<Literal> literal;
        bool isSelect = false; // a select in brackets
    };

    // The kinds of a select's columns, which those of a select behind UNION must share.
    struct SelectList {
        QList<Kind> kinds;
        QList<Kind> first;
        bool open = true;
    };

    const SqlToken& at(qsizetype ahead = 0) const;
    const SqlToken& take();
    bool accept(QStringView word);
    bool acceptSymbol(QStringView symbol);
    void expect(QStringView word);
    void expectSymbol(QStringView symbol);
    QString takeName();

    // `firstKind` takes the kind of the first column.
    QString selectStatement(Kind* firstKind = nullptr);
    void endSelectList(const SqlToken& at);
    QString insertStatement();
    QString updateStatement();
    QString deleteStatement();
    QString dropStatement();
    QString createIndexStatement();
    QString alterStatement();

    QStringList columnList();
    QString valueFor(Kind kind);
    QString valuesList(const QString& table, const QStringList& columns);
    // Words up to the end of the statement or of the enclosing bracket.
    QString clauses();
    QString sortTerms();
    QString word();
    QString valueWord();
    void refuseValue() const;
    // What follows a value; a literal on the left takes the kind of the value on the right.
    QString comparison(Operand& left);
    QString listOf(const Operand& left);
    QString between(Operand& left);
    QString likeOf(const SqlToken& token) const;

    Operand operand(Kind expected = Kind::Unknown);
    Operand joined(Kind expected);
    Operand primary(Kind expected);
    Operand signedValue();
    Operand function();
    Operand choice();
    Operand aggregate(const SqlToken& called);
    Operand columnOperand();
    Operand bracket();
    QString expressionUntilComma();
    QString comparable(const Operand& value) const;
    // Brings two values that meet to one kind, or raises an error.
    void match(Operand& left, Operand& right, const SqlToken& at) const;
    void requireNumber(Operand& value, const SqlToken& at) const;
    QString literalText(const Literal& literal, Kind kind) const;
    QString dateLiteral(const SqlToken& token) const;
    static Kind kindOf(const Schema::Column* column);
    // Of a column; unknown when the statement's tables do not agree about it.
    Kind kindOf(const QString& table, const QString& name) const;
    void collectTables();

    static constexpr int deepestNesting = 100;
    // Stands in the text where NOW() belongs; the tokenizer lets no such sign out of a literal.
    static constexpr QChar nowMark{u'\0'};

    const SqlDialect& m_dialect;
    QList<SqlToken> m_tokens;
    QList<const Schema::Table*> m_tables;
    qsizetype m_at = 0;
    int m_depth = 0;
    SelectList* m_list = nullptr; // of the select that is read; none inside of a bracket
};
