#pragma once

#include "estimates/EstimateDraft.h"
#include "master/MasterDraft.h"

// Between an estimate and the master estimates: what is taken out of one, and what becomes of an estimate as one.

// Puts a master estimate into the place of the contents and dates. The amounts are those stored for the tier, 大人 for
// any other text; tax, discounts and what else a master estimate does not hold stay.
void takeMaster(EstimateDraft& draft, const clsMstEstimate& master, const QString& tier);

// The same contents as a new master estimate of the price year in force, each line priced anew for every tier. A line
// that the price list lacks gets 0 and stands in the log; `incomplete` tells that there was one.
MasterDraft masterOf(const EstimateDraft& draft, bool& incomplete);

// The master estimate with a product code; false when there is none, or several.
bool masterOfCode(const QString& ProductCd, clsMstEstimate& master);
