#pragma once

#include "composition/Composition.h"
#include "estimates/EstimateRecords.h"

// What an estimate is composed of, between its grids and its three tables.

struct EstimateRows {
    QList<clsCsItem> items;
    QList<clsCsMakeElmt> make;
    QList<clsCsCmpltElmt> parts;
};

// A stored line has no unit price of its own; it becomes what makes the amount of its quantity.
Composition composed(const EstimateRows& rows);
// The usable items with their lines as a save stores them.
EstimateRows rowsOf(const Composition& composition, const QString& EstId);
