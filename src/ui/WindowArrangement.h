#pragma once

class Grid;
class QWidget;

// The size of a window and the widths of its grid columns as the operator left them, kept for this machine under the
// name of the window. A list that shows tables of many forms tells them apart by the property `arrangedAs`; a window
// that follows its content has the property `sizedByItself`, and no size is kept for it.
namespace WindowArrangement {

// After the window has its columns and before it shows. What no longer fits the display is made to fit.
void restore(QWidget* window);
// The heading that a list was sorted by, for lists that read their rows by it. Before the first rows are read.
void restoreSort(Grid* grid);
// As it closes. Only columns that were dragged are kept.
void keep(const QWidget* window);

} // namespace WindowArrangement
