#pragma once

#include <QWidget>

// Forms on displays that cannot hold them.
namespace ScrollingForm {

// What a window can have of its display: all but its own title.
QSize roomFor(const QWidget* form);
// Lets a form scroll that needs more than this room: the contents of its pages, so that its commands stay in view; the
// whole form where that is not enough. What gets the focus is scrolled into view.
void makeFit(QWidget* form, const QSize& room);

} // namespace ScrollingForm
