#include "db/SqlTranslator.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "db/SqlDialect.h"

// How a statement's values are read: literals, columns, functions, what stands in brackets.

namespace {

// A number keeps its digits in both engines up to this many.
constexpr int mostDigits = 15;

int significantDigits(const QString& number) {
    int digits = 0;
    for (QChar c : number)
        if (c.isDigit() && (digits > 0 || c != u'0')) ++digits;
    return digits;
}

} // namespace

SqlTranslator::Operand SqlTranslator::operand(Kind expected) {
    if (++m_depth > deepestNesting) raiseSqlError(u"かっこが深すぎます。"_qs, at());
    const SqlToken start = at();
    Operand value = joined(expected);
    while (isSqlArithmetic(at())) {
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
        raiseSqlMismatch(at);
}

SqlTranslator::Operand SqlTranslator::joined(Kind expected) {
    const SqlToken start = at();
    const Operand first = primary(expected);
    if (!at().isSymbol(u"&")) return first;
    QStringList parts;
    const auto add = [&](const Operand& part) {
        if (part.kind == Kind::Truth) raiseSqlMismatch(start);
        const bool mayBeNumber = part.kind == Kind::Number || part.kind == Kind::Unknown;
        parts << (mayBeNumber ? m_dialect.numberAsText(part.text) : m_dialect.asText(part.text));
    };
    add(first);
    while (acceptSymbol(u"&")) add(primary(Kind::Unknown));
    if (isSqlArithmetic(at())) raiseSqlError(u"& の前後の計算はかっこで囲んで下さい。"_qs, at());
    return {m_dialect.caseBlind(u'(' + parts.join(u" || "_qs) + u')'), Kind::Text, {}, false};
}

SqlTranslator::Operand SqlTranslator::signedValue() {
    const SqlToken sign = take();
    const SqlToken next = at();
    if (isSqlSign(next)) raiseSqlError(u"値がありません。"_qs, next);
    Operand value = primary(Kind::Number);
    requireNumber(value, next);
    return {u"(%1 %2)"_qs.arg(sign.text, value.text), Kind::Number, {}, false};
}

SqlTranslator::Operand SqlTranslator::primary(Kind expected) {
    if (isSqlSign(at()) && at(1).kind != SqlToken::Number) return signedValue();
    const bool negative = at().isSymbol(u"-");
    if (isSqlSign(at())) take();
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
        if (isSqlKeyword(token)) break;
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
        if (startsSqlOperand(token)) {
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
    else if (isSqlAggregate(called))
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
    if (!asNumber || token.kind == SqlToken::Date || !isPlainNumber(number)) raiseSqlMismatch(token);
    if (significantDigits(number) > mostDigits) raiseSqlError(u"数値の桁が多すぎます。"_qs, token);
    return number;
}

QString SqlTranslator::dateLiteral(const SqlToken& token) const {
    const auto value = parseDate(token.text);
    if (!value) raiseSqlError(u"日付が正しくありません。"_qs, token);
    return m_dialect.date(*value);
}
