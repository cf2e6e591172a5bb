#pragma once

#include <QMessageBox>

struct MessageBoxRequest;

// Messages, file and folder dialogs, the wait cursor and the shell's open verb by Qt's dialogs in Japanese. The clock,
// the program folder and the printer keep what they are filled with.
void fillSeamsWithDialogs();

// Puts text, icon, buttons and defaults of a request into a box, apart from showing it. Escape and the frame's close
// button mean いいえ, or キャンセル where there is one.
void prepareMessageBox(QMessageBox& box, const MessageBoxRequest& request);
