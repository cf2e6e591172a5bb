#pragma once

#include "composition/CellChoices.h"

// How the cells of an item row depend on each other and on the price tables, without any window.
namespace ItemRules {

enum Column { RowId = 1, Item, PickKbn, Name, Form, PickStyle, GrantRepair, Columns };

// What a new 種目 with 採型 or 採寸 starts with.
enum class PickStyleStart { Empty, FirstEntry };

CellChoices choices(const Cells& row, int column);
// What follows from an edit of a cell that held `before`: narrowing, clearing, and the filling of single choices.
void edited(Cells& row, int column, const QString& before, PickStyleStart start = PickStyleStart::Empty);
bool isUsable(const Cells& row);
// The texts of the six cells from 種目 on as they are shown.
QStringList shownTexts(const Cells& row);

} // namespace ItemRules
