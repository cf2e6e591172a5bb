#include "master/MasterComposition.h"

#include "composition/CompositionRecords.h"
#include "master/MasterManagers.h"

namespace {

const ItemRecord<clsMstItem>& itemRecord() {
    static const auto record = CompositionRecords::itemRecord(&clsMstItem::ProductId, &clsMstItem::ProductItemNo);
    return record;
}

const LineRecord<clsMstMakeElmt>& makeRecord() {
    using Row = clsMstMakeElmt;
    static const auto record = CompositionRecords::makeRecord(&Row::ProductId, &Row::ProductItemNo,
                                                              {{makeRules().amount(0), &Row::PriceSmall},
                                                               {makeRules().amount(1), &Row::PriceMiddle},
                                                               {makeRules().amount(2), &Row::PriceBig}});
    return record;
}

const LineRecord<clsMstCmpltElmt>& partsRecord() {
    static const auto record =
        CompositionRecords::partsRecord(&clsMstCmpltElmt::ProductId, &clsMstCmpltElmt::ProductItemNo);
    return record;
}

bool hasKind(const ComposedItem& item) { return !item.cells.at(ItemRules::Item).isEmpty(); }

} // namespace

const QStringList& masterTiers() {
    static const QStringList tiers{u"小人"_qs, u"中人"_qs, u"大人"_qs};
    return tiers;
}

MasterRows readMasterRows(const QString& ProductId) {
    return {gMstItemManager.rowsOf({ProductId}), gMstMakeElmtManager.rowsOf({ProductId}),
            gMstCmpltElmtManager.rowsOf({ProductId})};
}

Composition composed(const MasterRows& rows) {
    return CompositionRecords::compose(rows.items, itemRecord(), rows.make, makeRecord(), rows.parts, partsRecord(),
                                       static_cast<int>(masterTiers().size()));
}

void lookUpUnitPrices(ComposedItem& item) {
    const LineContext context(item.cells, masterTiers());
    for (const LineRules* rules : {&makeRules(), &partsRules()})
        for (Cells& line : item.*rules->lines)
            for (qsizetype tier = 0; tier < rules->tiers(context); ++tier) {
                qint16 ignored = 0; // a missing price shows 0
                line[rules->unitPrice(tier)] = rules->lookUp(line, context, context.tiers.at(tier), ignored).toText();
            }
}

MasterRows masterRows(const Composition& composition, const QString& ProductId) {
    return {CompositionRecords::itemsOf(composition, itemRecord(), ProductId, hasKind),
            CompositionRecords::linesOf(composition, &ComposedItem::make, makeRecord(), ProductId, hasKind),
            CompositionRecords::linesOf(composition, &ComposedItem::parts, partsRecord(), ProductId, hasKind)};
}
