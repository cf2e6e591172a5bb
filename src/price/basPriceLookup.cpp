#include "price/basPriceLookup.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "price/PriceManagers.h"

#include <cmath>
#include <optional>

namespace {

const QString basePrice = u"基本価格"_qs;
const QString addition = u"加算"_qs;
const QString adjustment = u"調整加算"_qs;

bool isShellOrFrame(const QString& item) {
    static const QStringList items{u"殻構造義手"_qs, u"殻構造義足"_qs, u"骨格構造義手"_qs, u"骨格構造義足"_qs};
    return items.contains(item);
}

bool isManualWheelchair(const QString& item) { return item == u"車いす" || item == u"車椅子"; }

// The description of a line, as one value for the steps below.
struct Line {
    QString item, pickKbn, name, form, pickStyle, makeElmt, materials;

    bool isBase() const { return makeElmt == basePrice; }
    bool isAdjustment() const { return makeElmt == addition && isWheelchair(item) && materials.left(4) == adjustment; }
};

bool isComplete(const Line& line) {
    if (line.makeElmt.isEmpty() || line.item.isEmpty() || line.pickKbn.isEmpty()) return false;
    const bool named = !line.name.isEmpty() && !line.form.isEmpty();
    if (line.isBase()) return named && !(isManualWheelchair(line.item) && line.materials.isEmpty());
    if (line.materials.isEmpty()) return false;
    return !(isWheelchair(line.item) && line.makeElmt == addition) || named;
}

// The `適用` of a wheelchair line; nothing when its material names none.
std::optional<int> manualApply(const Line& line) {
    if (line.isBase()) {
        if (line.materials == u"オーダーメイド") return 1;
        if (line.materials == u"レディメイド") return 2;
        return std::nullopt;
    }
    if (line.materials == u"調整加算（オーダーメイド）") return 3;
    if (line.materials == u"調整加算（レディメイド）") return 4;
    return std::nullopt;
}

// The filter on `価格基本`; nothing when the line cannot be looked up there.
std::optional<SqlTerm> baseFilter(const Line& line) {
    using Row = clsPriceBase;
    const auto has = [](QString Row::*member, const QString& value) { return gPriceBaseManager.equal(member, value); };
    const SqlTerm item = has(&Row::Item, line.item);
    if (isShellOrFrame(line.item))
        return SqlAllOf({item, has(&Row::PickKbn, line.pickKbn), has(&Row::Form, line.form)});
    if (hasPickStyle(line.item)) {
        const qint32 style = ToInt(Val(line.pickStyle));
        if (style == 0) return std::nullopt;
        return SqlAllOf({item, has(&Row::PickKbn, line.pickKbn), has(&Row::PickStyle, QString::number(style))});
    }
    const SqlTerm other = SqlAllOf({item, has(&Row::Name, line.name), has(&Row::Form, line.form)});
    const auto apply = isManualWheelchair(line.item) ? manualApply(line) : std::optional(line.isAdjustment() ? 3 : 0);
    if (!apply) return std::nullopt;
    return *apply == 0 ? other : SqlAllOf({other, has(&Row::Apply, QString::number(*apply))});
}

// The price of the first row; rows of several that differ set the code. The comparison passes over prices of 0 at the
// head of the list, and looks at one column whatever the tier asked for.
template <class Record, class Compared, class Asked>
Money firstPrice(const QList<Record>& rows, Compared compared, Asked asked, qint16& ResultCode) {
    if (rows.isEmpty()) {
        ResultCode = 1;
        return {};
    }
    if (rows.size() > 1) {
        qint32 remembered = 0;
        for (const Record& row : rows) {
            const qint32 price = ToInt(row.*compared);
            if (remembered == 0) {
                remembered = price;
            } else if (price != remembered) {
                ResultCode = 2;
                break;
            }
        }
    }
    return Money::parse(rows.first().*asked);
}

template <class Record> QString Record::*tierColumn(const QString& ageKbn) {
    if (ageKbn == u"小人") return &Record::NewPrice3;
    return ageKbn == u"中人" ? &Record::NewPrice2 : &Record::NewPrice1;
}

template <class Record>
Money tieredPrice(PriceManager<Record>& manager, const SqlTerm& filter, const QString& ageKbn, qint16& ResultCode) {
    QList<Record> rows;
    manager.GetList(rows, filter, u"[ID]"_qs);
    return firstPrice(rows, &Record::NewPrice1, tierColumn<Record>(ageKbn), ResultCode);
}

template <class Record> Money singlePrice(PriceManager<Record>& manager, const SqlTerm& filter, qint16& ResultCode) {
    QList<Record> rows;
    manager.GetList(rows, filter, u"[ID]"_qs);
    return firstPrice(rows, &Record::NewPrice, &Record::NewPrice, ResultCode);
}

} // namespace

bool hasPickStyle(const QString& Item) {
    static const QStringList items{u"下肢装具"_qs, u"靴型装具"_qs, u"体幹装具"_qs, u"上肢装具"_qs, u"座位保持装置"_qs};
    return items.contains(Item);
}

bool isWheelchair(const QString& Item) {
    return isManualWheelchair(Item) || Item == u"電動車いす" || Item == u"電動車椅子";
}

Money GetElementPrice(const QString& Item, const QString& PickKbn, const QString& Name, const QString& Form,
                      const QString& PickStyle, const QString& MakeElmt, const QString& Materials,
                      const QString& AgeKbn, qint16& ResultCode) {
    const Line line{Item, PickKbn, Name, Form, PickStyle, MakeElmt, Materials};
    if (!isComplete(line)) return {};
    if (line.isBase() || line.isAdjustment()) {
        const auto filter = baseFilter(line);
        return filter ? tieredPrice(gPriceBaseManager, *filter, AgeKbn, ResultCode) : Money();
    }
    if (MakeElmt == addition)
        return singlePrice(gPriceAddManager,
                           SqlAllOf({gPriceAddManager.equal(&clsPriceAdd::Item, Item),
                                     gPriceAddManager.equal(&clsPriceAdd::AddElmt, Materials),
                                     gPriceAddManager.equal(&clsPriceAdd::PickKbn, PickKbn)}),
                           ResultCode);
    return tieredPrice(gPriceElmtManager,
                       SqlAllOf({gPriceElmtManager.equal(&clsPriceElmt::Item, Item),
                                 gPriceElmtManager.equal(&clsPriceElmt::MakeElmt, MakeElmt),
                                 gPriceElmtManager.equal(&clsPriceElmt::Materials, Materials),
                                 gPriceElmtManager.equal(&clsPriceElmt::PickKbn, PickKbn)}),
                       AgeKbn, ResultCode);
}

Money GetPartsPrice(const QString& Item, const QString& PartsNm, const QString& Form, const QString& PartsCd,
                    qint16& ResultCode) {
    const QString filter =
        u"[種目] = %1 AND [名称] = %2 AND [形式] = %3 AND IIF(ISNULL([部品コード]), '', [部品コード]) = %4 AND [使用設定] = 1"_qs
            .arg(sqlText(Item), sqlText(PartsNm), sqlText(Form), sqlText(PartsCd));
    return singlePrice(gPricePartsManager, filter, ResultCode);
}

void CalcAmounts(qint32 MkElmTotal, qint32 CpElmTotal, qint32 Discount1, qint32 Discount2, qint32 Discount3, double Tax,
                 qint32& MkElmAmount, qint32& CpElmAmount, qint32& TaxAmount, qint32& Total) {
    MkElmAmount = ToInt((Discount1 / 100.0 * MkElmTotal) * (Discount2 / 100.0));
    CpElmAmount = ToInt(Discount3 / 100.0 * CpElmTotal);
    const qint32 sum = ToInt(static_cast<double>(MkElmAmount) + CpElmAmount);
    TaxAmount = ToInt(std::floor(ToInt(sum * Tax) / 100.0));
    Total = ToInt(static_cast<double>(sum) + TaxAmount);
}
