#pragma once

#include "base/CsvOutput.h"
#include "payments/PaymentRows.h"
#include "payments/PaymentSearch.h"

// The file of paid sales that the accounting reads: plain fields with tabs between them.
namespace PaidFile {

ListFile form();
// The day of payment, 売上, the ordering party, the customer, the day of delivery in its words, the total.
CsvRow line(const PaymentRow& row);

} // namespace PaidFile
