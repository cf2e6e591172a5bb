#include "composition/Pricing.h"

#include "base/Numbers.h"
#include "base/clsLogger.h"
#include "composition/LineRules.h"

namespace {

enum Result : qint16 { Found = 0, Missing = 1, Ambiguous = 2 };

// "[種目=A],[名称=B" of the given pairs; the last bracket is closed by what follows.
QString named(const QList<std::pair<QString, QString>>& values) {
    QStringList parts;
    for (const auto& [name, value] : values) parts << u'[' + name + u'=' + value;
    return parts.join(u"],"_qs);
}

QString told(const Cells& line, const LineContext& item, const LineRules& rules) {
    if (&rules == &partsRules())
        return named({{u"種目"_qs, item.item},
                      {u"部品名"_qs, line.at(PartsLine::PartsNm)},
                      {u"型式"_qs, line.at(PartsLine::Form)},
                      {u"部品コード"_qs, line.at(PartsLine::PartsCd)}});
    return named({{u"種目"_qs, item.item},
                  {u"採型区分"_qs, item.pickKbn},
                  {u"名称"_qs, item.name},
                  {u"型式"_qs, item.form},
                  {u"採型採寸"_qs, item.pickStyle},
                  {u"製作要素"_qs, line.at(MakeLine::MakeElmt)},
                  {u"原材料等"_qs, line.at(MakeLine::Materials)}});
}

// The prices that an ambiguous line takes, of every tier.
QString pricesTaken(const Cells& line, const LineContext& item, const LineRules& rules) {
    qint16 ignored = 0;
    const auto price = [&](const QString& tier) { return rules.lookUp(line, item, tier, ignored).toText(); };
    if (!rules.tiered) return u"[価格："_qs + price({});
    QStringList prices;
    for (const QString& tier : {u"大人"_qs, u"中人"_qs, u"小人"_qs}) prices << u'[' + tier + u"価格："_qs + price(tier);
    return prices.join(u"],"_qs);
}

QString head(const QString& owner, const Cells& line, const LineContext& item, const LineRules& rules) {
    return u"価格マスタに"_qs + owner + told(line, item, rules);
}

void logMissingPrice(const QString& owner, const Cells& line, const LineContext& item, const LineRules& rules) {
    writeLog(head(owner, line, item, rules) +
             (rules.tiered ? u"]のデータは存在しません｡"_qs : u"]のデータが存在しません｡"_qs));
}

void logAmbiguousPrice(const QString& owner, const Cells& line, const LineContext& item, const LineRules& rules) {
    const QString word = rules.tiered && !owner.isEmpty() ? u"は"_qs : u"が"_qs;
    writeLog(head(owner, line, item, rules) + u"]のデータ"_qs + word + u"複数存在します｡"_qs +
             pricesTaken(line, item, rules) + u"]で更新します。"_qs);
}

} // namespace

void PriceGaps::note(qint16 result, const Cells& line, const LineContext& item, const LineRules& rules) {
    if (result == Found) return;
    ++(result == Missing ? m_missing : m_ambiguous);
    if (m_telling == InLog) (result == Missing ? logMissingPrice : logAmbiguousPrice)(m_owner, line, item, rules);
}

void Pricing::reprice(Composition& composition) {
    for (int row = 1; row <= composition.items().size(); ++row)
        if (composition.item(row).isUsable()) reprice(composition.item(row));
}

void Pricing::reprice(ComposedItem& item) {
    const LineContext context(item.cells, m_tiers);
    for (const LineRules* rules : {&makeRules(), &partsRules()})
        for (Cells& line : item.*rules->lines) {
            qint16 result = Found;
            for (qsizetype tier = 0; tier < rules->tiers(context); ++tier) {
                const Money price = rules->lookUp(line, context, m_tiers.value(tier), result);
                line[rules->unitPrice(tier)] = price.toText();
                line[rules->amount(tier)] = formatWhole(numberText(Val(line.at(rules->suryo)) * price.toDouble()));
            }
            m_gaps.note(result, line, context, *rules);
        }
}
