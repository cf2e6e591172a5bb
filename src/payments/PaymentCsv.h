#pragma once

#include "base/CsvOutput.h"
#include "payments/PaymentRows.h"

// The lists of payments as lines of a CSV file.
namespace PaymentCsv {

// The fields of an estimate's line.
QStringList columns();
// The line of an estimate, and below it one for each of its claims, whose fields stand from the estimate's name on:
// 法別, 請求先, 請求金額, 領収金額, 入金日, and 未入金 when it has no date.
QList<CsvRow> lines(const PaymentRow& row, const PaymentRows& names);

} // namespace PaymentCsv
