#include "estimates/Repricing.h"

#include "base/basCommon.h"
#include "base/clsLogger.h"
#include "price/basPriceLookup.h"

namespace {

enum Result : qint16 { Found = 0, Missing = 1, Ambiguous = 2 };

Money elementPrice(const LineContext& item, const clsCsMakeElmt& line, const QString& ageKbn, qint16& result) {
    return GetElementPrice(item.item, item.pickKbn, item.name, item.form, item.pickStyle, line.MakeElmt, line.Materials,
                           ageKbn, result);
}

QString tierPrice(const LineContext& item, const clsCsMakeElmt& line, const QString& ageKbn) {
    qint16 ignored = 0;
    return elementPrice(item, line, ageKbn, ignored).toText();
}

void logElement(const LineContext& item, const clsCsMakeElmt& line, qint16 result) {
    const QString head =
        u"価格マスタに[種目=%1],[採型区分=%2],[名称=%3],[型式=%4],[採型採寸=%5],[製作要素=%6],[原材料等=%7"_qs.arg(
            item.item, item.pickKbn, item.name, item.form, item.pickStyle, line.MakeElmt, line.Materials);
    if (result == Missing) {
        writeLog(head + u"]のデータは存在しません｡"_qs);
        return;
    }
    writeLog(head + u"]のデータが複数存在します｡"_qs +
             u"[大人価格：%1],[中人価格：%2],[小人価格：%3]で更新します。"_qs.arg(tierPrice(item, line, u"大人"_qs),
                                                                                  tierPrice(item, line, u"中人"_qs),
                                                                                  tierPrice(item, line, u"小人"_qs)));
}

void logPart(const LineContext& item, const clsCsCmpltElmt& line, const Money& price, qint16 result) {
    const QString head = u"価格マスタに[種目=%1],[部品名=%2],[型式=%3],[部品コード=%4"_qs.arg(item.item, line.PartsNm,
                                                                                              line.Form, line.PartsCd);
    if (result == Missing)
        writeLog(head + u"]のデータが存在しません｡"_qs);
    else
        writeLog(head + u"]のデータが複数存在します｡[価格："_qs + price.toText() + u"]で更新します。"_qs);
}

template <class Line> void takePrice(Line& line, const Money& price) {
    line.UnitPrice = price.toText();
    line.Price = formatWhole(numberText(Val(line.Suryo) * price.toDouble()));
}

} // namespace

bool repriceAll(EstimateLines& lines, const QList<Cells>& items, const QString& ageKbn) {
    bool incomplete = false;
    for (int number = 1; number <= items.size(); ++number) {
        if (!ItemGrid::isUsable(items.at(number - 1))) continue;
        const LineContext item = ItemGrid::context(items.at(number - 1), ageKbn);
        QList<clsCsMakeElmt> elements = lines.make.of(number);
        for (clsCsMakeElmt& line : elements) {
            qint16 result = Found;
            takePrice(line, elementPrice(item, line, ageKbn, result));
            if (result != Found) logElement(item, line, result);
            incomplete = incomplete || result != Found;
        }
        lines.make.replace(number, elements);
        QList<clsCsCmpltElmt> parts = lines.parts.of(number);
        for (clsCsCmpltElmt& line : parts) {
            qint16 result = Found;
            const Money price = GetPartsPrice(item.item, line.PartsNm, line.Form, line.PartsCd, result);
            takePrice(line, price);
            if (result != Found) logPart(item, line, price, result);
            incomplete = incomplete || result != Found;
        }
        lines.parts.replace(number, parts);
    }
    return incomplete;
}
