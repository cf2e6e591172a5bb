#include "estimates/MasterTaking.h"

#include "composition/LineRules.h"
#include "composition/Pricing.h"
#include "master/MasterComposition.h"
#include "master/MasterManagers.h"

namespace {

QString amountOf(const clsMstMakeElmt& line, const QString& tier) {
    if (tier == u"小人") return line.PriceSmall;
    return tier == u"中人" ? line.PriceMiddle : line.PriceBig;
}

EstimateRows rowsFor(const MasterRows& master, const QString& tier) {
    EstimateRows rows;
    for (const clsMstItem& item : master.items)
        rows.items << clsCsItem{{},        item.ProductItemNo, item.Item,        item.PickKbn, item.Name,
                                item.Form, item.PickStyle,     item.GrantRepair, {},           {}};
    for (const clsMstMakeElmt& line : master.make)
        rows.make << clsCsMakeElmt{{},         line.ProductItemNo,  line.ElmtNo, line.MakeElmt, line.Materials,
                                   line.Suryo, amountOf(line, tier)};
    for (const clsMstCmpltElmt& line : master.parts)
        rows.parts << clsCsCmpltElmt{{},           line.ProductItemNo, line.ElmtNo, line.PartsNm, line.Form,
                                     line.MakerNm, line.PartsCd,       line.Suryo,  line.Price};
    return rows;
}

// The same items and lines with room for the prices of all tiers.
Composition withAllTiers(const Composition& order) {
    Composition all;
    for (const ComposedItem& item : order.items()) {
        ComposedItem priced{0, item.cells, {}, item.parts};
        for (const Cells& line : item.make)
            priced.make << line.mid(0, MakeLine::UnitPrice) + Cells(2 * masterTiers().size());
        all.add(priced);
    }
    return all;
}

} // namespace

void takeMaster(EstimateDraft& draft, const clsMstEstimate& master, const QString& tier) {
    draft.clearEstimate(EstimateDraft::Clearing::ContentsAndDates);
    draft.estimate.ProductCd = master.ProductCd;
    draft.composition = composed(rowsFor(readMasterRows(master.ProductId), tier));
    draft.takeAmounts();
}

MasterDraft masterOf(const EstimateDraft& draft, bool& incomplete) {
    MasterDraft master = newMaster();
    master.composition = withAllTiers(draft.composition);
    Pricing pricing(masterTiers());
    pricing.reprice(master.composition);
    incomplete = pricing.incomplete();
    return master;
}

bool masterOfCode(const QString& ProductCd, clsMstEstimate& master) {
    QList<clsMstEstimate> found;
    gMstEstimateManager.GetList(found, gMstEstimateManager.equal(&clsMstEstimate::ProductCd, ProductCd),
                                gMstEstimateManager.sorted({&clsMstEstimate::ProductCd}));
    if (found.size() != 1) return false;
    master = found.first();
    return true;
}
