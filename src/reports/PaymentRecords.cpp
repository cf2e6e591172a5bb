#include "reports/PaymentRecords.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/basCommon.h"

namespace {

constexpr int claimsOnPaper = 4;
const QString ownMoney = u"99"_qs; // the 法別No of what the customer pays

QString numbered(const QString& field, int number) { return field + QString::number(number); }

void appendNumbered(ReportRecordset& records, const QString& field, ReportFieldType type, int size = 0) {
    for (int number = 1; number <= claimsOnPaper; ++number) records.AppendField(numbered(field, number), type, size);
}

} // namespace

ReportRecordset paymentRecordset() {
    using enum ReportFieldType;
    ReportRecordset records({{u"EstId"_qs, Text, 12},
                             {u"CmpltDate"_qs, Date},
                             {u"ProcKbn"_qs, Text, 10},
                             {u"CustNo"_qs, Text, 12},
                             {u"CustNm"_qs, Text, 60},
                             {u"EstNo"_qs, Text, 12},
                             {u"EstNm"_qs, Text, 100},
                             {u"Order"_qs, Text, 50},
                             {u"Producer"_qs, Text, 50},
                             {u"EstPrice"_qs, Currency},
                             {u"PayDate"_qs, Date},
                             {u"DeliveryDate"_qs, Date},
                             {u"AskPrice"_qs, Currency},
                             {u"PayPrice"_qs, Currency},
                             {u"Utikin"_qs, Currency},
                             {u"EstBalance"_qs, Currency},
                             {u"AllEstTotal"_qs, Currency},
                             {u"AllUtikinTotal"_qs, Currency},
                             {u"AllEstBalanceTotal"_qs, Currency}});
    appendNumbered(records, u"Ins"_qs, Text, 20);
    appendNumbered(records, u"Claim"_qs, Text, 80);
    appendNumbered(records, u"AskPrice"_qs, Currency);
    appendNumbered(records, u"PayPrice"_qs, Currency);
    appendNumbered(records, u"PayDate"_qs, Date);
    appendNumbered(records, u"Biko"_qs, Text, 10);
    return records;
}

void PaymentRecords::add(const PaymentRow& row) {
    m_records.AddNew();
    m_records.Set(u"EstId"_qs, row.estimate.EstId);
    m_records.Set(u"CmpltDate"_qs, row.estimate.CmpltFinDate);
    m_records.Set(u"ProcKbn"_qs, row.status);
    m_records.Set(u"CustNo"_qs, row.customer.CustNo);
    m_records.Set(u"CustNm"_qs, row.customerName());
    m_records.Set(u"EstNo"_qs, row.estimate.EstNo);
    m_records.Set(u"EstNm"_qs, row.estimate.EstNm);
    m_records.Set(u"Order"_qs, row.chart.OrderNm);
    m_records.Set(u"Producer"_qs, row.estimate.ProducerNm);
    m_records.Set(u"EstPrice"_qs, row.estimate.EstSum);
    m_records.Set(u"PayDate"_qs, row.estimate.PayInFinDate);
    m_records.Set(u"DeliveryDate"_qs, row.estimate.DelvFinDate);
    m_records.Set(u"AskPrice"_qs, row.asked().toDouble());
    m_records.Set(u"PayPrice"_qs, row.received().toDouble());
    for (int i = 0; i < qMin<qsizetype>(row.claims.size(), claimsOnPaper); ++i) addClaim(i + 1, row.claims.at(i));
    addTotals(row);
}

void PaymentRecords::addClaim(int number, const clsCsEstAsk& claim) {
    m_records.Set(numbered(u"Ins"_qs, number), m_names.lawName(claim.InsNo));
    m_records.Set(numbered(u"Claim"_qs, number), claim.ClaimNm);
    m_records.Set(numbered(u"AskPrice"_qs, number), claim.AskPrice);
    m_records.Set(numbered(u"PayPrice"_qs, number), claim.PayPrice);
    m_records.Set(numbered(u"PayDate"_qs, number), claim.PayDate);
    m_records.Set(numbered(u"Biko"_qs, number), claim.PayDate.isEmpty() ? u"未入金"_qs : QString());
}

void PaymentRecords::addTotals(const PaymentRow& row) {
    m_total += Money::leadingNumber(row.estimate.EstSum);
    m_advance += row.advance();
    m_balance += row.balance();
    m_records.Set(u"Utikin"_qs, row.advance().toDouble());
    m_records.Set(u"EstBalance"_qs, row.balance().toDouble());
    m_records.Set(u"AllEstTotal"_qs, m_total.toDouble());
    m_records.Set(u"AllUtikinTotal"_qs, m_advance.toDouble());
    m_records.Set(u"AllEstBalanceTotal"_qs, m_balance.toDouble());
}

// --- sales ---

ReportRecordset orderSalesRecordset() {
    using enum ReportFieldType;
    ReportRecordset records({{u"Order"_qs, Text, 50},
                             {u"CmpltDate"_qs, Date},
                             {u"CustNo"_qs, Text, 12},
                             {u"CustNm"_qs, Text, 60},
                             {u"EstNo"_qs, Text, 12},
                             {u"EstNm"_qs, Text, 100},
                             {u"Doctor"_qs, Text, 30},
                             {u"MPayPrice"_qs, Currency},
                             {u"PPayPrice"_qs, Currency},
                             {u"DiffPrice"_qs, Currency},
                             {u"SumPrice"_qs, Currency}});
    appendNumbered(records, u"PIns"_qs, Text, 20);
    for (const QString& kind : {u"M"_qs, u"P"_qs}) {
        appendNumbered(records, kind + u"PayDate"_qs, Date);
        appendNumbered(records, kind + u"PayPrice"_qs, Currency);
    }
    return records;
}

namespace {

// The payments of one estimate that are of one kind.
class SalesColumn {
public:
    SalesColumn(ReportRecordset& records, QString kind) : m_records(records), m_kind(std::move(kind)) {}

    void add(const clsCsEstAsk& claim, const QString& law) {
        if (m_claims == claimsOnPaper) return; // a fifth has no line, and counts nowhere
        ++m_claims;
        if (m_kind == u"P") m_records.Set(numbered(u"PIns"_qs, m_claims), law);
        m_records.Set(numbered(m_kind + u"PayDate"_qs, m_claims), claim.PayDate);
        m_records.Set(numbered(m_kind + u"PayPrice"_qs, m_claims), claim.PayPrice);
        m_sum += Money::leadingNumber(claim.PayPrice);
    }
    Money end() {
        m_records.Set(m_kind + u"PayPrice"_qs, m_sum.toDouble());
        return m_sum;
    }

private:
    ReportRecordset& m_records;
    QString m_kind;
    int m_claims = 0;
    Money m_sum;
};

} // namespace

void addOrderSales(const PaymentRows& names, ReportRecordset& records, const PaymentRow& row) {
    records.AddNew();
    records.Set(u"Order"_qs, row.chart.OrderNm);
    records.Set(u"CmpltDate"_qs, row.estimate.CmpltFinDate);
    records.Set(u"CustNo"_qs, row.customer.CustNo);
    records.Set(u"CustNm"_qs, row.customerName());
    records.Set(u"EstNo"_qs, row.estimate.EstNo);
    records.Set(u"EstNm"_qs, row.estimate.EstNm);
    records.Set(u"Doctor"_qs, row.chart.DoctorNm);
    SalesColumn own(records, u"M"_qs), open(records, u"P"_qs);
    for (const clsCsEstAsk& claim : row.claims)
        if (!claim.InsNo.isEmpty()) (claim.InsNo == ownMoney ? own : open).add(claim, names.lawName(claim.InsNo));
    const Money sum = own.end() + open.end();
    records.Set(u"SumPrice"_qs, sum.toDouble());
    records.Set(u"DiffPrice"_qs, (Money::leadingNumber(row.estimate.EstSum) - sum).toDouble());
}

QString printDay() { return formatDate(dateText(gSysDate), u"yyyy年mm月dd日"_qs) + u" 作成"_qs; }
