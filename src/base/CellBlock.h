#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A block of cells as spreadsheets put it on the clipboard: rows as lines, cells apart by tabs; a cell that holds a
// tab, a line break or a quotation mark stands in quotation marks.
namespace CellBlock {

QString write(const QList<QStringList>& rows);
// The rows may be of different lengths. The line break behind the last row counts as none; an empty text is no row.
QList<QStringList> read(const QString& text);

} // namespace CellBlock
