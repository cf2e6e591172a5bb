#include "db/SelectInto.h"

#include "db/SqlTokens.h"

namespace {

bool isName(const SqlToken& token) { return token.kind == SqlToken::Name || token.kind == SqlToken::Word; }

} // namespace

std::optional<SelectInto> SelectInto::parse(const QString& statement) {
    if (!statement.contains(u"INTO"_qs, Qt::CaseInsensitive)) return std::nullopt;
    const QList<SqlToken> tokens = tokenizeSql(statement);
    if (tokens.size() < 3 || !tokens.at(0).is(u"SELECT") || !tokens.at(1).isSymbol(u"*") || !tokens.at(2).is(u"INTO"))
        return std::nullopt;
    static const QString database = u";database="_qs;
    const auto at = [&tokens](qsizetype i) -> const SqlToken& { return tokens.at(qMin(i, tokens.size() - 1)); };
    if (!isName(at(3))) raiseSqlError(u"表の名前がありません。"_qs, at(3));
    if (!at(4).is(u"FROM")) raiseSqlError(u"FROM がありません。"_qs, at(4));
    if (at(5).kind != SqlToken::Name || !at(5).text.startsWith(database, Qt::CaseInsensitive))
        raiseSqlError(u"コピー元のファイルがありません。"_qs, at(5));
    if (!at(6).isSymbol(u".") || !isName(at(7))) raiseSqlError(u"コピー元の表がありません。"_qs, at(6));
    SelectInto result{at(3).text, at(5).text.mid(database.size()), at(7).text, {}};
    if (at(8).is(u"WHERE")) {
        result.where = statement.mid(at(9).position).trimmed();
        if (result.where.endsWith(u';')) result.where.chop(1);
    } else if (at(8).kind != SqlToken::End && !at(8).isSymbol(u";")) {
        raiseSqlError(u"余分な語があります。"_qs, at(8));
    }
    return result;
}
