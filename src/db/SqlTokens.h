#pragma once

#include <QList>
#include <QString>

// The words of one statement of the system's own SQL.
struct SqlToken {
    enum Kind {
        Word,   // keyword, function or bare name
        Name,   // [name], without its brackets
        String, // 'text', without quotes and with its doubled quotes made single
        Number, // 12 or 1.5
        Date,   // #2005/03/01#, without the signs
        Symbol, // ( ) , . = <> < > <= >= + - * & ;
        End
    };
    Kind kind = End;
    QString text;
    qsizetype position = 0; // from 0, in the statement

    bool is(QStringView word) const { return kind == Word && text.compare(word, Qt::CaseInsensitive) == 0; }
    bool isSymbol(QStringView symbol) const { return kind == Symbol && text == symbol; }
};

// Reads a statement; the list ends with an End token. Raises an error with the position of what it cannot read.
QList<SqlToken> tokenizeSql(const QString& statement);

// What a word can be in a statement.
bool isSqlKeyword(const SqlToken& token);
bool isSqlAggregate(const SqlToken& token);
bool isSqlComparison(const SqlToken& token); // = <> < > <= >=
bool isSqlArithmetic(const SqlToken& token); // + - *
bool isSqlSign(const SqlToken& token);       // + -
bool startsSqlOperand(const SqlToken& token);

// The error for a place in a statement that cannot be read, and for two values of different kinds that meet there.
[[noreturn]] void raiseSqlError(const QString& reason, const SqlToken& at);
[[noreturn]] void raiseSqlMismatch(const SqlToken& at);
