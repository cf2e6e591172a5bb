#pragma once

#include "composition/Composition.h"

struct LineContext;
struct LineRules;

// The lines that were not found in the price tables, or found under several prices.
class PriceGaps {
public:
    enum Telling { InLog, Counted };

    // `owner` names what the lines belong to, as in "[製品コード=A],[製品ID=1],", empty for a customer's estimate.
    explicit PriceGaps(Telling telling = InLog, QString owner = {}) : m_telling(telling), m_owner(std::move(owner)) {}

    // Takes the result of a line's look-up. One that is no gap counts nothing.
    void note(qint16 result, const Cells& line, const LineContext& item, const LineRules& rules);

    int missing() const { return m_missing; }
    int ambiguous() const { return m_ambiguous; }
    bool isEmpty() const { return m_missing == 0 && m_ambiguous == 0; }

private:
    Telling m_telling;
    QString m_owner;
    int m_missing = 0, m_ambiguous = 0;
};

// Gives stored lines the prices of the price tables in force, and takes down what was missing or ambiguous.
class Pricing {
public:
    // `tiers` are those of the lines, one or 小人, 中人 and 大人.
    explicit Pricing(QStringList tiers, PriceGaps::Telling telling = PriceGaps::InLog)
        : m_tiers(std::move(tiers)), m_gaps(telling) {}

    // Prices every line of the usable items. A line that is not found gets the amount 0, so that the operator sees it.
    void reprice(Composition& composition);
    const PriceGaps& gaps() const { return m_gaps; }
    // True when there was a line that was not found, or found under several prices.
    bool incomplete() const { return !m_gaps.isEmpty(); }

private:
    void reprice(ComposedItem& item);

    QStringList m_tiers;
    PriceGaps m_gaps;
};
