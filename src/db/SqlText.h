#pragma once

#include <QList>
#include <QString>

// The texts that statements are put together from, in the system's own SQL.

// Doubles each single quote; with `forLike` also brackets [ % _ - so that LIKE takes them as they stand.
QString SqlQuote(const QString& text, bool forLike = false);
// A value in the text of a filter: a number bare (a text that is none raises a type error), a text quoted.
QString sqlNumber(const QString& value);
QString sqlText(const QString& value);

struct SqlColumn {
    QString table, name;

    bool operator==(const SqlColumn&) const = default;
};

// An expression, a condition or a sort order together with the columns that it names, so that a statement joins the
// tables that are asked for and takes the way that suits them. Of a text alone nobody knows its columns: it may name
// any.
class SqlTerm {
public:
    SqlTerm() = default; // asks for nothing
    SqlTerm(const QString& text);
    SqlTerm(const SqlColumn& column); // [table].[name]
    SqlTerm(const QString& text, const QList<SqlColumn>& columns) : m_text(text), m_columns(columns) {}

    // One behind the other; empty ones are left out.
    static SqlTerm joined(const QList<SqlTerm>& terms, const QString& between);
    // The term between two texts; an empty one stays empty.
    SqlTerm wrapped(const QString& before, const QString& behind) const;

    const QString& text() const { return m_text; }
    bool isEmpty() const { return m_text.isEmpty(); }
    bool names(const QString& table) const;
    bool names(const SqlColumn& column) const { return m_mayNameAny || m_columns.contains(column); }
    bool namesOnly(const QString& table) const;

    friend bool operator==(const SqlTerm& one, const SqlTerm& other) { return one.m_text == other.m_text; }

private:
    QString m_text;
    QList<SqlColumn> m_columns;
    bool m_mayNameAny = false;
};

// The condition that an expression begins with a text or has it in it; none for an empty text.
SqlTerm SqlStartsWith(const SqlTerm& expression, const QString& text);
SqlTerm SqlContains(const SqlTerm& expression, const QString& text);
// All of the conditions, or any of them, the latter in brackets; empty ones ask for nothing.
SqlTerm SqlAllOf(const QList<SqlTerm>& conditions);
SqlTerm SqlAnyOf(const QList<SqlTerm>& conditions);
// The range filter of a kana button on a reading column: あ か さ た な は ま や ら わ 他; "全" gives no filter.
SqlTerm kanaRangeFilter(const SqlTerm& column, const QString& button);
// The order by columns in one direction; each counts once.
SqlTerm SqlSorted(const QList<SqlColumn>& columns, bool upwards);

// What a statement begins with, and its WHERE and ORDER BY when they ask for something.
QString SqlSelect(const QString& head, const SqlTerm& where, const SqlTerm& sort = {});
