#pragma once

#include "base/Money.h"

#include <QList>
#include <QString>
#include <QStringList>

// The money of an estimate in whole yen. A percentage is the part that stays payable: 95 takes five percent off.

// The percentages as they stand in their boxes.
struct Percentages {
    QString discount1, discount2; // on base and make elements
    QString discount3;            // on complete parts
    QString tax;
};

struct EstimateAmounts {
    qint32 makeElements = 0; // after the discounts
    qint32 completeParts = 0;
    qint32 tax = 0;
    qint32 total = 0;

    qint32 beforeTax() const { return makeElements + completeParts; }
};

// Of the amounts of all lines of all items. A discount that is no number counts as 100, a tax as 0; a line amount
// counts with the number at its start. Raises an overflow error beyond 32 bits.
EstimateAmounts recalcAmounts(const Percentages& percentages, const QStringList& makeElements,
                              const QStringList& completeParts);

// What a save stores for the text of a box: itself when it is a number, else 100, or 0 for the tax.
QString storedDiscount(const QString& text);
QString storedTax(const QString& text);

// The sum of amounts as texts, an empty one counting 0.
Money sumOfAmounts(const QStringList& amounts);
