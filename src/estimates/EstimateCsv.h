#pragma once

#include "base/CsvOutput.h"
#include "customers/clsCustomerManager.h"
#include "estimates/EstimateRecords.h"

// The estimates of a list as lines of a CSV file.
namespace EstimateCsv {

QStringList columns();
// An estimate and its customer, in the order of the columns; told by the estimate's number and the person.
CsvRow row(const clsCsEstimate& estimate, const clsCustomer& customer);

} // namespace EstimateCsv
