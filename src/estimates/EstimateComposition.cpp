#include "estimates/EstimateComposition.h"

#include "base/Numbers.h"
#include "composition/CompositionRecords.h"

namespace {

constexpr int oneTier = 1;

const ItemRecord<clsCsItem>& itemRecord() {
    static const auto record = CompositionRecords::itemRecord(&clsCsItem::EstId, &clsCsItem::EstItemNo);
    return record;
}

const LineRecord<clsCsMakeElmt>& makeRecord() {
    using Row = clsCsMakeElmt;
    static const auto record =
        CompositionRecords::makeRecord(&Row::EstId, &Row::EstItemNo, {{MakeLine::Price, &Row::Price}});
    return record;
}

const LineRecord<clsCsCmpltElmt>& partsRecord() {
    static const auto record = CompositionRecords::partsRecord(&clsCsCmpltElmt::EstId, &clsCsCmpltElmt::EstItemNo);
    return record;
}

QString unitPriceOf(const QString& amount, const QString& quantity) {
    return Val(quantity) == 0 ? amount : numberText(Val(amount) / Val(quantity));
}

} // namespace

Composition composed(const EstimateRows& rows) {
    Composition composition = CompositionRecords::compose(rows.items, itemRecord(), rows.make, makeRecord(), rows.parts,
                                                          partsRecord(), oneTier);
    for (int row = 1; row <= composition.items().size(); ++row)
        for (const LineRules* rules : {&makeRules(), &partsRules()})
            for (Cells& line : composition.item(row).*rules->lines)
                line[rules->unitPrice(0)] = unitPriceOf(line.at(rules->amount(0)), line.at(rules->suryo));
    return composition;
}

EstimateRows rowsOf(const Composition& composition, const QString& EstId) {
    EstimateRows rows{CompositionRecords::itemsOf(composition, itemRecord(), EstId),
                      CompositionRecords::linesOf(composition, &ComposedItem::make, makeRecord(), EstId),
                      CompositionRecords::linesOf(composition, &ComposedItem::parts, partsRecord(), EstId)};
    for (clsCsItem& item : rows.items) item.MkElmTotal = item.CpElmTotal = u"0"_qs;
    return rows;
}
