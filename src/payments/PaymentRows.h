#pragma once

#include "base/Money.h"
#include "estimates/EstimateManagers.h"
#include "reference/ReferenceManagers.h"

#include <functional>

// An estimate as the lists of payments and their papers know it.
struct PaymentRow {
    clsCsEstimate estimate;
    clsCustomer customer;
    clsChart chart;
    QString status;            // the name of its 処理区分
    QList<clsCsEstAsk> claims; // in the order of 請求No

    QString customerName() const;
    Money asked() const;    // what the claims ask for
    Money received() const; // what came in for them
    Money advance() const;  // 領収金額 of claim 1
    Money balance() const;  // the total less all that came in
};

// Reads the estimates of a list from any connection. The claims of a part of it are read together.
class PaymentRows {
public:
    explicit PaymentRows(Connection& connection);

    // The statement that gives the 見積ID of the estimates with customer and chart under a condition, their ids, and
    // how many they are.
    static QString keys(const SqlTerm& where, const SqlTerm& sort);
    QStringList ids(const SqlTerm& where, const SqlTerm& sort);
    qint64 count(const SqlTerm& where);
    // The estimates of these ids in their order; one that has gone is left out. After each part `pause` runs, when
    // given; false ends the walk.
    using Take = std::function<void(const PaymentRow&)>;
    void forEach(const QStringList& ids, const Take& take, const std::function<bool()>& pause = {});

    // The name of a 法別; empty for a number without one.
    QString lawName(const QString& number) const { return m_laws.value(number); }
    // The claims of estimates by their ids.
    QHash<QString, QList<clsCsEstAsk>> claimsOf(const QStringList& ids) { return m_claims.ClaimsOf(ids); }

private:
    Connection& m_connection;
    clsCsEstimateManager m_estimates;
    clsCsEstAskManager m_claims;
    QHash<QString, QString> m_laws, m_statuses; // names by number
};
