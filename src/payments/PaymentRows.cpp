#include "payments/PaymentRows.h"

#include "base/basCommon.h"
#include "customers/EstimateTables.h"

namespace {

const QString firstClaim = u"1"_qs;

Money sumOf(const QList<clsCsEstAsk>& claims, QString clsCsEstAsk::*amount) {
    Money sum;
    for (const clsCsEstAsk& claim : claims) sum += Money::leadingNumber(claim.*amount);
    return sum;
}

const clsCsEstimateManager::ListFields& fields() {
    static const clsCsEstimateManager::ListFields all{
        gCsEstimateManager.fieldsOf(
            {&clsCsEstimate::EstId, &clsCsEstimate::EstNo, &clsCsEstimate::EstNm, &clsCsEstimate::ProcKbnNo,
             &clsCsEstimate::ProducerNm, &clsCsEstimate::EstSum, &clsCsEstimate::CmpltFinDate,
             &clsCsEstimate::PayInFinDate, &clsCsEstimate::RecvDate, &clsCsEstimate::TmpSetPlnDate,
             &clsCsEstimate::DelvPlnDate, &clsCsEstimate::TickRsvDate, &clsCsEstimate::DelvFinDate,
             &clsCsEstimate::AskFinDate, &clsCsEstimate::Articles, &clsCsEstimate::EquipMent, &clsCsEstimate::Payment,
             &clsCsEstimate::Discount, &clsCsEstimate::Urikake}),
        gCustomerManager.fieldsOf({&clsCustomer::CustNo, &clsCustomer::CustNm1, &clsCustomer::CustNm2}),
        gChartManager.fieldsOf({&clsChart::OrderNm, &clsChart::DoctorNm})};
    return all;
}

QString selectWhole(const SqlTerm& shown, const SqlTerm& where, const SqlTerm& sort = {}) {
    const QString tables = withCustomerAndChartTables(SqlTerm::joined({where, sort}, {}));
    return SqlSelect(u"SELECT "_qs + shown.text() + u" FROM "_qs + tables, where, sort);
}

} // namespace

QString PaymentRow::customerName() const { return JoinWithSpace(customer.CustNm1, customer.CustNm2); }

Money PaymentRow::asked() const { return sumOf(claims, &clsCsEstAsk::AskPrice); }

Money PaymentRow::received() const { return sumOf(claims, &clsCsEstAsk::PayPrice); }

Money PaymentRow::advance() const {
    for (const clsCsEstAsk& claim : claims)
        if (claim.AskNo == firstClaim) return Money::leadingNumber(claim.PayPrice);
    return {};
}

Money PaymentRow::balance() const { return Money::leadingNumber(estimate.EstSum) - received(); }

PaymentRows::PaymentRows(Connection& connection) : m_connection(connection) {
    m_estimates.Prepare(connection);
    m_claims.Prepare(connection);
    clsInsManager laws;
    laws.Prepare(connection);
    QList<clsIns> known;
    laws.GetList(known, {}, laws.byKey());
    for (const clsIns& law : known) m_laws.insert(law.InsNo, law.InsNm);
    clsProcKbnManager statuses;
    statuses.Prepare(connection);
    QList<clsProcKbn> named;
    statuses.GetList(named);
    for (const clsProcKbn& status : named) m_statuses.insert(status.ProcKbnNo, status.ProcKbnNm1);
}

QString PaymentRows::keys(const SqlTerm& where, const SqlTerm& sort) {
    return selectWhole(gCsEstimateManager.byKey(), where, sort);
}

QStringList PaymentRows::ids(const SqlTerm& where, const SqlTerm& sort) {
    Recordset rows = m_connection.query(keys(where, sort));
    QStringList ids;
    while (rows.next()) ids << rows.value(0);
    return ids;
}

qint64 PaymentRows::count(const SqlTerm& where) {
    return m_connection.scalar(selectWhole(SqlTerm(u"COUNT(*)"_qs, {}), where)).toLongLong();
}

void PaymentRows::forEach(const QStringList& ids, const Take& take, const std::function<bool()>& pause) {
    QHash<QString, QList<clsCsEstAsk>> claims;
    m_estimates.ForEachOf(
        ids,
        [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
            take({estimate, customer, chart, m_statuses.value(estimate.ProcKbnNo), claims.value(estimate.EstId)});
        },
        pause, [&](const QStringList& part) { claims = claimsOf(part); }, fields());
}
