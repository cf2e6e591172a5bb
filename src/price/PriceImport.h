#pragma once

#include "price/PriceTable.h"

#include <functional>

// Fills a price table of a price database, which it is bound to, from the year's file. `ownRows` are those of a user,
// which the counts shown include. `progress` is called after each line with the rows so far and all of them.
//
// A line with another number of fields is told and then taken as far as it goes. A failure is logged with its line and
// told, and ends this file; the rows ahead of it stay.
void importPriceFile(PriceTable& table, Connection& prices, const QString& path, qint64 ownRows,
                     const std::function<void(qint64 done, qint64 all)>& progress);
