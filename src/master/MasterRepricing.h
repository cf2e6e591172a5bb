#pragma once

#include "composition/Pricing.h"
#include "master/MasterComposition.h"

#include <functional>

class Connection;

// Brings master estimates, one after another, to the prices of the price tables. Nothing is written.
class MasterRepricing {
public:
    explicit MasterRepricing(PriceGaps::Telling telling = PriceGaps::InLog) : m_telling(telling) {}

    // Gives the lines of a master estimate their amounts, and its header the sums. A line without a price for 大人
    // keeps 中人 and 小人 of the line before, also of another master estimate. A line of no item raises a subscript
    // error.
    PriceGaps price(clsMstEstimate& master, MasterRows& rows);

private:
    struct Tiers {
        double small = 0, middle = 0, big = 0;
    };

    void price(clsMstMakeElmt& line, const clsMstItem& item, PriceGaps& gaps);
    static void price(clsMstCmpltElmt& line, const clsMstItem& item, PriceGaps& gaps);
    void lookUp(const clsMstItem& item, const clsMstMakeElmt& line, qint16& result);

    PriceGaps::Telling m_telling;
    Tiers m_prices; // of the line looked up last
};

// Brings all master estimates to the price tables in force, as those of a year, and tells in the log what was missing
// or ambiguous. False when something was: the operator is to look at the log. Each is written whole. A failure is told
// and ends the run; what was written before it stays. `progress` gets the estimates done and those in all.
bool UpdateMasterEstimates(Connection& connection, const QString& year,
                           const std::function<void(qint64 done, qint64 all)>& progress = {});
