#pragma once

#include "composition/Composition.h"

struct LineContext;
struct LineRules;

// Tells in the log that a line has no price, or takes one of several. `owner` names what the line belongs to, as in
// "[製品コード=A],[製品ID=1],", empty for a customer's estimate.
void logMissingPrice(const QString& owner, const Cells& line, const LineContext& item, const LineRules& rules);
void logAmbiguousPrice(const QString& owner, const Cells& line, const LineContext& item, const LineRules& rules);

// Gives stored lines the prices of the price tables in force, and tells in the log what was missing or ambiguous.
class Pricing {
public:
    // `tiers` are those of the lines, one or 小人, 中人 and 大人.
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
