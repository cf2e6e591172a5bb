#pragma once

#include <QWidget>

class Grid;

// What the larger forms share in their layout.
//
// In the layout files a field whose length is known carries the dynamic property `characters`, its width in half-width
// characters; a label that shows a value carries `shownValue`.
namespace FormPieces {

// Gives every control with the property `characters` its width in the form's font.
void applyCharacters(QWidget* form);
// Makes a block and its controls members of control arrays: lblTax becomes lblTax_2.
void setArrayIndex(QWidget* block, int index);
// Exactly so high that this many rows show below the headings.
void fixRowsShown(Grid* grid, int rows);
// Lets one column take the width that the others leave.
void stretchColumn(Grid* grid, int column);

} // namespace FormPieces
