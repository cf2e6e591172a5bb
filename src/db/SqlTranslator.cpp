#include "db/SqlTranslator.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "db/SqlDialect.h"

#include <utility>

SqlTranslator::SqlTranslator(const SqlDialect& dialect, QList<SqlToken> tokens)
    : m_dialect(dialect), m_tokens(std::move(tokens)) {
    collectTables();
}

// The tables behind FROM, JOIN, UPDATE and INTO: a column may have the name of a table that the statement never reads.
void SqlTranslator::collectTables() {
    bool expected = false, listed = false;
    for (const SqlToken& token : m_tokens) {
        if (token.isSymbol(u"(")) continue;
        const bool isName = token.kind == SqlToken::Name || token.kind == SqlToken::Word;
        if (token.is(u"FROM") || token.is(u"JOIN") || token.is(u"UPDATE") || token.is(u"INTO")) {
            listed = token.is(u"FROM") || (listed && token.is(u"JOIN"));
            expected = true;
            continue;
        }
        if (isSqlKeyword(token) && !token.is(u"AS") && !token.is(u"ON")) listed = false;
        if (const Schema::Table* table = expected && isName ? Schema::table(token.text) : nullptr) m_tables << table;
        expected = listed && token.isSymbol(u",");
    }
}

QStringList SqlTranslator::run() {
    QString text;
    const SqlToken first = take();
    if (first.is(u"SELECT"))
        text = u"SELECT"_qs + selectStatement();
    else if (first.is(u"INSERT"))
        text = insertStatement();
    else if (first.is(u"UPDATE"))
        text = updateStatement();
    else if (first.is(u"DELETE"))
        text = deleteStatement();
    else if (first.is(u"DROP"))
        text = dropStatement();
    else if (first.is(u"CREATE"))
        text = createIndexStatement();
    else if (first.is(u"ALTER"))
        text = alterStatement();
    else
        raiseSqlError(u"文の種類が分かりません。"_qs, first);
    acceptSymbol(u";");
    if (at().kind != SqlToken::End) raiseSqlError(u"余分な語があります。"_qs, at());
    return text.split(nowMark);
}

// --- words ---

const SqlToken& SqlTranslator::at(qsizetype ahead) const {
    return m_tokens.at(qMin(m_at + ahead, m_tokens.size() - 1));
}

const SqlToken& SqlTranslator::take() {
    const SqlToken& token = at();
    if (token.kind != SqlToken::End) ++m_at;
    return token;
}

bool SqlTranslator::accept(QStringView word) {
    if (!at().is(word)) return false;
    take();
    return true;
}

bool SqlTranslator::acceptSymbol(QStringView symbol) {
    if (!at().isSymbol(symbol)) return false;
    take();
    return true;
}

void SqlTranslator::expect(QStringView word) {
    if (!accept(word)) raiseSqlError(u"%1 がありません。"_qs.arg(word), at());
}

void SqlTranslator::expectSymbol(QStringView symbol) {
    if (!acceptSymbol(symbol)) raiseSqlError(u"「%1」がありません。"_qs.arg(symbol), at());
}

QString SqlTranslator::takeName() {
    const SqlToken& token = at();
    if (token.kind != SqlToken::Name && (token.kind != SqlToken::Word || isSqlKeyword(token)))
        raiseSqlError(u"名前がありません。"_qs, token);
    take();
    return m_dialect.name(Schema::spelling(token.text));
}

// --- statements ---

QString SqlTranslator::selectStatement(Kind* firstKind) {
    SelectList list;
    SelectList* const outer = std::exchange(m_list, &list);
    const QString distinct = accept(u"DISTINCTROW") ? u" DISTINCT"_qs : QString();
    const QString text = distinct + clauses();
    endSelectList(at());
    m_list = outer;
    if (firstKind) *firstKind = list.first.value(0, Kind::Unknown);
    return text;
}

// One engine would put values of two kinds below each other, the other one would convert or refuse them.
void SqlTranslator::endSelectList(const SqlToken& at) {
    if (m_list->first.isEmpty()) m_list->first = m_list->kinds;
    const qsizetype columns = qMin(m_list->first.size(), m_list->kinds.size());
    for (qsizetype i = 0; i < columns; ++i) {
        const Kind above = m_list->first.at(i), below = m_list->kinds.at(i);
        if (above != below && above != Kind::Unknown && below != Kind::Unknown) raiseSqlMismatch(at);
    }
    m_list->kinds.clear();
    m_list->open = true;
}

QString SqlTranslator::insertStatement() {
    expect(u"INTO");
    const QString tableName = at().text;
    QString text = u"INSERT INTO "_qs + takeName();
    QStringList columns;
    if (at().isSymbol(u"(")) {
        columns = columnList();
        QStringList quoted;
        for (const QString& column : columns) quoted << m_dialect.name(column);
        text += u" ("_qs + quoted.join(u", "_qs) + u")"_qs;
    }
    if (accept(u"VALUES")) return text + valuesList(tableName, columns);
    expect(u"SELECT");
    return text + u" SELECT"_qs + selectStatement();
}

QString SqlTranslator::updateStatement() {
    QString text = u"UPDATE "_qs + takeName();
    if (!at().is(u"SET")) raiseSqlError(u"SET がありません。"_qs, at());
    return text + clauses();
}

QString SqlTranslator::deleteStatement() {
    acceptSymbol(u"*");
    expect(u"FROM");
    const QString text = u"DELETE FROM "_qs + takeName();
    return text + clauses();
}

QString SqlTranslator::dropStatement() {
    expect(u"TABLE");
    return u"DROP TABLE "_qs + takeName();
}

QString SqlTranslator::createIndexStatement() {
    const bool unique = accept(u"UNIQUE");
    expect(u"INDEX");
    QString text = (unique ? u"CREATE UNIQUE INDEX "_qs : u"CREATE INDEX "_qs) + takeName();
    expect(u"ON");
    text += u" ON "_qs + takeName();
    QStringList terms;
    for (const QString& column : columnList()) terms << m_dialect.sortTerm(m_dialect.name(column), false);
    return text + u" ("_qs + terms.join(u", "_qs) + u")"_qs;
}

QString SqlTranslator::alterStatement() {
    expect(u"TABLE");
    const QString tableName = Schema::spelling(at().text);
    takeName();
    expect(u"ALTER");
    expect(u"COLUMN");
    const QString column = Schema::spelling(at().text);
    takeName();
    expect(u"INTEGER");
    expect(u"NOT");
    expect(u"NULL");
    return m_dialect.alterToInteger(tableName, column);
}

QStringList SqlTranslator::columnList() {
    QStringList columns;
    expectSymbol(u"(");
    do {
        columns << Schema::spelling(at().text);
        takeName();
    } while (acceptSymbol(u","));
    expectSymbol(u")");
    return columns;
}

QString SqlTranslator::valueFor(Kind kind) {
    const SqlToken start = at();
    Operand target{{}, kind, {}, false};
    Operand value = operand(target.kind);
    match(target, value, start);
    return value.text;
}

QString SqlTranslator::valuesList(const QString& table, const QStringList& columns) {
    const SqlToken start = at();
    QStringList values;
    expectSymbol(u"(");
    do {
        const QString column = columns.value(values.size());
        if (accept(u"NULL"))
            values << u"NULL"_qs;
        else
            values << valueFor(kindOf(table, column));
    } while (acceptSymbol(u","));
    expectSymbol(u")");
    if (!columns.isEmpty() && columns.size() != values.size()) raiseSqlError(u"列と値の数が違います。"_qs, start);
    return u" VALUES ("_qs + values.join(u", "_qs) + u")"_qs;
}

// --- clauses ---

QString SqlTranslator::clauses() {
    if (++m_depth > deepestNesting) raiseSqlError(u"かっこが深すぎます。"_qs, at());
    QString text;
    while (at().kind != SqlToken::End && !at().isSymbol(u")") && !at().isSymbol(u";")) {
        if (at().is(u"ORDER"))
            text += sortTerms();
        else
            text += u' ' + word();
    }
    --m_depth;
    return text;
}

QString SqlTranslator::sortTerms() {
    take();
    expect(u"BY");
    QStringList terms;
    do {
        const QString expression = expressionUntilComma();
        const bool descending = accept(u"DESC");
        if (!descending) accept(u"ASC");
        terms << m_dialect.sortTerm(expression, descending);
    } while (acceptSymbol(u","));
    return u" ORDER BY "_qs + terms.join(u", "_qs);
}

QString SqlTranslator::expressionUntilComma() {
    const SqlToken start = at();
    if (start.kind == SqlToken::Number || start.kind == SqlToken::String || isSqlSign(start))
        raiseSqlError(u"並べ替えに使えない値です。"_qs, start);
    if (!startsSqlOperand(start)) raiseSqlError(u"値がありません。"_qs, start);
    return operand().text;
}

// One keyword, sign or value of a clause, with what belongs to it.
QString SqlTranslator::word() {
    const SqlToken token = at();
    if (startsSqlOperand(token)) return valueWord();
    if (token.kind == SqlToken::Symbol && (token.text == u"," || token.text == u"*" || isSqlArithmetic(token))) {
        take();
        return token.text;
    }
    if (!isSqlKeyword(token)) raiseSqlError(u"この語はここでは使えません。"_qs, token);
    take();
    if (token.is(u"INTO") || token.is(u"VALUES") || token.is(u"LIKE") || token.is(u"BETWEEN") ||
        token.is(u"DISTINCTROW"))
        raiseSqlError(u"この語はここでは使えません。"_qs, token);
    if (token.is(u"AS")) return u"AS "_qs + takeName();
    if (m_list && token.is(u"FROM")) m_list->open = false;
    if (m_list && token.is(u"UNION")) endSelectList(token);
    return token.text.toUpper();
}

QString SqlTranslator::valueWord() {
    Operand left = operand();
    const QString behind = comparison(left);
    refuseValue();
    if (!m_list || !m_list->open) return left.text + behind;
    m_list->kinds << (behind.isEmpty() ? left.kind : Kind::Truth);
    const bool isText = left.literal && left.kind == Kind::Text && behind.isEmpty();
    return isText ? m_dialect.caseBlind(left.text) : left.text + behind;
}

// A value right behind a value would be taken as its new name, under which its column is not known any more.
void SqlTranslator::refuseValue() const {
    if (startsSqlOperand(at())) raiseSqlError(u"この語はここでは使えません。"_qs, at());
}

// What may follow a value: a comparison, LIKE, IN or BETWEEN, whose literals take the kind of the value.
QString SqlTranslator::comparison(Operand& left) {
    const SqlToken start = at();
    if (isSqlComparison(start)) {
        take();
        if (accept(u"NULL")) return u" %1 NULL"_qs.arg(start.text);
        Operand right = operand(left.literal ? Kind::Unknown : left.kind);
        match(left, right, start);
        left.text = comparable(left);
        return u' ' + start.text + u' ' + comparable(right);
    }
    const bool negated = start.is(u"NOT") && (at(1).is(u"LIKE") || at(1).is(u"IN") || at(1).is(u"BETWEEN"));
    if (negated) take();
    const QString prefix = negated ? u" NOT"_qs : QString();
    if (accept(u"LIKE")) {
        if (left.literal || (left.kind != Kind::Text && left.kind != Kind::Unknown))
            raiseSqlError(u"LIKE の前は文字列の項目でなければなりません。"_qs, start);
        left.text = comparable(left);
        return prefix + u" LIKE "_qs + likeOf(take());
    }
    if (accept(u"IN")) {
        if (left.literal) raiseSqlError(u"IN の前は項目でなければなりません。"_qs, start);
        left.text = comparable(left);
        return prefix + u" IN "_qs + listOf(left);
    }
    if (accept(u"BETWEEN")) return prefix + u" BETWEEN "_qs + between(left);
    return {};
}

QString SqlTranslator::comparable(const Operand& value) const {
    return value.isSelect && value.kind == Kind::Text ? m_dialect.caseBlind(value.text) : value.text;
}

void SqlTranslator::match(Operand& left, Operand& right, const SqlToken& at) const {
    if (left.literal && !right.literal && right.kind != Kind::Unknown) {
        left.text = literalText(*left.literal, right.kind);
        left.kind = right.kind;
    } else if (right.literal && !left.literal && left.kind != Kind::Unknown) {
        right.text = literalText(*right.literal, left.kind);
        right.kind = left.kind;
    }
    if (left.kind != right.kind && left.kind != Kind::Unknown && right.kind != Kind::Unknown) raiseSqlMismatch(at);
}

QString SqlTranslator::listOf(const Operand& left) {
    expectSymbol(u"(");
    QString text;
    if (accept(u"SELECT")) {
        text = u"SELECT"_qs + selectStatement();
    } else {
        QStringList values;
        do {
            const SqlToken start = at();
            Operand searched = left;
            Operand value = operand(left.kind);
            match(searched, value, start);
            values << value.text;
        } while (acceptSymbol(u","));
        text = values.join(u", "_qs);
    }
    expectSymbol(u")");
    return u'(' + text + u')';
}

QString SqlTranslator::between(Operand& left) {
    const Kind expected = left.literal ? Kind::Unknown : left.kind;
    const SqlToken start = at();
    Operand low = operand(expected);
    match(left, low, start);
    expect(u"AND");
    Operand high = operand(expected);
    match(left, high, start);
    match(left, low, start); // the upper end may have changed the kind
    left.text = comparable(left);
    return comparable(low) + u" AND "_qs + comparable(high);
}

QString SqlTranslator::likeOf(const SqlToken& token) const {
    if (token.kind != SqlToken::String) raiseSqlError(u"LIKE の後に文字列がありません。"_qs, token);
    const QString& pattern = token.text;
    QString escaped;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == u'\\') {
            escaped += u"\\\\"_qs;
        } else if (c != u'[') {
            escaped += c;
        } else {
            const QString sign = Text::first(pattern.mid(i + 1, 2), 1);
            i += sign.size() + 1;
            if (sign.isEmpty() || i >= pattern.size() || pattern.at(i) != u']')
                raiseSqlError(u"LIKE の [ ] が正しくありません。"_qs, token);
            if (sign == u"%" || sign == u"_" || sign == u"\\") escaped += u'\\';
            escaped += sign;
        }
    }
    return m_dialect.likePattern(escaped);
}
