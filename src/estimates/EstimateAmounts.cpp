#include "estimates/EstimateAmounts.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "price/basPriceLookup.h"

namespace {

qint32 discountOf(const QString& text) { return IsNumericText(text, false) ? ToInt16(Val(text)) : 100; }

// Each line is rounded as it is added.
qint32 totalOf(const QStringList& amounts) {
    qint32 total = 0;
    for (const QString& amount : amounts) total = ToInt(total + Val(amount));
    return total;
}

} // namespace

EstimateAmounts recalcAmounts(const Percentages& percentages, const QStringList& makeElements,
                              const QStringList& completeParts) {
    EstimateAmounts amounts;
    const double tax = IsNumericText(percentages.tax, false) ? Val(percentages.tax) : 0;
    CalcAmounts(totalOf(makeElements), totalOf(completeParts), discountOf(percentages.discount1),
                discountOf(percentages.discount2), discountOf(percentages.discount3), tax, amounts.makeElements,
                amounts.completeParts, amounts.tax, amounts.total);
    return amounts;
}

QString storedDiscount(const QString& text) {
    return IsNumericText(text, false) ? Text::rightTrimmed(text) : u"100"_qs;
}

QString storedTax(const QString& text) { return IsNumericText(text, false) ? Text::rightTrimmed(text) : u"0"_qs; }

Money sumOfAmounts(const QStringList& amounts) {
    Money sum;
    for (const QString& amount : amounts) sum += Money::leadingNumber(amount);
    return sum;
}

qint32 percentageOf(const QString& percent, qint32 remainder) { return ToInt(Val(percent) / 100 * remainder); }
