#pragma once

#include "estimates/EstimateRecords.h"

#include <QList>
#include <QStringList>

class Connection;

// What the operator decided about one estimate: paid on a day, the payment taken back (without a day), or never to
// come.
struct PaymentEntry {
    QString EstId;
    bool pays = false;
    bool uncollected = false;
    QString Date;  // "yyyy/mm/dd"
    QString state; // `paymentState` of the estimate that the decision was made about

    bool isAny() const { return pays || uncollected; }
};

// What must not have changed between look and payment.
QString paymentState(const clsCsEstimate& estimate);

// Writes the decisions in one transaction and gives the ids of those estimates that were changed or deleted meanwhile,
// which stay as they are. A payment date goes to the claims, too, that have none. With `receivesTotal` the first claim
// of a paid estimate receives the grand total.
QStringList reflectPayments(Connection& connection, const QList<PaymentEntry>& entries, bool receivesTotal);
