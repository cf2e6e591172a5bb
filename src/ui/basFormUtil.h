#pragma once

#include "ui/InputWrapper.h"

#include <QWidget>

// --- dirty tracking ---

// Attaches a wrapper to every text, combo, date and number control of a form that has none yet.
void AttachControls(QWidget* form, InputWrappers& wrappers);
// True when any control changed since the flags were cleared.
bool IsAnyEdited(const InputWrappers& wrappers);
void ClearEdited(const InputWrappers& wrappers);
// Releases the wrappers and takes the marks off the controls.
void ReleaseControls(QWidget* form, InputWrappers& wrappers);

// --- window position ---

// Reads `Top` and `Left` (twips) of the section named by the form and moves it there; the present place is the default.
// A text that is no number raises a type error.
void RestoreFormPosition(QWidget* form);
// Writes them, but not for a minimised or maximised form.
void SaveFormPosition(const QWidget* form);
