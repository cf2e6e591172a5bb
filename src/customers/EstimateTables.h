#pragma once

#include "db/SqlKeys.h"

// The tables of a list that searches in estimates. A row of an estimate names one row of each other table at the most,
// so that no join adds or drops one, and a table that nothing asks for stays away.

inline const QString estimateTable = u"[顧客見積情報]"_qs;

// The customer of an estimate.
SqlReference customerOfEstimate();
// The estimates, with all that was joined to them before, and those of chart, ordering party, maker and status that a
// term names.
QString withNamedTables(const QString& estimates, const SqlTerm& asked);
// The estimates that have a customer and a chart, with these and the tables that a term names.
QString withCustomerAndChartTables(const SqlTerm& asked);
