#pragma once

#include "db/SqlText.h"
#include "ui/Grid.h"

// A column of a list: how it looks, and what a click on its heading sorts by.
struct ListColumn {
    GridColumn form;
    QList<SqlColumn> sorting; // none: the heading does nothing
};
using ListColumns = QList<ListColumn>;

inline QList<GridColumn> formsOf(const ListColumns& columns) {
    QList<GridColumn> forms;
    for (const ListColumn& column : columns) forms << column.form;
    return forms;
}

// What the marked column of a list sorts by; nothing without a mark.
inline QList<SqlColumn> markedSorting(const ListColumns& columns, const Grid* grid) {
    return grid->sortColumn() < 0 ? QList<SqlColumn>() : columns.at(grid->sortColumn()).sorting;
}

// Moves or turns the mark as the operator clicks on a heading. False when that column sorts nothing.
inline bool toggleSorting(const ListColumns& columns, Grid* grid, int column) {
    if (columns.at(column).sorting.isEmpty()) return false;
    grid->toggleSortMark(column);
    return true;
}
