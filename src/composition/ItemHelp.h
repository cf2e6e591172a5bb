#pragma once

#include "composition/Composition.h"

// Picture and text that an office keeps for what can be ordered: files in the folders of the INI sections `Image` and
// `Text`, whose extension is the `Type` of the section.
namespace ItemHelp {

// The names, without extension, that a file of an item may have, the closest one first: the ID of its row of the price
// list, then its texts from all four down to the 種目 alone, joined by "_". What no file name can hold stands in full
// width.
QStringList fileNames(const Cells& item);
// The path of the picture; empty when the office has none.
QString pictureFile(const Cells& item);
// The text, which may be stored as UTF-8 or in code page 932; empty when the office has none.
QString text(const Cells& item);

} // namespace ItemHelp
