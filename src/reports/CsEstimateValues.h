#pragma once

#include "reports/CsEstimateDocument.h"
#include "reports/LineRows.h"

#include <functional>

// What every paper of an estimate tells, whatever its rows are.
namespace CsEstimateValues {

using LineRows::Values;

// What all rows of one claim and copy carry: estimate, claim, customer and claim box.
Values header(const CsEstimateSource& source, const clsCsEstAsk& claim, int copy);

// The percentages of these that change the amount, as they are printed; one that was never entered does not.
QStringList reducingRates(const QStringList& rates);
// "( 小計 × 95/100 )"; empty without a rate.
QString discountWords(const QStringList& rates);

// Runs through all copies of all claims that take part: every claim once, then every claim marked 控.
using EachDocument = std::function<void(const clsCsEstAsk& claim, int copy)>;
void forEachDocument(const CsEstimateSource& source, const EachDocument& each);

void addRow(ReportRecordset& records, const Values& header, const Values& values);

} // namespace CsEstimateValues
