#include "payments/PaymentReflection.h"

#include "base/Application.h"
#include "payments/WriteUnchanged.h"

QString paymentState(const clsCsEstimate& estimate) {
    return QStringList{estimate.ProcKbnNo, estimate.PayInFinDate, estimate.EstSum}.join(u'|');
}

QStringList reflectPayments(Connection& connection, const QList<PaymentEntry>& entries, bool receivesTotal) {
    clsCsEstimateManager estimates;
    clsCsEstAskManager claims;
    estimates.Prepare(connection);
    claims.Prepare(connection);
    const auto write = [&](const PaymentEntry& entry, const clsCsEstimate& estimate) {
        if (!entry.isAny()) return;
        const QString date = entry.pays ? entry.Date : QString();
        if (!date.isEmpty() && receivesTotal) claims.UpdPayDate2(entry.EstId, estimate.EstSum);
        estimates.UpdPayDate(entry.EstId, date, QString::number(gUserNo), entry.uncollected);
        if (!date.isEmpty()) claims.UpdPayDate(entry.EstId, date);
    };
    return writeUnchanged(
        connection, entries,
        {&clsCsEstimate::EstId, &clsCsEstimate::ProcKbnNo, &clsCsEstimate::PayInFinDate, &clsCsEstimate::EstSum},
        paymentState, write);
}
