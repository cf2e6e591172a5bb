#pragma once

class QWidget;

// The check of the amounts of all estimates: asks, runs its passes with a way to stop, tells of its end.
namespace AmountCheck {
void run(QWidget* parent);
}
