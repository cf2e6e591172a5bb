#pragma once

#include <QStringList>

class Grid;
class QWidget;

// What stands on the screen, for the steps that act and look.
namespace Desk {

// The screen that the operator works on; raises a StepFailure when none is open.
QWidget* topmost();
// The same, or nothing.
QWidget* topmostOrNone();
// The names of the open screens from the bottom up.
QStringList openScreens();
// How many modal screens are open.
int modalScreens();

// The control of a name in the topmost screen; of a control array without a member of just that name, its first
// visible one. A member is NAME_0, or NAME(0). Raises a StepFailure that names a missing control.
QWidget* control(const QString& name);
Grid* grid(const QString& name);
// A control that the operator can use; raises a StepFailure for one that is hidden or disabled.
QWidget* usableControl(const QString& name);
Grid* usableGrid(const QString& name);
// The number of a column, which a step gives as such or by its heading.
int column(const Grid* grid, const QString& word);
// Raises a StepFailure for a row or column that a grid does not have.
void checkPlace(const Grid* grid, int row, int column);

// Whether events that were set going have come to rest: the topmost screen is active, no button is being pressed and
// no list waits for its rows.
bool isAtRest();

} // namespace Desk
