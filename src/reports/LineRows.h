#pragma once

#include "estimates/EstimateRecords.h"

#include <QHash>
#include <QList>
#include <QVariant>

#include <utility>

// What the lines of an estimate fill on a paper, by the fields of its record set.
namespace LineRows {

using Values = QList<std::pair<QString, QVariant>>;

extern const QString basicPrice; // the element by which an item has its price

// Quantity, unit price and amount of a line. The unit price is left out where the quantity is none.
Values amounts(const QString& suryo, const QString& price);
// 種目, 採型区分, 名称 and 採型採寸 of an item, as its basic price shows them; `pickStyles` holds the display words by
// 採型採寸.
Values product(const clsCsItem& item, const QHash<QString, QString>& pickStyles);
// The item of a line by its number; an empty record when there is none.
clsCsItem itemOf(const QList<clsCsItem>& items, const QString& itemNo);
// A price for any 形式 or 名称 carries a star in its place, which no paper shows.
QString unlessWildcard(const QString& text);

// A base price shows the item that it belongs to.
Values makeLine(const clsCsMakeElmt& line, const QList<clsCsItem>& items, const QHash<QString, QString>& pickStyles);
// The row above the parts.
Values partsHead();
Values partsLine(const clsCsCmpltElmt& line);
Values subtotal(double amount);

} // namespace LineRows
