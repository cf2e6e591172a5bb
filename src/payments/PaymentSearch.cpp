#include "payments/PaymentSearch.h"

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "estimates/EstimateDates.h"
#include "estimates/EstimateManagers.h"

namespace {

SqlTerm of(QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); }

SqlTerm status(const QString& sign, const QString& number) {
    return of(&clsCsEstimate::ProcKbnNo).wrapped({}, u' ' + sign + u' ' + sqlNumber(number));
}

SqlTerm isThere(const SqlTerm& column) { return column.wrapped({}, u" IS NOT NULL"_qs); }

SqlTerm upwards(const SqlTerm& column) { return column; }
SqlTerm downwards(const SqlTerm& column) { return column.wrapped({}, u" DESC"_qs); }

SqlTerm ofStatus(const PaymentSearch& search) {
    if (search.Status.isEmpty()) return {};
    if (!search.allStatuses) return status(u"="_qs, search.Status);
    return SqlAllOf({status(u"<>"_qs, WorkStatus::Uncollected), status(u"<="_qs, search.Status)});
}

} // namespace

const QStringList& excludableLaws() {
    static const QStringList laws{u"14"_qs, u"10"_qs, u"9"_qs, u"11"_qs};
    return laws;
}

QStringList excludedLaws(const QString& ticks) {
    QStringList laws;
    for (int i = 0; i < qMin(ticks.size(), excludableLaws().size()); ++i)
        if (ticks.at(i) == u'1') laws << excludableLaws().at(i);
    return laws;
}

bool meansAllStatuses(const QString& number, const QList<clsProcKbn>& statuses) {
    int largest = 0;
    for (const clsProcKbn& known : statuses)
        if (known.ProcKbnNo != WorkStatus::Uncollected) largest = qMax(largest, known.ProcKbnNo.toInt());
    return largest > 0 && number.toInt() == largest;
}

SqlTerm ofOrderingParty(const QString& code, const QString& name) {
    return SqlAllOf({SqlStartsWith(SqlColumn{u"受注先"_qs, u"受注先コード"_qs}, code),
                     SqlContains(gChartManager.column(&clsChart::OrderNm), name)});
}

// By the customer, not by the estimate: who holds the law drops out with all estimates.
SqlTerm withoutLaws(const QStringList& lawNumbers) {
    if (lawNumbers.isEmpty()) return {};
    QStringList terms;
    for (const QString& law : lawNumbers) terms << u"[顧客保険].[法別No] = "_qs + sqlNumber(law);
    return of(&clsCsEstimate::CustId)
        .wrapped({}, u" NOT IN (SELECT [顧客保険].[顧客ID] FROM [顧客保険] WHERE "_qs + terms.join(u" OR "_qs) + u')');
}

SqlTerm noPayCondition(const PaymentSearch& search) {
    return SqlAllOf({status(u"<>"_qs, WorkStatus::Payment), ofStatus(search),
                     SqlPeriod(gCsEstimateManager.column(&clsCsEstimate::CmpltFinDate), search.DateFrom, search.DateTo),
                     ofOrderingParty(search.OrderCd, search.OrderNm), withoutLaws(excludedLaws(search.ChkIns))});
}

SqlTerm paidCondition(const PaymentSearch& search) {
    return SqlAllOf({status(u"="_qs, WorkStatus::Payment),
                     SqlPeriod(gCsEstimateManager.column(&clsCsEstimate::PayInFinDate), search.DateFrom, search.DateTo),
                     ofOrderingParty(search.OrderCd, search.OrderNm), withoutLaws(excludedLaws(search.ChkIns))});
}

SqlTerm orderSalesCondition(const PaymentSearch& search) {
    return SqlAllOf(
        {status(u"<="_qs, search.Status), isThere(gChartManager.column(&clsChart::OrderNm)),
         ofOrderingParty(search.OrderCd, search.OrderNm),
         SqlPeriod(gCsEstimateManager.column(&clsCsEstimate::CmpltFinDate), search.DateFrom, search.DateTo)});
}

SqlTerm orderSalesOrder() {
    return SqlTerm::joined({gChartManager.column(&clsChart::OrderNm), of(&clsCsEstimate::CmpltFinDate),
                            gCustomerManager.column(&clsCustomer::CustNo), of(&clsCsEstimate::EstNo),
                            gCsEstimateManager.byKey()},
                           u", "_qs);
}

SqlTerm paymentOrder(const SqlTerm& sort) {
    static const SqlTerm own =
        SqlTerm::joined({upwards(of(&clsCsEstimate::CmpltFinDate)), downwards(of(&clsCsEstimate::ProcKbnNo)),
                         upwards(gCustomerManager.column(&clsCustomer::CustNo)), downwards(of(&clsCsEstimate::CustId)),
                         downwards(of(&clsCsEstimate::CustSubId))},
                        u", "_qs);
    return SqlTerm::joined({sort.isEmpty() ? own : sort, gCsEstimateManager.byKey()}, u", "_qs);
}
