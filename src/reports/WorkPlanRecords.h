#pragma once

#include "payments/WorkPlan.h"
#include "reports/ReportRecordset.h"

// What the work plan fills: a row for each planned date, amounts as they print, and what all down to it adds up to.
ReportRecordset workPlanRecordset();

class WorkPlanRecords {
public:
    // Without prices the amounts stay empty.
    WorkPlanRecords(const PaymentRows& names, bool prices, ReportRecordset& records)
        : m_names(names), m_prices(prices), m_records(records) {}
    void add(const PlannedWork& work);

private:
    void addLaws(const PlannedWork& work);
    void addPrices(const PlannedWork& work);

    const PaymentRows& m_names;
    bool m_prices;
    ReportRecordset& m_records;
    Money m_total, m_advance, m_balance;
};
