#pragma once

#include "composition/Composition.h"
#include "master/MasterRecords.h"

// What a master estimate is composed of, between its grids and its three tables.

// The age tiers in the order of their columns; the last one is shown in sums.
const QStringList& masterTiers();

struct MasterRows {
    QList<clsMstItem> items;
    QList<clsMstMakeElmt> make;
    QList<clsMstCmpltElmt> parts;
};

MasterRows readMasterRows(const QString& ProductId);
// The amounts are those stored; unit prices are not stored and stay empty.
Composition composed(const MasterRows& rows);
// Brings the unit prices of an item's lines from the price list in force. The amounts stay.
void lookUpUnitPrices(ComposedItem& item);
// The items with a 種目 as a save stores them, with their lines.
MasterRows masterRows(const Composition& composition, const QString& ProductId);
