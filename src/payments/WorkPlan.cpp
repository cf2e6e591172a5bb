#include "payments/WorkPlan.h"

#include "base/basCommon.h"
#include "customers/EstimateTables.h"
#include "payments/PaymentSearch.h"

namespace {

constexpr int rowsPerPart = 500;

struct Plan {
    QString clsCsEstimate::*date;
    QString number, name;
};

const QList<Plan>& plans() {
    static const QList<Plan> all{{&clsCsEstimate::TmpSetPlnDate, u"1"_qs, u"仮合"_qs},
                                 {&clsCsEstimate::CmpltPlnDate, u"2"_qs, u"完成"_qs},
                                 {&clsCsEstimate::DelvPlnDate, u"3"_qs, u"納品"_qs}};
    return all;
}

SqlTerm shown(const SqlColumn& column, const QString& name) { return SqlTerm(column).wrapped({}, u" AS "_qs + name); }

SqlTerm columnsOf(const Plan& plan) {
    const auto estimate = [](QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); };
    return SqlTerm::joined({shown(estimate(&clsCsEstimate::EstId), u"見積ID"_qs),
                            shown(gCustomerManager.column(&clsCustomer::CustNm1), u"名前1"_qs),
                            shown(gCustomerManager.column(&clsCustomer::CustNm2), u"名前2"_qs),
                            shown(gChartManager.column(&clsChart::OrderNm), u"受注先"_qs),
                            shown(estimate(plan.date), u"日付"_qs), SqlTerm(plan.number + u" AS 予定コード"_qs, {}),
                            SqlTerm(sqlText(plan.name) + u" AS 予定名称"_qs, {}),
                            shown(estimate(&clsCsEstimate::ProducerNm), u"製作担当者"_qs),
                            shown(estimate(&clsCsEstimate::EstNm), u"見積名称"_qs),
                            shown(gChartManager.column(&clsChart::DoctorNm), u"主治医"_qs),
                            shown(estimate(&clsCsEstimate::EstSum), u"見積金額"_qs)},
                           u", "_qs);
}

SqlTerm conditionOf(const Plan& plan, const WorkPlanSearch& search) {
    return SqlAllOf({ofOrderingParty(search.OrderCd, search.OrderNm),
                     SqlContains(gCsEstimateManager.column(&clsCsEstimate::ProducerNm), search.Producer),
                     SqlPeriod(gCsEstimateManager.column(plan.date), search.DateFrom, search.DateTo)});
}

QString selectOf(const Plan& plan, const WorkPlanSearch& search) {
    const SqlTerm columns = columnsOf(plan), where = conditionOf(plan, search);
    const SqlTerm asked = SqlTerm::joined({columns, where}, {});
    return SqlSelect(u"SELECT "_qs + columns.text() + u" FROM "_qs + withCustomerAndChartTables(asked), where);
}

PlannedWork read(const Recordset& rows) {
    return {rows.value(u"見積ID"_qs),
            rows.value(u"日付"_qs),
            rows.value(u"予定コード"_qs),
            rows.value(u"予定名称"_qs),
            rows.value(u"受注先"_qs),
            rows.value(u"製作担当者"_qs),
            JoinWithSpace(rows.value(u"名前1"_qs), rows.value(u"名前2"_qs)),
            rows.value(u"見積名称"_qs),
            rows.value(u"主治医"_qs),
            rows.value(u"見積金額"_qs),
            {}};
}

QList<PlannedWork> readAll(Connection& connection, const WorkPlanSearch& search) {
    QList<PlannedWork> works;
    Recordset rows = connection.query(workPlanStatement(search));
    while (rows.next()) works << read(rows);
    return works;
}

} // namespace

QString workPlanStatement(const WorkPlanSearch& search) {
    QStringList selects;
    for (const Plan& plan : plans()) selects << selectOf(plan, search);
    const QString first = search.byOrder ? u"[受注先], [日付]"_qs : u"[日付], [受注先]"_qs;
    return selects.join(u" UNION "_qs) + u" ORDER BY "_qs + first +
           u", [製作担当者], [名前1], [名前2], [見積ID], [予定コード]"_qs;
}

void forEachPlanned(Connection& connection, PaymentRows& rows, const WorkPlanSearch& search,
                    const std::function<void(const PlannedWork&)>& take, const std::function<bool()>& pause) {
    const QList<PlannedWork> works = readAll(connection, search);
    for (qsizetype start = 0; start < works.size(); start += rowsPerPart) {
        const QList<PlannedWork> part = works.mid(start, rowsPerPart);
        QStringList ids;
        for (const PlannedWork& work : part) ids << work.EstId;
        ids.removeDuplicates();
        const QHash<QString, QList<clsCsEstAsk>> claims = rows.claimsOf(ids);
        for (PlannedWork work : part) {
            work.claims = claims.value(work.EstId);
            take(work);
        }
        if (pause && !pause()) return;
    }
}
