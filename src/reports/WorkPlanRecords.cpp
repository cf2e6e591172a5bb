#include "reports/WorkPlanRecords.h"

#include "base/Numbers.h"

namespace {

constexpr qsizetype lawsOnPaper = 3;

} // namespace

ReportRecordset workPlanRecordset() {
    using enum ReportFieldType;
    static const QList<ReportField> fields{
        {u"Order"_qs, Text, 50},       {u"PlanDate"_qs, Date},           {u"PlanCd"_qs, Integer},
        {u"PlanNm"_qs, Text, 4},       {u"Producer"_qs, Text, 50},       {u"CustNm"_qs, Text, 60},
        {u"Ins1"_qs, Text, 20},        {u"Ins2"_qs, Text, 20},           {u"Ins3"_qs, Text, 20},
        {u"EstNm"_qs, Text, 100},      {u"Doctor"_qs, Text, 30},         {u"Biko"_qs, Text, 10},
        {u"EstTotal"_qs, Text, 20},    {u"EstBalance"_qs, Text, 20},     {u"Utikin"_qs, Text, 20},
        {u"AllEstTotal"_qs, Text, 20}, {u"AllUtikinTotal"_qs, Text, 20}, {u"AllEstBalanceTotal"_qs, Text, 20}};
    return ReportRecordset(fields);
}

void WorkPlanRecords::add(const PlannedWork& work) {
    m_records.AddNew();
    m_records.Set(u"Order"_qs, work.Order);
    m_records.Set(u"PlanDate"_qs, work.Date);
    m_records.Set(u"PlanCd"_qs, work.PlanCd);
    m_records.Set(u"PlanNm"_qs, work.PlanNm);
    m_records.Set(u"Producer"_qs, work.Producer);
    m_records.Set(u"CustNm"_qs, work.CustNm);
    m_records.Set(u"EstNm"_qs, work.EstNm);
    m_records.Set(u"Doctor"_qs, work.Doctor);
    addLaws(work);
    if (m_prices) addPrices(work);
}

void WorkPlanRecords::addLaws(const PlannedWork& work) {
    for (qsizetype i = 0; i < qMin(work.claims.size(), lawsOnPaper); ++i)
        m_records.Set(u"Ins"_qs + QString::number(i + 1), m_names.lawName(work.claims.at(i).InsNo));
}

void WorkPlanRecords::addPrices(const PlannedWork& work) {
    PaymentRow row;
    row.estimate.EstSum = work.EstSum;
    row.claims = work.claims;
    m_total += Money::leadingNumber(work.EstSum);
    m_advance += row.advance();
    m_balance += row.balance();
    const auto set = [this](const QString& field, Money amount) {
        m_records.Set(field, formatThousands(amount.toText()));
    };
    set(u"EstTotal"_qs, Money::leadingNumber(work.EstSum));
    set(u"Utikin"_qs, row.advance());
    set(u"EstBalance"_qs, row.balance());
    set(u"AllEstTotal"_qs, m_total);
    set(u"AllUtikinTotal"_qs, m_advance);
    set(u"AllEstBalanceTotal"_qs, m_balance);
}
