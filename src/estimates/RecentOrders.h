#pragma once

#include <QList>
#include <QString>

// The estimates that were opened or saved last at this machine. Only their 見積ID is kept; what they are called is read
// from the database, so that no name stays behind on the machine and a deleted one is not offered.
namespace RecentOrders {

struct Order {
    QString EstId, EstNo, Name, EstNm;
};

inline constexpr int most = 10;

// Puts an estimate in front; an empty id does nothing.
void note(const QString& EstId);
// Those that still stand, the last one first.
QList<Order> list();

} // namespace RecentOrders
