#include "estimates/RecentOrders.h"

#include "base/Arrangement.h"
#include "base/basCommon.h"
#include "estimates/EstimateManagers.h"

#include <QJsonArray>

namespace {

const QString name = u"recentOrders"_qs;
const QString key = u"ids"_qs;

QStringList ids() {
    QStringList kept;
    for (const QJsonValue& id : Arrangement::of(name).value(key).toArray())
        if (!id.toString().isEmpty()) kept << id.toString();
    return kept.mid(0, RecentOrders::most);
}

} // namespace

namespace RecentOrders {

void note(const QString& EstId) {
    if (EstId.isEmpty()) return;
    QStringList kept = ids();
    kept.removeAll(EstId);
    kept.prepend(EstId);
    Arrangement::keep(name, {{key, QJsonArray::fromStringList(kept.mid(0, most))}});
}

QList<Order> list() {
    QList<Order> orders;
    const QStringList kept = ids();
    if (kept.isEmpty()) return orders;
    gCsEstimateManager.ForEachOf(kept,
                                 [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart&) {
                                     orders << Order{estimate.EstId, estimate.EstNo,
                                                     JoinWithSpace(customer.CustNm1, customer.CustNm2), estimate.EstNm};
                                 });
    return orders;
}

} // namespace RecentOrders
