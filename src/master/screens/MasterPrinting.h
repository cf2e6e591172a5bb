#pragma once

#include "db/SqlText.h"
#include "reports/engine/Report.h"

// Prints the master estimates of a condition over `マスタ見積情報` as they are stored, by their code, each on pages of
// its own. That there are none is told; failures rise.
void printMasters(const SqlTerm& where, PrintTo to);
