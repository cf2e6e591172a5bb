#include "estimates/EstimateComposition.h"

#include "base/Numbers.h"
#include "composition/CompositionRecords.h"

namespace {

constexpr int oneTier = 1;

const ItemRecord<clsCsItem>& itemRecord() {
    using Row = clsCsItem;
    static const ItemRecord<Row> record{&Row::EstId,
                                        &Row::EstItemNo,
                                        {{ItemRules::Item, &Row::Item},
                                         {ItemRules::PickKbn, &Row::PickKbn},
                                         {ItemRules::Name, &Row::Name},
                                         {ItemRules::Form, &Row::Form},
                                         {ItemRules::PickStyle, &Row::PickStyle},
                                         {ItemRules::GrantRepair, &Row::GrantRepair}}};
    return record;
}

const LineRecord<clsCsMakeElmt>& makeRecord() {
    using Row = clsCsMakeElmt;
    static const LineRecord<Row> record{&Row::EstId,
                                        &Row::EstItemNo,
                                        &Row::ElmtNo,
                                        {{MakeLine::MakeElmt, &Row::MakeElmt},
                                         {MakeLine::Materials, &Row::Materials},
                                         {MakeLine::Suryo, &Row::Suryo},
                                         {MakeLine::Price, &Row::Price}}};
    return record;
}

const LineRecord<clsCsCmpltElmt>& partsRecord() {
    using Row = clsCsCmpltElmt;
    static const LineRecord<Row> record{&Row::EstId,
                                        &Row::EstItemNo,
                                        &Row::ElmtNo,
                                        {{PartsLine::PartsNm, &Row::PartsNm},
                                         {PartsLine::Form, &Row::Form},
                                         {PartsLine::PartsCd, &Row::PartsCd},
                                         {PartsLine::MakerNm, &Row::MakerNm},
                                         {PartsLine::Suryo, &Row::Suryo},
                                         {PartsLine::Price, &Row::Price}}};
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
