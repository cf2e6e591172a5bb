#include "estimates/EstimateAmounts.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "composition/LineRules.h"
#include "price/basPriceLookup.h"

namespace {

// A number as it is stored, in half width; else what stands for none.
QString storedNumber(const QString& text, const QString& whenNone) {
    const QString number = narrowNumber(text).remove(u',').trimmed();
    return isPlainNumber(number) ? number : whenNone;
}

qint32 discountOf(const QString& text) { return ToInt16(Val(storedDiscount(text))); }

} // namespace

EstimateAmounts recalcAmounts(const Percentages& percentages, const QStringList& makeElements,
                              const QStringList& completeParts) {
    EstimateAmounts amounts;
    const double tax = Val(storedTax(percentages.tax));
    CalcAmounts(totalOf(makeElements), totalOf(completeParts), discountOf(percentages.discount1),
                discountOf(percentages.discount2), discountOf(percentages.discount3), tax, amounts.makeElements,
                amounts.completeParts, amounts.tax, amounts.total);
    return amounts;
}

QString storedDiscount(const QString& text) { return storedNumber(text, u"100"_qs); }

QString storedTax(const QString& text) { return storedNumber(text, u"0"_qs); }

Money sumOfAmounts(const QStringList& amounts) {
    Money sum;
    for (const QString& amount : amounts) sum += Money::leadingNumber(amount);
    return sum;
}
