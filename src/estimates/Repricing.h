#pragma once

#include "estimates/EstimateLines.h"
#include "estimates/GridRules.h"

#include <QList>

// Gives every line of the usable items the price of the price tables in force. A line that is not found gets the
// amount 0, so that the operator sees it; missing and ambiguous prices go to the log. True when there was any such line.
bool repriceAll(EstimateLines& lines, const QList<Cells>& items, const QString& ageKbn);
