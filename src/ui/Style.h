#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>

class QApplication;
class QWidget;

// The one look of all screens.
//
// A screen's commands stand in one row at its bottom: the main command first, helpers behind it, 閉じる at the far
// right. A label that names a field ends in "：" and stands right-aligned before it. Margins and gaps come from the
// style, so that a layout file sets none of its own; lengths follow the font.
namespace Style {

inline const QColor ink(0x20, 0x2A, 0x36);
inline const QColor paper(0xF4, 0xF6, 0xF8);
inline const QColor field(0xFF, 0xFF, 0xFF);
inline const QColor line(0xB8, 0xC2, 0xCC);
inline const QColor accent(0x1F, 0x6F, 0xA8);
inline const QColor focusField(0xFF, 0xF9, 0xDB);
// Selected cells, and the current row of a list.
inline const QColor chosen(0xCF, 0xE2, 0xF1);
// A word about a value that is unusual, and its ground.
inline const QColor remark(0xFF, 0xE8, 0xB3);
inline const QColor remarkInk(0x6E, 0x45, 0x00);
inline const QColor heading(0xE3, 0xEA, 0xF0);
// The grey of grid columns that hold computed values.
inline const QColor computed(0xE0, 0xE0, 0xE0);

// Style, font, colours and Qt's own texts in Japanese, once for a process.
void apply(QApplication& application);
// Aligns the labels of a form that name a field, and keeps Return free for moving on.
void arrange(QWidget* form);

QIcon calendarIcon();
// The letters of grids: every half-width sign is half as wide as a kanji, so that numbers stand under each other.
QFont gridFont();
// The width of so many half-width characters in the font of the screens, with the margins of a field.
int charactersWide(int characters);

} // namespace Style
