#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// How the cells of the three estimate grids depend on each other and on the price tables, without any window. A row is
// the list of its cells, its index the column's number; cell 0 is the row number and plays no part.
using Cells = QStringList;

// One entry of a cell's drop-down list.
struct CellChoice {
    QString value;
    QString shown;
    QString detail; // what the open list tells besides
};
using CellChoices = QList<CellChoice>;

// The item to which the element lines belong, and the customer's age tier.
struct LineContext {
    QString item, pickKbn, name, form, pickStyle;
    QString ageKbn;

    // Lines can be entered only for an item with 種目 and 採型区分.
    bool isUsable() const { return !item.isEmpty() && !pickKbn.isEmpty(); }
};

namespace ItemGrid {
enum Column { RowId = 1, Item, PickKbn, Name, Form, PickStyle, GrantRepair, Columns };

CellChoices choices(const Cells& row, int column);
// What follows from an edit of a cell that held `before`: narrowing, clearing, and the filling of single choices.
void edited(Cells& row, int column, const QString& before);
LineContext context(const Cells& row, const QString& ageKbn);
bool isUsable(const Cells& row);
} // namespace ItemGrid

namespace MakeGrid {
enum Column { RowId = 1, MakeElmt, Materials, Suryo, UnitPrice, Price, Columns };

bool mayEdit(const Cells& row, int column, const LineContext& context);
CellChoices choices(const Cells& row, int column, const LineContext& context);
void edited(Cells& row, int column, const QString& before, const LineContext& context);
} // namespace MakeGrid

namespace PartsGrid {
enum Column { RowId = 1, PartsNm, Form, PartsCd, MakerNm, Suryo, UnitPrice, Price, Columns };

bool mayEdit(const Cells& row, int column, const LineContext& context);
CellChoices choices(const Cells& row, int column, const LineContext& context);
void edited(Cells& row, int column, const QString& before, const LineContext& context);
} // namespace PartsGrid
