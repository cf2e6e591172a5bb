#pragma once

#include "base/AppError.h"
#include "reports/ReportPage.h"
#include "reports/ReportRecordset.h"
#include "reports/ReportRows.h"
#include "reports/ReportTextFit.h"

using ReportParameters = QHash<QString, QString>;

// A value that a paper has no room for. The paper is not made; others can be.
class ReportValueError : public AppError {
    using AppError::AppError;
};

// What a layout shows besides its own words. While composing, "Page" and "Pages" are filled in, and "PageOf": "1 / 2",
// empty for a document of one page.
struct ReportContent {
    const ReportRecordset& records;
    QStringList groups; // the group of each record; a change ends the group
    ReportRowPlan plan = ReportRowPlan::List;
    ReportParameters parameters{};
    int linesPerPage = 0; // 0: as many as the paper holds
};

// How many pages are made or printed between two looks at what the operator wants.
inline constexpr int pagesPerPause = 10;

// The finished pages of a report; none when `pause`, which runs after each few pages, gives false. An item that names a
// field or parameter which is not there raises an error that tells the layout and the item; digits that do not fit into
// their boxes raise a ReportValueError.
QList<ReportPage> composePages(const ReportLayout& layout, const ReportContent& content, const ReportMeasure& measure,
                               const std::function<bool()>& pause = {});
