#include "db/SqlKeys.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Text.h"
#include "db/Schema.h"

namespace {

QString dateLiteral(const QString& value) {
    const QString day = formatDate(value, u"yyyy/mm/dd"_qs);
    if (day.isEmpty()) throw Errors::typeMismatch(u"SQL"_qs);
    return u'#' + day + u'#';
}

Schema::Column schemaColumn(const SqlColumn& column) {
    const Schema::Table* table = Schema::table(column.table);
    const Schema::Column* known = table ? table->column(column.name) : nullptr;
    return known ? *known : Schema::Column();
}

QString valueFor(const Schema::Column& column, const QString& value) {
    if (column.isNumber()) return sqlNumber(value);
    return column.isDate() ? dateLiteral(value) : sqlText(Text::rightTrimmed(value));
}

} // namespace

SqlTerm SqlEqual(const SqlColumn& column, const QString& value) {
    return SqlTerm(column).wrapped({}, u" = "_qs + valueFor(schemaColumn(column), value));
}

SqlTerm SqlOneOf(const SqlColumn& column, const QStringList& values) {
    const Schema::Column known = schemaColumn(column);
    QStringList texts;
    for (const QString& value : values) texts << valueFor(known, value);
    return SqlTerm(column).wrapped({}, u" IN ("_qs + texts.join(u',') + u')');
}

SqlTerm SqlPeriod(const SqlColumn& column, const QString& from, const QString& to) {
    const auto bound = [&column](const QString& sign, const QString& day) {
        return day.isEmpty() ? SqlTerm() : SqlTerm(column).wrapped({}, sign + dateLiteral(day));
    };
    return SqlAllOf({bound(u" >= "_qs, from), bound(u" <= "_qs, to)});
}

SqlTerm SqlEqual(const QString& table, const QStringList& columns, const QStringList& values) {
    QList<SqlTerm> terms;
    for (qsizetype i = 0; i < values.size(); ++i) terms << SqlEqual(SqlColumn{table, columns.at(i)}, values.at(i));
    return SqlAllOf(terms);
}

const QStringList& SqlKeyColumns(const QString& table) {
    const Schema::Table* known = Schema::table(table);
    if (!known || known->key.isEmpty()) throw AppError(u"%1 にはキーがありません。"_qs.arg(table), u"SQL"_qs);
    return known->key;
}

SqlTerm SqlKey(const QString& table, const QStringList& values) {
    const QStringList& columns = SqlKeyColumns(table);
    if (values.isEmpty() || values.size() > columns.size())
        throw AppError(u"%1 のキーの値が違います。"_qs.arg(table), u"SQL"_qs);
    return SqlEqual(table, columns, values);
}

QString SqlReference::match() const {
    QStringList terms;
    for (const QString& column : SqlKeyColumns(other)) terms << u"([%1].[%3] = [%2].[%3])"_qs.arg(table, other, column);
    return terms.join(u" AND "_qs);
}

QString SqlReference::leftJoin(const QString& joined) const {
    return u"(%1 LEFT JOIN [%2] ON %3)"_qs.arg(joined, other, match());
}

QString SqlReference::innerJoin(const QString& joined) const {
    return u"(%1 INNER JOIN [%2] ON %3)"_qs.arg(joined, other, match());
}
