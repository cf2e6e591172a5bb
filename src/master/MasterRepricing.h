#pragma once

#include <QString>

#include <functional>

class Connection;

// Brings all master estimates to the price tables in force, as those of a year, and tells in the log what was missing
// or ambiguous. False when something was: the operator is to look at the log. Each is written whole. A failure is told
// and ends the run; what was written before it stays. `progress` gets the estimates done and those in all.
bool UpdateMasterEstimates(Connection& connection, const QString& year,
                           const std::function<void(qint64 done, qint64 all)>& progress = {});
