#pragma once

#include "estimates/EstimateDraft.h"

// Orders for tests that store many of them.
namespace EstimateSamples {

// A new order of a new customer with so many make element lines and claims. Its name tells both numbers, so that a
// reader of the database can tell whether it is whole.
EstimateDraft order(int lines, int claims);
// "12/3" for 12 lines and 3 claims.
QString nameFor(int lines, int claims);

// An item and a line as their grids hold them, at the price of one piece.
ComposedItem item(const QString& kind, const QString& pickKbn);
Cells makeLine(const QString& element, const QString& materials, const QString& price);

} // namespace EstimateSamples
