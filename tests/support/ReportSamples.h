#pragma once

#include "reports/DocumentReport.h"

// Documents for the report tests: one as an office would print it, and one whose texts are all as long as their fields.
namespace ReportSamples {

// One estimate with its make rows, subtotal, discount and complete parts, for a claim and a copy number.
void addDocument(ReportRecordset& records, int askNo = 1, int copy = 1);
ReportRecordset ordinary();
// Every kind of row that the data method makes, each text at its full size in wide characters, amounts of nine digits.
ReportRecordset longest();
// The same for the estimate data list: enough rows for more than one page.
ReportRecordset longestList();
// `rows` rows of one document that show their number as quantity.
ReportRecordset rows(int rows);

DocumentSetup ordinarySetup(int linesPerPage = 20);
// Few lines, so that the longest document has a page that goes on and one that ends.
DocumentSetup longestSetup(int linesPerPage = 3);

} // namespace ReportSamples
