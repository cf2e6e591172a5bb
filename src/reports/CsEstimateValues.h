#pragma once

#include "reports/CsEstimateDocument.h"

#include <functional>

// What every paper of an estimate tells, whatever its rows are.
namespace CsEstimateValues {

using Values = QList<std::pair<QString, QVariant>>;

extern const QString basicPrice; // the element by which an item has its price

// What all rows of one claim and copy carry: estimate, claim, customer and claim box.
Values header(const CsEstimateSource& source, const clsCsEstAsk& claim, int copy);

// Quantity, unit price and amount of a line. The unit price is left out where the quantity is none.
Values amounts(const QString& suryo, const QString& price);

// 種目, 採型区分, 名称 and 採型採寸 of an item, as its basic price shows them.
Values product(const CsEstimateSource& source, const clsCsItem& item);

// The item of a line by its number; an empty record when there is none.
clsCsItem itemOf(const CsEstimateSource& source, const QString& itemNo);

// A price for any 形式 or 名称 carries a star in its place, which no paper shows.
QString unlessWildcard(const QString& text);

// The percentages of these that change the amount, as they are printed; one that was never entered does not.
QStringList reducingRates(const QStringList& rates);
// "( 小計 × 95/100 )"; empty without a rate.
QString discountWords(const QStringList& rates);

// Runs through all copies of all claims that take part: every claim once, then every claim marked 控.
using EachDocument = std::function<void(const clsCsEstAsk& claim, int copy)>;
void forEachDocument(const CsEstimateSource& source, const EachDocument& each);

void addRow(ReportRecordset& records, const Values& header, const Values& values);

} // namespace CsEstimateValues
