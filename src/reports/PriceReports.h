#pragma once

#include "operations/PriceComparison.h"
#include "reports/ReportRecordset.h"

// What the papers of two price lists show.
ReportRecordset priceChangeRows(const QList<PriceChange>& changes);
ReportRecordset amountMoveRows(const QList<AmountMove>& moves);
