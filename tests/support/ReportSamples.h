#pragma once

#include "reports/DocumentReport.h"

// What the report tests print: a document as an office would have it, and the longest content of every class.
namespace ReportSamples {

// One estimate with its make rows, subtotal, discount and complete parts, for a claim and a copy number.
void addDocument(ReportRecordset& records, int askNo = 1, int copy = 1);
ReportRecordset ordinary();
// Every kind of row of a report class, each text at its full size in wide characters, amounts of nine digits; of a list
// enough rows for more than one page.
ReportRecordset longest(const ReportClass& report);
// Few lines, so that a padded document has a page that goes on and one that ends.
ReportHeader longestHeader(const ReportClass& report, const ReportParameters& given);
// `rows` rows of one document that show their number as quantity.
ReportRecordset rows(int rows);

// Every character of JIS X 0213 that stands alone, in its order.
QString japaneseStandard();

DocumentSetup ordinarySetup(int linesPerPage = 20);

} // namespace ReportSamples
