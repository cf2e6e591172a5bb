#include "composition/PriceRemark.h"

#include "base/Numbers.h"

namespace {

constexpr qint16 notFound = 1;

// As the commands that price a line round it.
qint64 wholeYen(double amount) { return Money::leadingNumber(numberText(amount)).toYen(); }

QString textsOf(const LineRules& rules, const Cells& line) {
    return line.mid(rules.firstText, rules.suryo - rules.firstText).join(u'\t');
}

} // namespace

std::optional<Money> ListPrices::of(const LineRules& rules, const Cells& line, const LineContext& context,
                                    const QString& tier) {
    const QString key = QStringList{textsOf(rules, line), context.item, context.pickKbn, context.name, context.form,
                                    context.pickStyle,    tier}
                            .join(u'\n');
    const auto known = m_known.constFind(key);
    if (known != m_known.constEnd()) return *known;
    qint16 result = 0;
    const Money price = rules.lookUp(line, context, tier, result);
    const bool isListed = result != notFound && price != Money();
    return *m_known.insert(key, isListed ? std::optional(price) : std::nullopt);
}

QString priceRemark(const LineRules& rules, const Cells& line, qsizetype tier, const std::optional<Money>& listed) {
    if (!rules.isLine(line)) return {};
    const double amount = Val(line.at(rules.amount(tier)));
    if (amount == 0) return u"0円"_qs;
    if (!listed) return u"価格表になし"_qs;
    const qint64 expected = wholeYen(listed->toDouble() * Val(line.at(rules.suryo)));
    return wholeYen(amount) == expected ? QString() : u"価格表 %1"_qs.arg(formatThousands(expected));
}
