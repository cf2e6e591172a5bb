#pragma once

#include "base/Money.h"
#include "reports/ReportRecordset.h"
#include "reports/ReportRows.h"

// What the fields of a report's rows add up to, over any run of its rows.
class ReportSums {
public:
    ReportSums(const ReportRecordset& records, const QList<ReportRow>& rows) : m_records(records), m_rows(rows) {}

    // Blank rows and values that were never set count nothing; a run without any value has no sum (null). A text counts
    // by the number that it begins with.
    QVariant over(const QString& field, ReportSpan span);

private:
    // Down to each row, so that a run is one difference.
    struct Running {
        Money sum;
        int values = 0;
    };
    const QList<Running>& running(const QString& field);

    const ReportRecordset& m_records;
    const QList<ReportRow>& m_rows;
    QHash<QString, QList<Running>> m_running;
};
