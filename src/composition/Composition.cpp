#include "composition/Composition.h"

#include "composition/ItemRules.h"

#include <algorithm>

bool ComposedItem::isUsable() const { return ItemRules::isUsable(cells); }

int Composition::rowOf(int id) const {
    for (int row = 1; row <= m_items.size(); ++row)
        if (item(row).id == id) return row;
    return 0;
}

void Composition::add(ComposedItem item) {
    item.id = ++m_lastId;
    m_items << std::move(item);
}

void Composition::fillUp(int rows) {
    while (m_items.size() < rows) add({0, Cells(ItemRules::Columns), {}, {}});
}

void Composition::rearrange(const QList<int>& formerRows) {
    const QList<ComposedItem> before = std::exchange(m_items, {});
    for (const int row : formerRows)
        if (row > 0)
            m_items << before.at(row - 1);
        else
            fillUp(static_cast<int>(m_items.size()) + 1);
}

void Composition::dropUnusableLines() {
    for (ComposedItem& item : m_items) {
        if (item.isUsable()) continue;
        item.make.clear();
        item.parts.clear();
    }
}

void Composition::clear() { m_items.clear(); }

bool Composition::hasUsableItem() const {
    return std::any_of(m_items.begin(), m_items.end(), [](const ComposedItem& item) { return item.isUsable(); });
}

bool Composition::hasLines() const {
    return std::any_of(m_items.begin(), m_items.end(),
                       [](const ComposedItem& item) { return !item.make.isEmpty() || !item.parts.isEmpty(); });
}

QStringList Composition::column(ItemLines lines, int column) const {
    QStringList values;
    for (const ComposedItem& item : m_items)
        for (const Cells& line : item.*lines) values << line.at(column);
    return values;
}
