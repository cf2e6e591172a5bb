#pragma once

#include "reports/ReportClasses.h"
#include "reports/ReportComposer.h"

// The row loop that the five ordinary documents share: what the report start read, and how the record set becomes
// pages.

struct DocumentSetup {
    ReportParameters office;      // the office block by the names of its labels
    int linesPerPage = 0;         // setting No 13
    QString accountKind;          // setting No 42
    bool insurersInHeader = true; // unless the profile's Ins/InsDisp is "off"
};

// What the report start reads from the database and the INI file: office No 1, settings No 13 and 42, Ins/InsDisp.
DocumentSetup readDocumentSetup();

// The pages of a list: every record once. The parameter "PrtDate" is the day of printing.
QList<ReportPage> listPages(const ReportLayout& layout, const ReportRecordset& records, const ReportMeasure& measure);

// The group that a layout breaks on: "001", 見 or 控, the estimate number.
QString documentGroupKey(int askNo, int copy, const QString& estNo);

// The pages of one report class. `prtType` 1 titles an item sheet 内訳書, any other 明細書. Lines per page below 1
// raise an error; an empty record set has no pages.
QList<ReportPage> documentPages(const ReportClass& report, const ReportLayout& layout, const ReportRecordset& records,
                                int prtType, const DocumentSetup& setup, const ReportMeasure& measure);
