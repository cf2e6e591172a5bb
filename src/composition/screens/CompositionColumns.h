#pragma once

#include "composition/CellChoices.h"
#include "ui/GridColumn.h"

// The entries of a grid cell for the choices of a rule.
inline GridEntries gridEntries(const CellChoices& choices) {
    GridEntries entries;
    for (const CellChoice& choice : choices) entries << GridEntry{choice.value, choice.shown, choice.detail};
    return entries;
}

// The ID of a price row, chosen or typed; what no row has clears the line.
inline GridColumn quickEntry() { return GridColumn::of(u"一括選択"_qs, 10).typed().takingNumbers(); }
