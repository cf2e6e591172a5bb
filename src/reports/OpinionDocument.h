#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "estimates/EstimateRecords.h"
#include "reports/ReportClasses.h"

// The doctor's opinion with the certificate of fitting, which the maker prints for the doctor to sign.

// What `GetCsEstOpinionData` fills.
ReportRecordset opinionRecordset();
// Its one row, of the records of the screen. The treatment starts with the chart's 入通院開始日; the fitting date is
// that of the delivery, or of the planned one.
ReportRecordset opinionRow(const clsCustomer& customer, const clsChart& chart, const clsCsEstimate& estimate);

// The paper by setting 31, its type by setting 32, each with the variant of the installation.
QString opinionClass(const ReportPaperSettings& settings);
// The variants of these papers that the installation has.
QStringList opinionVariants(const clsProfile& profile);
