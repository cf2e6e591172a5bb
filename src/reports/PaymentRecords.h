#pragma once

#include "payments/PaymentRows.h"
#include "reports/ReportRecordset.h"

// The rows of the papers about payments.

// What the unpaid and the paid list fill: an estimate with its claims, and what all down to it adds up to.
ReportRecordset paymentRecordset();

// Fills it from estimates one by one.
class PaymentRecords {
public:
    PaymentRecords(const PaymentRows& names, ReportRecordset& records) : m_names(names), m_records(records) {}
    void add(const PaymentRow& row);

private:
    void addClaim(int number, const clsCsEstAsk& claim);
    void addTotals(const PaymentRow& row);

    const PaymentRows& m_names;
    ReportRecordset& m_records;
    Money m_total, m_advance, m_balance;
};

// What the sales list fills: an estimate with its payments parted into those of public money and the customer's own.
ReportRecordset orderSalesRecordset();
void addOrderSales(const PaymentRows& names, ReportRecordset& records, const PaymentRow& row);

// The day of printing, as the heads of these papers tell it.
QString printDay();
