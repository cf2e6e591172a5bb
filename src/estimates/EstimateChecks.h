#pragma once

#include "estimates/EstimateDraft.h"

// The first row, from 0, with an amount that a save would lose, as no 法別 stands beside it; -1: none. A row whose 法別
// the operator took away since `loaded` goes with its amounts, and so does the amount that a receipt had set.
int rowOfLostAmount(const EstimateDraft& draft, const EstimateDraft& loaded, const QString& receiptSet);
