#pragma once

#include "composition/Composition.h"

// Gives stored lines the prices of the price tables in force, and tells in the log what was missing or ambiguous.
class Pricing {
public:
    // `tiers` are those of the lines, one or 小人, 中人 and 大人; `owner` names in the log what the lines belong to, as
    // in
    // "[製品コード=A],[製品ID=1],", empty for a customer's estimate.
    explicit Pricing(QStringList tiers, QString owner = {}) : m_tiers(std::move(tiers)), m_owner(std::move(owner)) {}

    // Prices every line of the usable items. A line that is not found gets the amount 0, so that the operator sees it.
    void reprice(Composition& composition);
    // True when there was a line that was not found, or found under several prices.
    bool incomplete() const { return m_incomplete; }

private:
    void reprice(ComposedItem& item);

    QStringList m_tiers;
    QString m_owner;
    bool m_incomplete = false;
};
