#include "db/SqlTranslator.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "db/SqlDialect.h"

#include <QSet>

#include <utility>

namespace {

constexpr int deepestNesting = 100;

// Stands in the text where NOW() belongs; the tokenizer lets no such sign out of a literal.
constexpr QChar nowMark(u'\0');

const QSet<QString>& keywords() {
    static const QSet<QString> words{u"SELECT"_qs,  u"DISTINCT"_qs, u"FROM"_qs,   u"WHERE"_qs, u"GROUP"_qs,
                                     u"BY"_qs,      u"HAVING"_qs,   u"ORDER"_qs,  u"ASC"_qs,   u"DESC"_qs,
                                     u"AS"_qs,      u"AND"_qs,      u"OR"_qs,     u"NOT"_qs,   u"IN"_qs,
                                     u"IS"_qs,      u"NULL"_qs,     u"LIKE"_qs,   u"LEFT"_qs,  u"INNER"_qs,
                                     u"JOIN"_qs,    u"ON"_qs,       u"UNION"_qs,  u"ALL"_qs,   u"EXISTS"_qs,
                                     u"BETWEEN"_qs, u"INTO"_qs,     u"VALUES"_qs, u"SET"_qs,   u"DISTINCTROW"_qs};
    return words;
}

const QSet<QString>& aggregates() {
    static const QSet<QString> words{u"COUNT"_qs, u"SUM"_qs, u"MIN"_qs, u"MAX"_qs, u"AVG"_qs};
    return words;
}

bool isKeyword(const SqlToken& token) {
    return token.kind == SqlToken::Word && keywords().contains(token.text.toUpper());
}

bool isComparison(const SqlToken& token) {
    static const QStringList signs{u"="_qs, u"<>"_qs, u"<"_qs, u">"_qs, u"<="_qs, u">="_qs};
    return token.kind == SqlToken::Symbol && signs.contains(token.text);
}

bool isArithmetic(const SqlToken& token) {
    return token.isSymbol(u"+") || token.isSymbol(u"-") || token.isSymbol(u"*");
}

bool isSign(const SqlToken& token) { return token.isSymbol(u"+") || token.isSymbol(u"-"); }

bool startsOperand(const SqlToken& token) {
    switch (token.kind) {
    case SqlToken::Name:
    case SqlToken::String:
    case SqlToken::Number:
    case SqlToken::Date:
        return true;
    case SqlToken::Word:
        return !isKeyword(token);
    case SqlToken::Symbol:
        return token.text == u"(" || isSign(token);
    case SqlToken::End:
        return false;
    }
    return false;
}

[[noreturn]] void raiseMismatch(const SqlToken& at) {
    throw AppError(u"データ型が一致しません。（位置 %1）"_qs.arg(at.position + 1), u"SQL"_qs, 13);
}

// A number keeps its digits in both engines up to this many.
constexpr int mostDigits = 15;

int significantDigits(const QString& number) {
    int digits = 0;
    for (QChar c : number)
        if (c.isDigit() && (digits > 0 || c != u'0')) ++digits;
    return digits;
}

} // namespace

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
        if (isKeyword(token) && !token.is(u"AS") && !token.is(u"ON")) listed = false;
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
    if (token.kind != SqlToken::Name && (token.kind != SqlToken::Word || isKeyword(token)))
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
        if (above != below && above != Kind::Unknown && below != Kind::Unknown) raiseMismatch(at);
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
    if (start.kind == SqlToken::Number || start.kind == SqlToken::String || isSign(start))
        raiseSqlError(u"並べ替えに使えない値です。"_qs, start);
    if (!startsOperand(start)) raiseSqlError(u"値がありません。"_qs, start);
    return operand().text;
}

// One keyword, sign or value of a clause, with what belongs to it.
QString SqlTranslator::word() {
    const SqlToken token = at();
    if (startsOperand(token)) return valueWord();
    if (token.kind == SqlToken::Symbol && (token.text == u"," || token.text == u"*" || isArithmetic(token))) {
        take();
        return token.text;
    }
    if (!isKeyword(token)) raiseSqlError(u"この語はここでは使えません。"_qs, token);
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
    if (startsOperand(at())) raiseSqlError(u"この語はここでは使えません。"_qs, at());
}

// What may follow a value: a comparison, LIKE, IN or BETWEEN, whose literals take the kind of the value.
QString SqlTranslator::comparison(Operand& left) {
    const SqlToken start = at();
    if (isComparison(start)) {
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
    if (left.kind != right.kind && left.kind != Kind::Unknown && right.kind != Kind::Unknown) raiseMismatch(at);
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
            if (i + 2 >= pattern.size() || pattern.at(i + 2) != u']')
                raiseSqlError(u"LIKE の [ ] が正しくありません。"_qs, token);
            const QChar sign = pattern.at(i + 1);
            if (sign == u'%' || sign == u'_' || sign == u'\\') escaped += u'\\';
            escaped += sign;
            i += 2;
        }
    }
    return m_dialect.likePattern(escaped);
}

// --- values ---

SqlTranslator::Operand SqlTranslator::operand(Kind expected) {
    if (++m_depth > deepestNesting) raiseSqlError(u"かっこが深すぎます。"_qs, at());
    const SqlToken start = at();
    Operand value = joined(expected);
    while (isArithmetic(at())) {
        requireNumber(value, start);
        const QString sign = take().text;
        const SqlToken next = at();
        Operand right = primary(Kind::Number);
        requireNumber(right, next);
        value = {value.text + u' ' + sign + u' ' + right.text, Kind::Number, {}, false};
        if (at().isSymbol(u"&")) raiseSqlError(u"& の前後の計算はかっこで囲んで下さい。"_qs, at());
    }
    --m_depth;
    return value;
}

void SqlTranslator::requireNumber(Operand& value, const SqlToken& at) const {
    if (value.literal)
        value.text = literalText(*value.literal, Kind::Number);
    else if (value.kind != Kind::Number && value.kind != Kind::Unknown)
        raiseMismatch(at);
}

SqlTranslator::Operand SqlTranslator::joined(Kind expected) {
    const SqlToken start = at();
    const Operand first = primary(expected);
    if (!at().isSymbol(u"&")) return first;
    QStringList parts;
    const auto add = [&](const Operand& part) {
        if (part.kind == Kind::Truth) raiseMismatch(start);
        const bool mayBeNumber = part.kind == Kind::Number || part.kind == Kind::Unknown;
        parts << (mayBeNumber ? m_dialect.numberAsText(part.text) : m_dialect.asText(part.text));
    };
    add(first);
    while (acceptSymbol(u"&")) add(primary(Kind::Unknown));
    if (isArithmetic(at())) raiseSqlError(u"& の前後の計算はかっこで囲んで下さい。"_qs, at());
    return {m_dialect.caseBlind(u'(' + parts.join(u" || "_qs) + u')'), Kind::Text, {}, false};
}

SqlTranslator::Operand SqlTranslator::signedValue() {
    const SqlToken sign = take();
    const SqlToken next = at();
    if (isSign(next)) raiseSqlError(u"値がありません。"_qs, next);
    Operand value = primary(Kind::Number);
    requireNumber(value, next);
    return {u"(%1 %2)"_qs.arg(sign.text, value.text), Kind::Number, {}, false};
}

SqlTranslator::Operand SqlTranslator::primary(Kind expected) {
    if (isSign(at()) && at(1).kind != SqlToken::Number) return signedValue();
    const bool negative = at().isSymbol(u"-");
    if (isSign(at())) take();
    const SqlToken token = at();
    switch (token.kind) {
    case SqlToken::String:
    case SqlToken::Number:
    case SqlToken::Date: {
        take();
        const Literal literal{token, negative};
        const Kind own = token.kind == SqlToken::String   ? Kind::Text
                         : token.kind == SqlToken::Number ? Kind::Number
                                                          : Kind::Date;
        return {literalText(literal, expected), expected == Kind::Unknown ? own : expected, literal, false};
    }
    case SqlToken::Name:
        return columnOperand();
    case SqlToken::Word:
        if (isKeyword(token)) break;
        return at(1).isSymbol(u"(") ? function() : columnOperand();
    case SqlToken::Symbol:
        if (token.text == u"(") return bracket();
        break;
    case SqlToken::End:
        break;
    }
    raiseSqlError(u"値がありません。"_qs, token);
}

// A select, a join, a condition, or a value, whose kind it keeps.
SqlTranslator::Operand SqlTranslator::bracket() {
    expectSymbol(u"(");
    if (accept(u"SELECT")) {
        Kind first = Kind::Unknown;
        const QString inside = u"SELECT"_qs + selectStatement(&first);
        expectSymbol(u")");
        return {u'(' + inside + u')', first, {}, true};
    }
    SelectList* const outer = std::exchange(m_list, nullptr);
    QStringList words;
    Operand only;
    bool isCondition = false, isJoin = false;
    while (at().kind != SqlToken::End && !at().isSymbol(u")") && !at().isSymbol(u";")) {
        const SqlToken token = at();
        if (startsOperand(token)) {
            only = operand();
            const QString behind = comparison(only);
            refuseValue();
            isCondition = isCondition || !behind.isEmpty();
            words << only.text + behind;
            continue;
        }
        isCondition = isCondition || token.is(u"AND") || token.is(u"OR") || token.is(u"NOT") || token.is(u"IS");
        isJoin = isJoin || token.is(u"JOIN");
        words << word();
    }
    m_list = outer;
    if (words.isEmpty()) raiseSqlError(u"かっこの中が空です。"_qs, at());
    expectSymbol(u")");
    const QString text = u'(' + words.join(u' ') + u')';
    if (isCondition && !isJoin) return {text, Kind::Truth, {}, false};
    if (words.size() > 1) return {text, Kind::Unknown, {}, false};
    return {text, only.kind, only.literal, only.isSelect};
}

SqlTranslator::Operand SqlTranslator::function() {
    const SqlToken called = take();
    const QString name = called.text.toUpper();
    expectSymbol(u"(");
    Operand result;
    if (name == u"NOW")
        result = {QString(nowMark), Kind::Date, {}, false};
    else if (name == u"ISNULL")
        result = {u"(%1 IS NULL)"_qs.arg(operand().text), Kind::Truth, {}, false};
    else if (name == u"IIF")
        result = choice();
    else if (aggregates().contains(name))
        result = aggregate(called);
    else
        raiseSqlError(u"関数 %1 は使えません。"_qs.arg(called.text), called);
    expectSymbol(u")");
    return result;
}

SqlTranslator::Operand SqlTranslator::choice() {
    QStringList condition;
    SelectList* const outer = std::exchange(m_list, nullptr);
    while (!at().isSymbol(u",") && !at().isSymbol(u")") && at().kind != SqlToken::End) condition << word();
    m_list = outer;
    if (condition.isEmpty()) raiseSqlError(u"条件がありません。"_qs, at());
    expectSymbol(u",");
    Operand yes = operand();
    expectSymbol(u",");
    const SqlToken start = at();
    Operand no = operand();
    match(yes, no, start);
    const Kind kind = yes.kind == Kind::Unknown ? no.kind : yes.kind;
    const QString text = m_dialect.choice(condition.join(u' '), yes.text, no.text);
    return {kind == Kind::Text ? m_dialect.caseBlind(text) : text, kind, {}, false};
}

SqlTranslator::Operand SqlTranslator::aggregate(const SqlToken& called) {
    const QString name = called.text.toUpper();
    const QString distinct = accept(u"DISTINCT") ? u"DISTINCT "_qs : QString();
    if (name == u"COUNT" && distinct.isEmpty() && acceptSymbol(u"*")) return {u"COUNT(*)"_qs, Kind::Number, {}, false};
    const SqlToken start = at();
    Operand inside = operand();
    const bool ofNumbers = name == u"SUM" || name == u"AVG";
    if (ofNumbers) requireNumber(inside, start);
    const QString text = name + u'(' + distinct + inside.text + u')';
    if (ofNumbers || name == u"COUNT") return {text, Kind::Number, {}, false};
    return {inside.kind == Kind::Text ? m_dialect.caseBlind(text) : text, inside.kind, {}, false};
}

SqlTranslator::Operand SqlTranslator::columnOperand() {
    const QString first = at().text;
    QString text = takeName();
    if (!acceptSymbol(u".")) return {text, kindOf(QString(), first), {}, false};
    if (acceptSymbol(u"*")) return {text + u".*"_qs, Kind::Unknown, {}, false};
    const QString second = at().text;
    text += u'.' + takeName();
    return {text, kindOf(first, second), {}, false};
}

SqlTranslator::Kind SqlTranslator::kindOf(const QString& table, const QString& name) const {
    if (!table.isEmpty()) {
        const Schema::Table* known = Schema::table(table);
        return known ? kindOf(known->column(name)) : Kind::Unknown;
    }
    Kind found = Kind::Unknown;
    for (const Schema::Table* candidate : m_tables) {
        const Kind kind = kindOf(candidate->column(name));
        if (kind == Kind::Unknown) continue;
        if (found != Kind::Unknown && found != kind) return Kind::Unknown;
        found = kind;
    }
    return found;
}

SqlTranslator::Kind SqlTranslator::kindOf(const Schema::Column* column) {
    if (!column || column->type == Schema::Unknown) return Kind::Unknown;
    if (column->isText()) return Kind::Text;
    return column->isDate() ? Kind::Date : Kind::Number;
}

QString SqlTranslator::literalText(const Literal& literal, Kind kind) const {
    const SqlToken& token = literal.token;
    const QString text = (literal.negative ? u"-"_qs : QString()) + token.text;
    if (kind == Kind::Unknown && token.kind == SqlToken::String) return m_dialect.text(text);
    if (token.kind == SqlToken::Date && (kind == Kind::Unknown || kind == Kind::Date)) return dateLiteral(token);
    if (kind == Kind::Date && token.kind == SqlToken::String) return dateLiteral(token);
    if (kind == Kind::Text && token.kind != SqlToken::Date) return m_dialect.text(text);
    const QString number = text.trimmed();
    const bool asNumber = kind == Kind::Number || kind == Kind::Unknown;
    if (!asNumber || token.kind == SqlToken::Date || !isPlainNumber(number)) raiseMismatch(token);
    if (significantDigits(number) > mostDigits) raiseSqlError(u"数値の桁が多すぎます。"_qs, token);
    return number;
}

QString SqlTranslator::dateLiteral(const SqlToken& token) const {
    const auto value = parseDate(token.text);
    if (!value) raiseSqlError(u"日付が正しくありません。"_qs, token);
    return m_dialect.date(*value);
}
