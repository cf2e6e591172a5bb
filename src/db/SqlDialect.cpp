#include "db/SqlDialect.h"

#include "base/Seams.h"
#include "db/SqlTranslator.h"

#include <memory>

namespace {
constexpr int statementsKept = 512;
}

SqlDialect::SqlDialect() : m_seen(statementsKept) {}

SqlDialect::~SqlDialect() = default;

QString SqlDialect::translate(const QString& statement) {
    const QString today = date(currentDateTime());
    if (const Translation* known = m_seen.object(statement)) return known->pieces.join(today);
    auto made = std::make_unique<Translation>(Translation{SqlTranslator(*this, tokenizeSql(statement)).run()});
    const QString translated = made->pieces.join(today);
    m_seen.insert(statement, made.release());
    return translated;
}

QString SqlDialect::text(const QString& value) const {
    return u'\'' + QString(value).replace(u"'"_qs, u"''"_qs) + u'\'';
}

QString SqlDialect::choice(const QString& condition, const QString& yes, const QString& no) const {
    return u"(CASE WHEN %1 THEN %2 ELSE %3 END)"_qs.arg(condition, yes, no);
}

// --- SQLite ---

// Brackets, since an unknown name in double quotes would pass as a text.
QString SqliteDialect::name(const QString& name) const { return u'[' + name + u']'; }

// A date is kept as text that sorts as the dates do: the time stands behind it only when there is one.
QString SqliteDialect::date(const QDateTime& value) const {
    const bool timed = value.time().msecsSinceStartOfDay() >= 1000;
    return text(value.toString(timed ? u"yyyy/MM/dd HH:mm:ss"_qs : u"yyyy/MM/dd"_qs));
}

QString SqliteDialect::caseBlind(const QString& expression) const { return u"(%1 COLLATE NOCASE)"_qs.arg(expression); }

QString SqliteDialect::asText(const QString& operand) const { return u"COALESCE(%1, '')"_qs.arg(operand); }

// A whole amount joins without the decimals that the engine would write behind it.
QString SqliteDialect::numberAsText(const QString& operand) const {
    return u"(CASE typeof(%1) WHEN 'real' THEN RTRIM(RTRIM(PRINTF('%.10f', %1), '0'), '.') ELSE COALESCE(%1, '') END)"_qs
        .replace(u"%1"_qs, operand);
}

QString SqliteDialect::likePattern(const QString& escaped) const {
    return text(escaped) + (escaped.contains(u'\\') ? u" ESCAPE '\\'"_qs : QString());
}

QString SqliteDialect::sortTerm(const QString& expression, bool descending) const {
    return expression + (descending ? u" DESC"_qs : u" ASC"_qs);
}

QString SqliteDialect::alterToInteger(const QString&, const QString&) const { return {}; }

// --- PostgreSQL ---

QString PostgresDialect::name(const QString& name) const { return u'"' + name + u'"'; }

QString PostgresDialect::date(const QDateTime& value) const {
    return u"TIMESTAMP '%1'"_qs.arg(value.toString(u"yyyy-MM-dd HH:mm:ss"_qs));
}

QString PostgresDialect::caseBlind(const QString& expression) const { return expression + u"::citext"_qs; }

QString PostgresDialect::asText(const QString& operand) const { return u"halvane_text(%1)"_qs.arg(operand); }

QString PostgresDialect::numberAsText(const QString& operand) const { return asText(operand); }

QString PostgresDialect::likePattern(const QString& escaped) const { return text(escaped); }

QString PostgresDialect::sortTerm(const QString& expression, bool descending) const {
    return expression + (descending ? u" DESC NULLS LAST"_qs : u" ASC NULLS FIRST"_qs);
}

QString PostgresDialect::alterToInteger(const QString& table, const QString& column) const {
    return u"ALTER TABLE %1 ALTER COLUMN %2 TYPE integer USING %2::text::integer, ALTER COLUMN %2 SET NOT NULL"_qs.arg(
        name(table), name(column));
}
