#pragma once

#include "composition/LineRules.h"

#include <QHash>

#include <optional>

// What the price list says of the lines that are in view, looked up once for each text.
class ListPrices {
public:
    // Nothing for a line that the price list does not have. Failures of the database rise.
    std::optional<Money> of(const LineRules& rules, const Cells& line, const LineContext& context, const QString& tier);
    void clear() { m_known.clear(); }

private:
    QHash<QString, std::optional<Money>> m_known;
};

// What is unusual about an amount of a line, in a few words: that it is 0, or that it was typed over, with what the
// price list makes of it; empty when nothing is. `listed` is the unit price of the list.
QString priceRemark(const LineRules& rules, const Cells& line, qsizetype tier, const std::optional<Money>& listed);
