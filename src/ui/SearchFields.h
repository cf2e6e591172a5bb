#pragma once

class QWidget;

// The conditions of a search as a whole: the fields, lists, tick boxes and tabs inside of an area of a screen.
namespace SearchFields {

// Asks for nothing any more: fields are empty, lists stand on their first entry for all or on none, nothing is ticked,
// tabs stand on the first one.
void clear(QWidget* area);
// What stood there when the screen was closed last in this session; the area is kept from now on. Before the first
// rows are read, as every field says what it holds.
void restore(QWidget* area);
// Keeps the conditions of every area of a window that was restored.
void keep(const QWidget* window);

} // namespace SearchFields
