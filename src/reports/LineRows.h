#pragma once

#include "estimates/EstimateRecords.h"

#include <QHash>
#include <QList>
#include <QVariant>

#include <utility>

// What the lines of an estimate fill on a paper, by the fields of its record set.
namespace LineRows {

using Values = QList<std::pair<QString, QVariant>>;

// A base price shows the item that it belongs to; `pickStyles` holds the display words by 採型採寸.
Values makeLine(const clsCsMakeElmt& line, const QList<clsCsItem>& items, const QHash<QString, QString>& pickStyles);
// The row above the parts.
Values partsHead();
Values partsLine(const clsCsCmpltElmt& line);
Values subtotal(double amount);

} // namespace LineRows
