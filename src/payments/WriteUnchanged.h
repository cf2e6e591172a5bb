#pragma once

#include "db/Connection.h"
#include "estimates/EstimateManagers.h"

// What was decided about estimates in a list is written only for those that still are as the list showed them: another
// machine may have been there. An entry has the `EstId` and the `state` that it was made about.

// Writes the entries in one transaction and gives the ids of those whose estimate was changed or deleted meanwhile,
// which stay as they are. `read` tells what a state needs, `stateOf` gives it, `write` writes one entry.
template <class Entry, class State, class Write>
QStringList writeUnchanged(Connection& connection, const QList<Entry>& entries,
                           const QList<QString clsCsEstimate::*>& read, State stateOf, Write write) {
    clsCsEstimateManager estimates;
    estimates.Prepare(connection);
    QStringList ids;
    for (const Entry& entry : entries) ids << entry.EstId;
    Transaction transaction(connection);
    connection.lockForWriting(estimates.table());
    QHash<QString, clsCsEstimate> stored;
    const auto keep = [&stored](const clsCsEstimate& estimate, const clsCustomer&, const clsChart&) {
        stored.insert(estimate.EstId, estimate);
    };
    estimates.ForEachOf(ids, keep, {}, {}, {estimates.fieldsOf(read), {}, {}});
    QStringList changed;
    for (const Entry& entry : entries) {
        const auto estimate = stored.constFind(entry.EstId);
        if (estimate == stored.constEnd() || stateOf(*estimate) != entry.state)
            changed << entry.EstId;
        else
            write(entry, *estimate);
    }
    transaction.commit();
    return changed;
}
