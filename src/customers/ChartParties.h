#pragma once

#include "customers/clsChartManager.h"

// Brings the ordering party and the doctor of a chart into line with their masters before the chart is stored: a new
// code or name is registered, and of two names of one party the operator chooses. The numbers and the chosen name stand
// in the chart afterwards. False when the operator cancelled; the caller then drops its save.
bool settleParties(clsChart& chart, const QString& orderCd);

// Puts the names that the masters hold today in place of the chart's copies and gives the code of the ordering party.
// A party or doctor that is gone keeps its copy.
QString renewParties(clsChart& chart);

// The code of a chart's ordering party; empty for a chart without one, or when the party is gone.
QString orderCodeOf(const clsChart& chart);
