#include "db/SqlTranslator.h"

#include "base/AppError.h"
#include "base/basCommon.h"
#include "db/SqlDialect.h"

#include <QSet>

namespace {

constexpr int deepestNesting = 100;

// Stands in the text where NOW() belongs; the tokenizer lets no such sign out of a literal.
constexpr QChar nowMark(u'\0');

const QSet<QString>& keywords() {
    static const QSet<QString> words{
        u"SELECT"_qs, u"DISTINCT"_qs, u"FROM"_qs, u"WHERE"_qs,  u"GROUP"_qs, u"BY"_qs,   u"HAVING"_qs, u"ORDER"_qs,
        u"ASC"_qs,    u"DESC"_qs,     u"AS"_qs,   u"AND"_qs,    u"OR"_qs,    u"NOT"_qs,  u"IN"_qs,     u"IS"_qs,
        u"NULL"_qs,   u"LIKE"_qs,     u"LEFT"_qs, u"INNER"_qs,  u"JOIN"_qs,  u"ON"_qs,   u"UNION"_qs,  u"ALL"_qs,
        u"EXISTS"_qs, u"BETWEEN"_qs,  u"INTO"_qs, u"VALUES"_qs, u"SET"_qs,   u"DISTINCTROW"_qs};
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

bool startsOperand(const SqlToken& token) {
    switch (token.kind) {
    case SqlToken::Name:
    case SqlToken::String:
    case SqlToken::Number:
    case SqlToken::Date: return true;
    case SqlToken::Word: return !isKeyword(token);
    case SqlToken::Symbol: return token.text == u"(";
    case SqlToken::End: return false;
    }
    return false;
}

[[noreturn]] void raiseMismatch(const SqlToken& at) {
    throw AppError(u"データ型が一致しません。（位置 %1）"_qs.arg(at.position + 1), u"SQL"_qs, 13);
}

bool differInKind(const Schema::Column& left, const Schema::Column& right) {
    return left.isText() != right.isText() || left.isDate() != right.isDate();
}

} // namespace

SqlTranslator::SqlTranslator(const SqlDialect& dialect, QList<SqlToken> tokens)
    : m_dialect(dialect), m_tokens(std::move(tokens)) {
    collectTables();
}

void SqlTranslator::collectTables() {
    for (const SqlToken& token : m_tokens) {
        if (token.kind != SqlToken::Name && token.kind != SqlToken::Word) continue;
        if (const Schema::Table* table = Schema::table(token.text)) m_tables << table;
    }
}

QStringList SqlTranslator::run() {
    QString text;
    const SqlToken first = take();
    if (first.is(u"SELECT")) text = u"SELECT"_qs + selectStatement();
    else if (first.is(u"INSERT")) text = insertStatement();
    else if (first.is(u"UPDATE")) text = updateStatement();
    else if (first.is(u"DELETE")) text = deleteStatement();
    else if (first.is(u"DROP")) text = dropStatement();
    else if (first.is(u"CREATE")) text = createIndexStatement();
    else if (first.is(u"ALTER")) text = alterStatement();
    else raiseSqlError(u"文の種類が分かりません。"_qs, first);
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

QString SqlTranslator::selectStatement() {
    if (accept(u"DISTINCTROW")) return u" DISTINCT"_qs + clauses();
    return clauses();
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

QString SqlTranslator::valuesList(const QString& table, const QStringList& columns) {
    const SqlToken start = at();
    QStringList values;
    expectSymbol(u"(");
    do {
        const QString column = columns.value(values.size());
        if (accept(u"NULL")) values << u"NULL"_qs;
        else values << operand(findColumn(table, column)).text;
    } while (acceptSymbol(u","));
    expectSymbol(u")");
    if (!columns.isEmpty() && columns.size() != values.size())
        raiseSqlError(u"列と値の数が違います。"_qs, start);
    return u" VALUES ("_qs + values.join(u", "_qs) + u")"_qs;
}

// --- clauses ---

QString SqlTranslator::clauses() {
    if (++m_depth > deepestNesting) raiseSqlError(u"かっこが深すぎます。"_qs, at());
    QString text;
    while (at().kind != SqlToken::End && !at().isSymbol(u")") && !at().isSymbol(u";")) {
        if (at().is(u"ORDER")) text += sortTerms();
        else text += u' ' + word();
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
    if (start.kind == SqlToken::Number || start.kind == SqlToken::String)
        raiseSqlError(u"並べ替えに使えない値です。"_qs, start);
    if (!startsOperand(start)) raiseSqlError(u"値がありません。"_qs, start);
    return operand().text;
}

// One keyword, sign or value of a clause, with what belongs to it.
QString SqlTranslator::word() {
    const SqlToken token = at();
    if (startsOperand(token)) {
        const Operand left = operand();
        return left.text + comparison(left);
    }
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
    return token.text.toUpper();
}

// What may follow a value: a comparison, LIKE, IN or BETWEEN, whose literals take the type of the column.
QString SqlTranslator::comparison(const Operand& left) {
    if (isComparison(at())) {
        const SqlToken sign = take();
        if (accept(u"NULL")) return u" %1 NULL"_qs.arg(sign.text);
        const SqlToken start = at();
        const Operand right = operand(left.column);
        if (left.column && right.column && differInKind(*left.column, *right.column)) raiseMismatch(start);
        return u' ' + sign.text + u' ' + right.text;
    }
    const bool negated = at().is(u"NOT") && (at(1).is(u"LIKE") || at(1).is(u"IN") || at(1).is(u"BETWEEN"));
    if (negated) take();
    const QString prefix = negated ? u" NOT"_qs : QString();
    if (accept(u"LIKE")) return prefix + u" LIKE "_qs + likeOf(take());
    if (accept(u"IN")) return prefix + u" IN "_qs + listOf(left.column);
    if (accept(u"BETWEEN")) return prefix + u" BETWEEN "_qs + between(left.column);
    return {};
}

QString SqlTranslator::listOf(const Schema::Column* column) {
    expectSymbol(u"(");
    QString text;
    if (accept(u"SELECT")) {
        text = u"SELECT"_qs + selectStatement();
    } else {
        QStringList values;
        do values << operand(column).text;
        while (acceptSymbol(u","));
        text = values.join(u", "_qs);
    }
    expectSymbol(u")");
    return u'(' + text + u')';
}

QString SqlTranslator::between(const Schema::Column* column) {
    const QString low = operand(column).text;
    expect(u"AND");
    return low + u" AND "_qs + operand(column).text;
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

SqlTranslator::Operand SqlTranslator::operand(const Schema::Column* expected) {
    if (++m_depth > deepestNesting) raiseSqlError(u"かっこが深すぎます。"_qs, at());
    Operand value = joined(expected);
    while (isArithmetic(at())) {
        const QString sign = take().text;
        value = {value.text + u' ' + sign + u' ' + primary(nullptr).text, nullptr, false};
        if (at().isSymbol(u"&")) raiseSqlError(u"& の前後の計算はかっこで囲んで下さい。"_qs, at());
    }
    --m_depth;
    return value;
}

SqlTranslator::Operand SqlTranslator::joined(const Schema::Column* expected) {
    const Operand first = primary(expected);
    if (!at().isSymbol(u"&")) return first;
    QStringList operands{first.text};
    while (acceptSymbol(u"&")) operands << primary(nullptr).text;
    if (isArithmetic(at())) raiseSqlError(u"& の前後の計算はかっこで囲んで下さい。"_qs, at());
    return {m_dialect.join(operands), nullptr, false};
}

SqlTranslator::Operand SqlTranslator::primary(const Schema::Column* expected) {
    const bool negative = at().isSymbol(u"-") && at(1).kind == SqlToken::Number;
    const bool positive = at().isSymbol(u"+") && at(1).kind == SqlToken::Number;
    if (negative || positive) take();
    const SqlToken token = at();
    switch (token.kind) {
    case SqlToken::String:
    case SqlToken::Number:
    case SqlToken::Date: take(); return {literal(token, expected, negative), nullptr, true};
    case SqlToken::Name: return columnOperand();
    case SqlToken::Word:
        if (isKeyword(token)) break;
        return at(1).isSymbol(u"(") ? function() : columnOperand();
    case SqlToken::Symbol:
        if (token.text == u"(") return {bracket(), nullptr, false};
        break;
    case SqlToken::End: break;
    }
    raiseSqlError(u"値がありません。"_qs, token);
}

QString SqlTranslator::bracket() {
    expectSymbol(u"(");
    const QString inside = accept(u"SELECT") ? u"SELECT"_qs + selectStatement() : clauses();
    if (inside.trimmed().isEmpty()) raiseSqlError(u"かっこの中が空です。"_qs, at());
    expectSymbol(u")");
    return u'(' + inside.trimmed() + u')';
}

SqlTranslator::Operand SqlTranslator::function() {
    const SqlToken called = take();
    const QString name = called.text.toUpper();
    if (name == u"NOW") {
        expectSymbol(u"(");
        expectSymbol(u")");
        return {QString(nowMark), nullptr, false};
    }
    if (name == u"ISNULL") {
        expectSymbol(u"(");
        const QString value = operand().text;
        expectSymbol(u")");
        return {u"(%1 IS NULL)"_qs.arg(value), nullptr, false};
    }
    if (name == u"IIF") {
        expectSymbol(u"(");
        QString condition;
        while (!at().isSymbol(u",") && at().kind != SqlToken::End) condition += u' ' + word();
        expectSymbol(u",");
        const QString yes = operand().text;
        expectSymbol(u",");
        const QString no = operand().text;
        expectSymbol(u")");
        return {m_dialect.choice(condition.trimmed(), yes, no), nullptr, false};
    }
    if (!aggregates().contains(name)) raiseSqlError(u"関数 %1 は使えません。"_qs.arg(called.text), called);
    expectSymbol(u"(");
    QString inside = accept(u"DISTINCT") ? u"DISTINCT "_qs : QString();
    inside += acceptSymbol(u"*") ? u"*"_qs : operand().text;
    expectSymbol(u")");
    return {name + u'(' + inside + u')', nullptr, false};
}

SqlTranslator::Operand SqlTranslator::columnOperand() {
    const QString first = at().text;
    QString text = takeName();
    if (!acceptSymbol(u".")) return {text, findColumn({}, first), false};
    if (acceptSymbol(u"*")) return {text + u".*"_qs, nullptr, false};
    const QString second = at().text;
    text += u'.' + takeName();
    return {text, findColumn(first, second), false};
}

const Schema::Column* SqlTranslator::findColumn(const QString& table, const QString& name) const {
    if (!table.isEmpty()) {
        const Schema::Table* known = Schema::table(table);
        return known ? known->column(name) : nullptr;
    }
    for (const Schema::Table* candidate : m_tables)
        if (const Schema::Column* column = candidate->column(name)) return column;
    return nullptr;
}

QString SqlTranslator::literal(const SqlToken& token, const Schema::Column* column, bool negative) const {
    const QString sign = negative ? u"-"_qs : QString();
    if (!column) {
        if (token.kind == SqlToken::Date) return dateLiteral(token);
        return token.kind == SqlToken::Number ? sign + token.text : m_dialect.text(token.text);
    }
    if (column->isDate()) {
        if (token.kind == SqlToken::Number) raiseMismatch(token);
        return dateLiteral(token);
    }
    if (token.kind == SqlToken::Date) raiseMismatch(token);
    if (column->isText()) return m_dialect.text(sign + token.text);
    const QString number = sign + token.text.trimmed();
    if (!isPlainNumber(number)) raiseMismatch(token);
    return number;
}

QString SqlTranslator::dateLiteral(const SqlToken& token) const {
    const auto value = parseDate(token.text);
    if (!value) raiseSqlError(u"日付が正しくありません。"_qs, token);
    return m_dialect.date(*value);
}
