#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What an estimate is made of: its items, and under each item the base and make element lines and the complete part
// lines. The estimates of customers and the master estimates are composed alike.

// One row of a grid: its index is the column's number; cell 0 is the row number and plays no part.
using Cells = QStringList;

struct ComposedItem {
    int id = 0;        // tells the item from the others wherever its row moves
    Cells cells;       // see ItemRules
    QList<Cells> make; // see LineRules
    QList<Cells> parts;

    // Only an item with 種目 and 採型区分 can have lines.
    bool isUsable() const;
    bool operator==(const ComposedItem&) const = default;
};

// The lines of an item of one kind.
using ItemLines = QList<Cells> ComposedItem::*;

class Composition {
public:
    // As many items as the grid has rows, empty ones included.
    const QList<ComposedItem>& items() const { return m_items; }
    ComposedItem& item(int row) { return m_items[row - 1]; } // from 1
    const ComposedItem& item(int row) const { return m_items.at(row - 1); }
    // The row of an item, 0 when it is gone.
    int rowOf(int id) const;

    void add(ComposedItem item);
    // Empty rows behind the others, up to so many in all.
    void fillUp(int rows);
    // The rows stand in another order: for each row the number, from 1, that it had before, 0 for an empty one.
    void rearrange(const QList<int>& formerRows);
    // An item that lost its 種目 or 採型区分 keeps no lines.
    void dropUnusableLines();
    void clear();

    bool hasLines() const;
    bool hasUsableItem() const;
    bool operator==(const Composition&) const = default;
    // One column of all lines of a kind.
    QStringList column(ItemLines lines, int column) const;

private:
    QList<ComposedItem> m_items;
    int m_lastId = 0;
};
