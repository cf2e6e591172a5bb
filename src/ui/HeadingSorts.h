#pragma once

#include "ui/ListColumn.h"

// What the headings that were clicked sort a list by, the last one first: a second click on it turns it, one on
// another goes before it.
class HeadingSorts {
public:
    // False for a column that sorts nothing.
    bool click(const ListColumns& columns, Grid* grid, int column);
    // The order; empty before the first click.
    SqlTerm sorting(const ListColumns& columns) const;
    // No heading counts any more.
    void clear() { m_keys.clear(); }

private:
    struct Key {
        int column;
        bool upwards;
    };
    QList<Key> m_keys;
};
