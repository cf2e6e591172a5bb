#pragma once

#include "reports/ReportClasses.h"

// What the five ordinary documents share: what the report start reads, and how the record set becomes documents.

struct DocumentSetup {
    ReportParameters office;      // the office block by the names of its labels
    int linesPerPage = 0;         // setting No 13
    QString accountKind;          // setting No 42
    bool insurersInHeader = true; // unless the profile's Ins/InsDisp is "off"
};

// What the report start reads from the database and the INI file: office No 1, settings No 13 and 42, Ins/InsDisp.
DocumentSetup readDocumentSetup();
// The same as the layouts show it. The value PrtType, which the screen gives, titles an item sheet by 1 内訳書, by any
// other 明細書.
ReportHeader documentHeader(const DocumentSetup& setup);

// The group of a row of an estimate's documents: its claim and copy.
QString documentGroup(const ReportRecordset& records, int row);
// The longest content of the five documents, and the same for a paper that has but some of their fields.
ReportSample documentSample();
ReportSample documentSample(const ReportRecordset& fields);

// The group that a layout breaks on: "001", 見 or 控, the estimate number.
QString documentGroupKey(int askNo, int copy, const QString& estNo);
