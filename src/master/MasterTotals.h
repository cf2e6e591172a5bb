#pragma once

#include "master/MasterRecords.h"

#include <QtGlobal>

// What a master estimate costs, in whole yen. It is stored without tax; screen and papers show it with the tax of the
// 大人 amount, which is added to all three tiers.
struct MasterTotals {
    qint32 tax = 0;
    qint32 small = 0, middle = 0, big = 0; // with the tax
};

// The tax rate in force in percent: setting No 2.
double masterTaxRate();
// From the amounts without tax. An amount beyond 32 bits raises an error.
MasterTotals masterTotals(qint32 small, qint32 middle, qint32 big, double rate);
// The same of a stored header; an amount that was never set counts 0.
MasterTotals masterTotals(const clsMstEstimate& stored, double rate);
