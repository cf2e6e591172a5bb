#include "composition/LineRules.h"

#include "base/Numbers.h"
#include "composition/ItemRules.h"

#include <algorithm>

LineContext::LineContext(const Cells& itemRow, const QStringList& priced)
    : item(itemRow.at(ItemRules::Item)), pickKbn(itemRow.at(ItemRules::PickKbn)), name(itemRow.at(ItemRules::Name)),
      form(itemRow.at(ItemRules::Form)), pickStyle(itemRow.at(ItemRules::PickStyle)), tiers(priced) {}

QString lineAmount(const QString& unitPrice, const QString& quantity) {
    return numberText(Val(unitPrice) * Val(quantity));
}

qint32 totalOf(const QStringList& amounts) {
    qint32 total = 0;
    for (const QString& amount : amounts) total = ToInt(total + Val(amount));
    return total;
}

bool LineRules::mayEdit(const Cells& row, int column, const LineContext& context) const {
    return context.isUsable() && (column < suryo || !row.at(firstText).isEmpty());
}

bool LineRules::isLine(const Cells& row) const {
    return !row.at(firstText).isEmpty() && !row.at(lastAmount(row)).isEmpty();
}

void LineRules::multiply(Cells& row) const {
    for (int unit = unitPrice(0); unit < row.size(); unit += 2) row[unit + 1] = lineAmount(row.at(unit), row.at(suryo));
}

void LineRules::price(Cells& row, const LineContext& context) const {
    const bool lacks = std::any_of(texts.keyBegin(), texts.keyEnd(),
                                   [&](int column) { return texts.value(column).needed && row.at(column).isEmpty(); });
    if (lacks) return clearFrom(row, suryo);
    row[suryo] = u"1"_qs;
    for (qsizetype tier = 0; tier < tiers(context); ++tier) {
        qint16 ignored = 0;
        row[unitPrice(tier)] = row[amount(tier)] = lookUp(row, context, context.tiers.value(tier), ignored).toText();
    }
}

void LineRules::edited(Cells& row, int column, const QString& before, const LineContext& context) const {
    if (row.at(column) == before) return;
    const auto text = texts.constFind(column);
    const bool isText = text != texts.constEnd();
    if (column == suryo) {
        multiply(row);
    } else if (row.at(column).isEmpty() && (column == rowId || (isText && text->needed))) {
        clearFrom(row, column);
    } else if (column == rowId) {
        if (takeRowId(row)) price(row, context);
    } else if (isText) {
        if (!row.at(rowId).isEmpty() && !ownsRowId(row, column, context)) row[rowId].clear();
        const QString pricedBefore = row.at(text->pricedBy);
        if (text->narrow) text->narrow(row, context);
        if (text->pricedBy == 0 || row.at(text->pricedBy) != pricedBefore) price(row, context);
    }
}
