#include "db/SqlTokens.h"

#include "base/AppError.h"
#include "base/Text.h"

#include <QSet>

namespace {

bool isNameCharacter(QChar c) {
    if (c.unicode() >= 0x80) return c != u'\u3000' && c.unicode() != 0xFEFF;
    return c.isLetterOrNumber() || c == u'_';
}

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

class Tokenizer {
public:
    explicit Tokenizer(const QString& statement) : m_text(statement) {}

    QList<SqlToken> run() {
        // An engine would read half of a sign together with what follows, be it the quote that ends a text.
        if (const qsizetype half = Text::loneHalf(m_text); half >= 0) fail(u"使えない文字があります。"_qs, half);
        QList<SqlToken> tokens;
        for (skipBlanks(); m_at < m_text.size(); skipBlanks()) tokens << next();
        tokens << SqlToken{SqlToken::End, {}, m_text.size()};
        return tokens;
    }

private:
    QChar peek(qsizetype ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text.at(m_at + ahead) : QChar(u'\0');
    }

    void skipBlanks() {
        while (m_at < m_text.size() && m_text.at(m_at).isSpace() && m_text.at(m_at) != u'\u3000') ++m_at;
    }

    SqlToken next() {
        const QChar c = peek();
        if (c == u'[') return bracketed();
        if (c == u'\'') return string();
        if (c == u'#') return date();
        if (isDigit(c) || (c == u'.' && isDigit(peek(1)))) return number();
        if (isNameCharacter(c)) return word();
        return symbol();
    }

    SqlToken token(SqlToken::Kind kind, qsizetype start, QString text) { return {kind, std::move(text), start}; }

    [[noreturn]] void fail(const QString& reason, qsizetype at) {
        raiseSqlError(reason, token(SqlToken::Symbol, at, {}));
    }

    SqlToken bracketed() {
        const qsizetype start = m_at;
        const qsizetype end = m_text.indexOf(u']', start);
        if (end < 0) fail(u"[ が閉じていません。"_qs, start);
        const QString name = m_text.mid(start + 1, end - start - 1);
        if (name.isEmpty() || name.contains(u'[') || name.contains(u'"') || name.contains(u'\0'))
            fail(u"[ ] の中の名前が正しくありません。"_qs, start);
        m_at = end + 1;
        return token(SqlToken::Name, start, name);
    }

    SqlToken string() {
        const qsizetype start = m_at++;
        QString text;
        for (; m_at < m_text.size(); ++m_at) {
            if (peek() == u'\0') fail(u"使えない文字があります。"_qs, m_at);
            if (peek() != u'\'') {
                text += peek();
            } else if (peek(1) == u'\'') {
                text += u'\'';
                ++m_at;
            } else {
                ++m_at;
                return token(SqlToken::String, start, text);
            }
        }
        fail(u"' が閉じていません。"_qs, start);
    }

    SqlToken date() {
        const qsizetype start = m_at;
        const qsizetype end = m_text.indexOf(u'#', start + 1);
        if (end < 0) fail(u"# が閉じていません。"_qs, start);
        m_at = end + 1;
        return token(SqlToken::Date, start, m_text.mid(start + 1, end - start - 1));
    }

    SqlToken number() {
        const qsizetype start = m_at;
        bool point = false;
        while (isDigit(peek()) || (peek() == u'.' && !point)) {
            point = point || peek() == u'.';
            ++m_at;
        }
        if (isNameCharacter(peek()) || peek() == u'.') fail(u"数値が正しくありません。"_qs, start);
        return token(SqlToken::Number, start, m_text.mid(start, m_at - start));
    }

    SqlToken word() {
        const qsizetype start = m_at;
        while (m_at < m_text.size() && isNameCharacter(peek())) ++m_at;
        return token(SqlToken::Word, start, m_text.mid(start, m_at - start));
    }

    SqlToken symbol() {
        const qsizetype start = m_at;
        for (const QString& two : {u"<>"_qs, u"<="_qs, u">="_qs}) {
            if (m_text.mid(start, 2) != two) continue;
            m_at += 2;
            return token(SqlToken::Symbol, start, two);
        }
        if (!QStringView(u"(),.=<>+-*&;").contains(peek())) fail(u"使えない文字があります。"_qs, start);
        return token(SqlToken::Symbol, start, QString(m_text.at(m_at++)));
    }

    const QString& m_text;
    qsizetype m_at = 0;
};

} // namespace

QList<SqlToken> tokenizeSql(const QString& statement) { return Tokenizer(statement).run(); }

void raiseSqlError(const QString& reason, const SqlToken& at) {
    throw AppError(u"SQL文を解釈できません。%1（位置 %2）"_qs.arg(reason, QString::number(at.position + 1)), u"SQL"_qs);
}

// --- what a word can be ---

namespace {

const QSet<QString>& keywords() {
    static const QSet<QString> words{u"SELECT"_qs,  u"DISTINCT"_qs, u"FROM"_qs,   u"WHERE"_qs, u"GROUP"_qs,
                                     u"BY"_qs,      u"HAVING"_qs,   u"ORDER"_qs,  u"ASC"_qs,   u"DESC"_qs,
                                     u"AS"_qs,      u"AND"_qs,      u"OR"_qs,     u"NOT"_qs,   u"IN"_qs,
                                     u"IS"_qs,      u"NULL"_qs,     u"LIKE"_qs,   u"LEFT"_qs,  u"INNER"_qs,
                                     u"JOIN"_qs,    u"ON"_qs,       u"UNION"_qs,  u"ALL"_qs,   u"EXISTS"_qs,
                                     u"BETWEEN"_qs, u"INTO"_qs,     u"VALUES"_qs, u"SET"_qs,   u"DISTINCTROW"_qs};
    return words;
}

} // namespace

bool isSqlKeyword(const SqlToken& token) {
    return token.kind == SqlToken::Word && keywords().contains(token.text.toUpper());
}

bool isSqlAggregate(const SqlToken& token) {
    static const QSet<QString> words{u"COUNT"_qs, u"SUM"_qs, u"MIN"_qs, u"MAX"_qs, u"AVG"_qs};
    return token.kind == SqlToken::Word && words.contains(token.text.toUpper());
}

bool isSqlComparison(const SqlToken& token) {
    static const QStringList signs{u"="_qs, u"<>"_qs, u"<"_qs, u">"_qs, u"<="_qs, u">="_qs};
    return token.kind == SqlToken::Symbol && signs.contains(token.text);
}

bool isSqlArithmetic(const SqlToken& token) {
    return token.isSymbol(u"+") || token.isSymbol(u"-") || token.isSymbol(u"*");
}

bool isSqlSign(const SqlToken& token) { return token.isSymbol(u"+") || token.isSymbol(u"-"); }

bool startsSqlOperand(const SqlToken& token) {
    switch (token.kind) {
    case SqlToken::Name:
    case SqlToken::String:
    case SqlToken::Number:
    case SqlToken::Date:
        return true;
    case SqlToken::Word:
        return !isSqlKeyword(token);
    case SqlToken::Symbol:
        return token.text == u"(" || isSqlSign(token);
    case SqlToken::End:
        return false;
    }
    return false;
}

void raiseSqlMismatch(const SqlToken& at) {
    throw AppError(u"データ型が一致しません。（位置 %1）"_qs.arg(at.position + 1), u"SQL"_qs, 13);
}
