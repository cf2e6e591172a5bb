#include "master/MasterRepricing.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "composition/LineRules.h"
#include "composition/Pricing.h"
#include "db/Connection.h"
#include "master/MasterManagers.h"
#include "price/basPriceLookup.h"

namespace {

enum Result : qint16 { Found = 0, Missing = 1, Ambiguous = 2 };

constexpr qint64 subscriptError = 9;

QString times(const QString& suryo, double price) { return numberText(Val(suryo) * price); }

class Repricing {
public:
    void run(clsMstEstimate& master, const QString& year) {
        m_owner = u"[製品コード=%1],[製品ID=%2],"_qs.arg(master.ProductCd, master.ProductId);
        m_items = gMstItemManager.rowsOf({master.ProductId});
        m_totals = {};
        for (clsMstMakeElmt& line : gMstMakeElmtManager.rowsOf({master.ProductId})) reprice(line);
        for (clsMstCmpltElmt& line : gMstCmpltElmtManager.rowsOf({master.ProductId})) reprice(line);
        master.PriceSmall = numberText(m_totals.small);
        master.PriceMiddle = numberText(m_totals.middle);
        master.PriceBig = numberText(m_totals.big);
        master.PriceSedYear = year;
        gMstEstimateManager.SaveData(master);
    }

    bool incomplete() const { return m_incomplete; }

private:
    struct Tiers {
        double small = 0, middle = 0, big = 0;
    };

    const clsMstItem& itemOf(const QString& itemNo) const {
        const qint32 place = ToInt(itemNo) - 1;
        if (place < 0 || place >= m_items.size())
            throw AppError(u"インデックスが有効範囲にありません。"_qs, u"UpdateMasterEstimates"_qs, subscriptError);
        return m_items.at(place);
    }

    static LineContext contextOf(const clsMstItem& item) {
        LineContext context;
        context.item = item.Item;
        context.pickKbn = item.PickKbn;
        context.name = item.Name;
        context.form = item.Form;
        context.pickStyle = item.PickStyle;
        return context;
    }

    void note(qint16 result) { m_incomplete = m_incomplete || result != Found; }

    void reprice(clsMstMakeElmt& line) {
        const LineContext item = contextOf(itemOf(line.ProductItemNo));
        const Cells cells{{}, {}, line.MakeElmt, line.Materials, line.Suryo};
        const qint16 result = lookUp(item, line);
        if (result == Missing) logMissingPrice(m_owner, cells, item, makeRules());
        if (result == Ambiguous) logAmbiguousPrice(m_owner, cells, item, makeRules());
        note(result);
        line.PriceSmall = times(line.Suryo, m_prices.small);
        line.PriceMiddle = times(line.Suryo, m_prices.middle);
        line.PriceBig = times(line.Suryo, m_prices.big);
        gMstMakeElmtManager.SaveData2(line);
        m_totals.small += Val(line.PriceSmall);
        m_totals.middle += Val(line.PriceMiddle);
        m_totals.big += Val(line.PriceBig);
    }

    // A line without a price for 大人 is looked up no further: 中人 and 小人 keep the prices of the line before.
    qint16 lookUp(const LineContext& item, const clsMstMakeElmt& line) {
        qint16 result = Found;
        const auto price = [&](const QString& tier) {
            return GetElementPrice(item.item, item.pickKbn, item.name, item.form, item.pickStyle, line.MakeElmt,
                                   line.Materials, tier, result)
                .toDouble();
        };
        m_prices.big = price(u"大人"_qs);
        if (result != Missing) m_prices.middle = price(u"中人"_qs);
        if (result != Missing) m_prices.small = price(u"小人"_qs);
        return result;
    }

    void reprice(clsMstCmpltElmt& line) {
        const LineContext item = contextOf(itemOf(line.ProductItemNo));
        const Cells cells{{}, {}, line.PartsNm, line.Form, line.PartsCd, line.MakerNm, line.Suryo};
        qint16 result = Found;
        const double price = GetPartsPrice(item.item, line.PartsNm, line.Form, line.PartsCd, result).toDouble();
        if (result == Missing) logMissingPrice(m_owner, cells, item, partsRules());
        if (result == Ambiguous) logAmbiguousPrice(m_owner, cells, item, partsRules());
        note(result);
        line.Price = times(line.Suryo, price);
        gMstCmpltElmtManager.SaveData2(line);
        const double amount = Val(line.Price);
        m_totals.small += amount;
        m_totals.middle += amount;
        m_totals.big += amount;
    }

    QString m_owner;
    QList<clsMstItem> m_items;
    Tiers m_prices; // of the line looked up last
    Tiers m_totals; // of the estimate
    bool m_incomplete = false;
};

bool repriceAll(Connection& connection, const QString& year, const std::function<void(qint64, qint64)>& progress) {
    QList<clsMstEstimate> masters;
    gMstEstimateManager.GetList(masters, {}, u"[製品コード]"_qs);
    writeLog(u"価格更新の開始"_qs);
    Repricing repricing;
    const qint64 all = masters.size();
    if (progress) progress(0, all);
    for (qint64 done = 0; done < all; ++done) {
        Transaction transaction(connection);
        repricing.run(masters[done], year);
        transaction.commit();
        if (progress) progress(done + 1, all);
    }
    writeLog(u"価格更新の終了： "_qs + QString::number(all) + u"件"_qs);
    return !repricing.incomplete();
}

} // namespace

bool UpdateMasterEstimates(Connection& connection, const QString& year,
                           const std::function<void(qint64, qint64)>& progress) {
    bool complete = true;
    guarded([&] { complete = repriceAll(connection, year, progress); });
    return complete;
}
