#pragma once

#include "base/Money.h"
#include "composition/CellChoices.h"

#include <QMap>

// The item to which lines belong, and the age tiers that they are priced for: the customer's own, or all three.
struct LineContext {
    QString item, pickKbn, name, form, pickStyle;
    QStringList tiers;

    LineContext() = default;
    LineContext(const Cells& itemRow, const QStringList& tiers);

    // Lines can be entered only for an item with 種目 and 採型区分.
    bool isUsable() const { return !item.isEmpty() && !pickKbn.isEmpty(); }
};

// How the cells of a line depend on each other and on the price tables, without any window. A line begins with a quick
// entry and its texts; behind the quantity stand, for each tier, the unit price and the amount.
struct LineRules {
    static constexpr int rowId = 1;
    static constexpr int firstText = 2;

    // What follows from the edit of a text.
    struct Text {
        void (*narrow)(Cells&, const LineContext&); // none: nothing depends on it but the price
        bool needed;                                // without it the line has no price and nothing to its right
        int pricedBy = 0; // the column that alone makes another price of it; 0: every edit does
    };

    ItemLines lines;
    int suryo;
    bool tiered; // its prices differ by tier
    QMap<int, Text> texts;
    CellChoices (*choices)(const Cells& row, int column, const LineContext& context);
    bool (*takeRowId)(Cells& row); // fills the row of the price list; true when it is still to be priced
    bool (*ownsRowId)(const Cells& row, int column, const LineContext& context); // the ID belongs to the texts so far
    Money (*lookUp)(const Cells& row, const LineContext& context, const QString& tier, qint16& result);

    qsizetype tiers(const LineContext& context) const { return tiered ? context.tiers.size() : 1; }
    int unitPrice(qsizetype tier) const { return suryo + 1 + 2 * static_cast<int>(tier); }
    int amount(qsizetype tier) const { return unitPrice(tier) + 1; }
    int columns(qsizetype tiers) const { return unitPrice(tiers); }
    // The amount that a line is added up by, that of the last tier.
    int lastAmount(const Cells& row) const { return static_cast<int>(row.size()) - 1; }

    bool mayEdit(const Cells& row, int column, const LineContext& context) const;
    // What follows from an edit of a cell that held `before`.
    void edited(Cells& row, int column, const QString& before, const LineContext& context) const;
    // A row without its first text or without an amount is no line.
    bool isLine(const Cells& row) const;
    // Each amount becomes its unit price times the quantity.
    void multiply(Cells& row) const;

private:
    void price(Cells& row, const LineContext& context) const;
};

namespace MakeLine {
enum Column { RowId = 1, MakeElmt, Materials, Suryo, UnitPrice, Price, Columns };
} // namespace MakeLine

namespace PartsLine {
enum Column { RowId = 1, PartsNm, Form, PartsCd, MakerNm, Suryo, UnitPrice, Price, Columns };
} // namespace PartsLine

const LineRules& makeRules();
const LineRules& partsRules();

// Unit price times quantity as plain text, not rounded; both count with the number at their start.
QString lineAmount(const QString& unitPrice, const QString& quantity);
// The amounts of lines in whole yen; each is rounded as it is added. Raises an overflow error beyond 32 bits.
qint32 totalOf(const QStringList& amounts);
