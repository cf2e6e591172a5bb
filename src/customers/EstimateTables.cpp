#include "customers/EstimateTables.h"

namespace {

const QString statusTable = u"処理区分"_qs;
const SqlReference chartOfEstimate{u"顧客見積情報"_qs, u"顧客カルテ"_qs};

// Behind the chart.
QString withFurtherTables(QString joined, const SqlTerm& asked) {
    const SqlReference party{chartOfEstimate.other, u"受注先"_qs};
    const SqlReference maker{chartOfEstimate.table, u"製作担当者"_qs};
    if (asked.names(party.other)) joined = party.leftJoin(joined);
    if (asked.names(maker.other)) joined = maker.leftJoin(joined);
    if (asked.names(statusTable))
        joined = u"(%1 LEFT JOIN [%2] ON [%3].[%2] = [%2].[処理区分番号])"_qs.arg(joined, statusTable, maker.table);
    return joined;
}

} // namespace

SqlReference customerOfEstimate() { return {u"顧客見積情報"_qs, u"顧客情報"_qs}; }

// They are joined one by one: of a join within a join an engine makes a table first, for each part of the list anew.
QString withNamedTables(const QString& estimates, const SqlTerm& asked) {
    const bool withChart = asked.names(chartOfEstimate.other) || asked.names(u"受注先"_qs);
    return withFurtherTables(withChart ? chartOfEstimate.leftJoin(estimates) : estimates, asked);
}

QString withCustomerAndChartTables(const SqlTerm& asked) {
    return withFurtherTables(chartOfEstimate.innerJoin(customerOfEstimate().innerJoin(estimateTable)), asked);
}
