#include "db/SqlText.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>

QString SqlQuote(const QString& text, bool forLike) {
    QString quoted = Text::wholeSigns(text);
    quoted.replace(u"'"_qs, u"''"_qs);
    if (!forLike) return quoted;
    for (const QString& sign : {u"["_qs, u"%"_qs, u"_"_qs, u"-"_qs}) quoted.replace(sign, u'[' + sign + u']');
    return quoted;
}

QString sqlNumber(const QString& value) {
    const QString number = narrowNumber(value).trimmed();
    if (!isPlainNumber(number)) throw Errors::typeMismatch(u"SQL"_qs);
    return number;
}

QString sqlText(const QString& value) { return u'\'' + SqlQuote(value) + u'\''; }

SqlTerm::SqlTerm(const QString& text) : m_text(Text::rightTrimmed(text)), m_mayNameAny(!m_text.isEmpty()) {}

SqlTerm::SqlTerm(const SqlColumn& column) : m_text(u"[%1].[%2]"_qs.arg(column.table, column.name)), m_columns{column} {}

SqlTerm SqlTerm::joined(const QList<SqlTerm>& terms, const QString& between) {
    SqlTerm all;
    for (const SqlTerm& term : terms) {
        if (term.isEmpty()) continue;
        all.m_text += all.isEmpty() ? term.m_text : between + term.m_text;
        all.m_columns += term.m_columns;
        all.m_mayNameAny = all.m_mayNameAny || term.m_mayNameAny;
    }
    return all;
}

SqlTerm SqlTerm::wrapped(const QString& before, const QString& behind) const {
    SqlTerm term = *this;
    if (!isEmpty()) term.m_text = before + m_text + behind;
    return term;
}

bool SqlTerm::names(const QString& table) const {
    return m_mayNameAny || std::any_of(m_columns.begin(), m_columns.end(),
                                       [&table](const SqlColumn& column) { return column.table == table; });
}

bool SqlTerm::namesOnly(const QString& table) const {
    return !m_mayNameAny && std::all_of(m_columns.begin(), m_columns.end(),
                                        [&table](const SqlColumn& column) { return column.table == table; });
}

SqlTerm SqlStartsWith(const SqlTerm& expression, const QString& text) {
    return text.isEmpty() ? SqlTerm() : expression.wrapped({}, u" LIKE '"_qs + SqlQuote(text, true) + u"%'"_qs);
}

SqlTerm SqlContains(const SqlTerm& expression, const QString& text) {
    return text.isEmpty() ? SqlTerm() : expression.wrapped({}, u" LIKE '%"_qs + SqlQuote(text, true) + u"%'"_qs);
}

SqlTerm SqlAllOf(const QList<SqlTerm>& conditions) { return SqlTerm::joined(conditions, u" AND "_qs); }

SqlTerm SqlAnyOf(const QList<SqlTerm>& conditions) {
    return SqlTerm::joined(conditions, u" OR "_qs).wrapped(u"("_qs, u")"_qs);
}

SqlTerm kanaRangeFilter(const SqlTerm& column, const QString& button) {
    static const QString buttons = u"あかさたなはまやらわ"_qs;
    static const QString bounds = u"ｱｶｻﾀﾅﾊﾏﾔﾗﾜ"_qs;
    const auto both = [&column](const QString& lower, const QString& word, const QString& upper) {
        return SqlTerm::joined({column.wrapped({}, lower), column.wrapped({}, upper)}, word);
    };
    if (button == u"他") return both(u" < 'ｱ'"_qs, u" OR "_qs, u" > 'ﾝ'"_qs);
    const qsizetype index = buttons.indexOf(button);
    if (button.size() != 1 || index < 0) return {};
    const bool isLast = index + 1 == bounds.size();
    return both(u" >= '%1'"_qs.arg(bounds.at(index)), u" AND "_qs,
                isLast ? u" <= 'ﾝ'"_qs : u" < '%1'"_qs.arg(bounds.at(index + 1)));
}

SqlTerm SqlSorted(const QList<SqlColumn>& columns, bool upwards) {
    QList<SqlColumn> once;
    QList<SqlTerm> terms;
    for (const SqlColumn& column : columns) {
        if (once.contains(column)) continue;
        once << column;
        terms << SqlTerm(column).wrapped({}, upwards ? u" ASC"_qs : u" DESC"_qs);
    }
    return SqlTerm::joined(terms, u", "_qs);
}

QString SqlSelect(const QString& head, const SqlTerm& where, const SqlTerm& sort) {
    return head + where.wrapped(u" WHERE "_qs, {}).text() + sort.wrapped(u" ORDER BY "_qs, {}).text();
}
