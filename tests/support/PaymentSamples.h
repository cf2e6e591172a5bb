#pragma once

#include "db/Connection.h"

// Many orders for tests and benchmarks of payments.
namespace PaymentSamples {

// Adds so many random orders of the sample office's customers: any status, dates in 2026 or none, up to six claims that
// are paid in part. The same seed gives the same orders, whose ids begin with "R".
void addOrders(Connection& connection, int count, quint32 seed = 1);
// The id of one of them, from 1.
QString idOf(int order);
// Takes all payments back, those of the sample, too.
void makeAllUnpaid(Connection& connection);

} // namespace PaymentSamples
