#include "customers/EstimateTables.h"

SqlReference customerOfEstimate() { return {u"顧客見積情報"_qs, u"顧客情報"_qs}; }

// They are joined one by one: of a join within a join an engine makes a table first, for each part of the list anew.
QString withNamedTables(const QString& estimates, const SqlTerm& asked) {
    const SqlReference chart{u"顧客見積情報"_qs, u"顧客カルテ"_qs};
    const SqlReference party{chart.other, u"受注先"_qs};
    const SqlReference maker{chart.table, u"製作担当者"_qs};
    QString joined = estimates;
    if (asked.names(chart.other) || asked.names(party.other)) joined = chart.leftJoin(joined);
    if (asked.names(party.other)) joined = party.leftJoin(joined);
    if (asked.names(maker.other)) joined = maker.leftJoin(joined);
    return joined;
}
