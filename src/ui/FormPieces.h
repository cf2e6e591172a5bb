#pragma once

#include <QWidget>

class Grid;

// Why a command cannot be used.
namespace WhyNot {

inline const QString onlyToDelete = QStringLiteral("削除のために開いた画面では使えません。");
inline const QString notStoredYet = QStringLiteral("まだ登録されていません。反映した後に使えます。");
inline const QString deletedFromTheList = QStringLiteral("一覧の「削除」で開いた画面で使えます。");

} // namespace WhyNot

// What the larger forms share in their layout.
//
// In the layout files a field whose length is known carries the dynamic property `characters`, its width in half-width
// characters; a label that shows a value carries `shownValue`.
namespace FormPieces {

// Gives every control with the property `characters` its width in the form's font.
void applyCharacters(QWidget* form);
// Lets a control be used, or tells in its hint why it cannot (empty: it can). The hint of the form comes back.
void allow(QWidget* control, const QString& whyNot);
// Makes a block and its controls members of control arrays: lblTax becomes lblTax_2.
void setArrayIndex(QWidget* block, int index);
// Exactly so high that this many rows show below the headings.
void fixRowsShown(Grid* grid, int rows);
// Lets one column take the width that the others leave.
void stretchColumn(Grid* grid, int column);

} // namespace FormPieces
