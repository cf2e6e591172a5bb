#pragma once

#include "reports/ReportPage.h"
#include "reports/ReportRecordset.h"
#include "reports/ReportRows.h"
#include "reports/ReportTextFit.h"

using ReportParameters = QHash<QString, QString>;

// What a layout shows besides its own words. The parameter "PageOf" is filled while composing: "1 / 2", empty for a
// document of one page.
struct ReportContent {
    const ReportRecordset& records;
    QStringList groups; // the group of each record; a change ends the group
    QList<ReportRow> rows;
    ReportParameters parameters;
    int linesPerPage = 0; // 0: as many as the paper holds
};

// The finished pages of a report. A control that names a field or parameter which is not there raises an error.
QList<ReportPage> composePages(const ReportLayout& layout, const ReportContent& content, const ReportMeasure& measure);
