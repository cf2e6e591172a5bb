#include "master/MasterRepricing.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "composition/LineRules.h"
#include "db/Connection.h"
#include "master/MasterManagers.h"
#include "price/basPriceLookup.h"

namespace {

constexpr qint64 subscriptError = 9;
constexpr qint16 missing = 1;

QString times(const QString& suryo, double price) { return numberText(Val(suryo) * price); }

const clsMstItem& itemOf(const MasterRows& rows, const QString& itemNo) {
    const qint32 place = ToInt(itemNo) - 1;
    if (place < 0 || place >= rows.items.size())
        throw AppError(u"インデックスが有効範囲にありません。"_qs, u"UpdateMasterEstimates"_qs, subscriptError);
    return rows.items.at(place);
}

LineContext contextOf(const clsMstItem& item) {
    LineContext context;
    context.item = item.Item;
    context.pickKbn = item.PickKbn;
    context.name = item.Name;
    context.form = item.Form;
    context.pickStyle = item.PickStyle;
    return context;
}

template <class Line> double sum(const QList<Line>& lines, QString Line::*amount) {
    double sum = 0;
    for (const Line& line : lines) sum += Val(line.*amount);
    return sum;
}

// A part costs every tier the same.
void addUp(clsMstEstimate& master, const MasterRows& rows) {
    const double parts = sum(rows.parts, &clsMstCmpltElmt::Price);
    master.PriceSmall = numberText(sum(rows.make, &clsMstMakeElmt::PriceSmall) + parts);
    master.PriceMiddle = numberText(sum(rows.make, &clsMstMakeElmt::PriceMiddle) + parts);
    master.PriceBig = numberText(sum(rows.make, &clsMstMakeElmt::PriceBig) + parts);
}

void store(clsMstEstimate& master, const MasterRows& rows) {
    for (const clsMstMakeElmt& line : rows.make) gMstMakeElmtManager.SaveData2(line);
    for (const clsMstCmpltElmt& line : rows.parts) gMstCmpltElmtManager.SaveData2(line);
    gMstEstimateManager.SaveData(master);
}

bool repriceAll(Connection& connection, const QString& year, const std::function<void(qint64, qint64)>& progress) {
    QList<clsMstEstimate> masters;
    gMstEstimateManager.GetList(masters, {}, u"[製品コード]"_qs);
    writeLog(u"価格更新の開始"_qs);
    MasterRepricing repricing;
    bool complete = true;
    const qint64 all = masters.size();
    if (progress) progress(0, all);
    for (qint64 done = 0; done < all; ++done) {
        clsMstEstimate& master = masters[done];
        Transaction transaction(connection);
        MasterRows rows = readMasterRows(master.ProductId);
        complete = repricing.price(master, rows).isEmpty() && complete;
        master.PriceSedYear = year;
        store(master, rows);
        transaction.commit();
        if (progress) progress(done + 1, all);
    }
    writeLog(u"価格更新の終了： "_qs + QString::number(all) + u"件"_qs);
    return complete;
}

} // namespace

PriceGaps MasterRepricing::price(clsMstEstimate& master, MasterRows& rows) {
    PriceGaps gaps(m_telling, u"[製品コード=%1],[製品ID=%2],"_qs.arg(master.ProductCd, master.ProductId));
    for (clsMstMakeElmt& line : rows.make) price(line, itemOf(rows, line.ProductItemNo), gaps);
    for (clsMstCmpltElmt& line : rows.parts) price(line, itemOf(rows, line.ProductItemNo), gaps);
    addUp(master, rows);
    return gaps;
}

void MasterRepricing::price(clsMstMakeElmt& line, const clsMstItem& item, PriceGaps& gaps) {
    qint16 result = 0;
    lookUp(item, line, result);
    gaps.note(result, Cells{{}, {}, line.MakeElmt, line.Materials, line.Suryo}, contextOf(item), makeRules());
    line.PriceSmall = times(line.Suryo, m_prices.small);
    line.PriceMiddle = times(line.Suryo, m_prices.middle);
    line.PriceBig = times(line.Suryo, m_prices.big);
}

// A line without a price for 大人 is looked up no further.
void MasterRepricing::lookUp(const clsMstItem& item, const clsMstMakeElmt& line, qint16& result) {
    const auto price = [&](const QString& tier) {
        return GetElementPrice(item.Item, item.PickKbn, item.Name, item.Form, item.PickStyle, line.MakeElmt,
                               line.Materials, tier, result)
            .toDouble();
    };
    m_prices.big = price(u"大人"_qs);
    if (result != missing) m_prices.middle = price(u"中人"_qs);
    if (result != missing) m_prices.small = price(u"小人"_qs);
}

void MasterRepricing::price(clsMstCmpltElmt& line, const clsMstItem& item, PriceGaps& gaps) {
    qint16 result = 0;
    const double price = GetPartsPrice(item.Item, line.PartsNm, line.Form, line.PartsCd, result).toDouble();
    gaps.note(result, Cells{{}, {}, line.PartsNm, line.Form, line.PartsCd, line.MakerNm, line.Suryo}, contextOf(item),
              partsRules());
    line.Price = times(line.Suryo, price);
}

bool UpdateMasterEstimates(Connection& connection, const QString& year,
                           const std::function<void(qint64, qint64)>& progress) {
    bool complete = true;
    guarded([&] { complete = repriceAll(connection, year, progress); });
    return complete;
}
