#pragma once

#include "composition/CellChoices.h"

// How the cells of an item row depend on each other and on the price tables, without any window.
namespace ItemRules {

enum Column { RowId = 1, Item, PickKbn, Name, Form, PickStyle, GrantRepair, Columns };

// What the editors do otherwise than each other.
struct Habits {
    bool takesFirstStyle = false; // a new 種目 with 採型 or 採寸 starts with the first of them, not with neither
    bool startsAnew = false;      // a new text clears what stands to its right, also what would still fit
    bool namesId = false;         // the ID of the price row is found from the texts, too
};
inline constexpr Habits orderHabits{};
inline constexpr Habits masterHabits{true, true, true};

CellChoices choices(const Cells& row, int column);
// What follows from an edit of a cell that held `before`: narrowing, clearing, and the filling of single choices.
void edited(Cells& row, int column, const QString& before, const Habits& habits = orderHabits);
// The ID of the one valid row of the price list that has the row's four texts; empty when there is none, or several.
QString idOf(const Cells& row);
bool isUsable(const Cells& row);
// The texts of the six cells from 種目 on as they are shown.
QStringList shownTexts(const Cells& row);

} // namespace ItemRules
