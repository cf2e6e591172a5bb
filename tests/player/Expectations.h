#pragma once

#include <QString>

// The looking steps on the topmost screen; each raises a StepFailure when it does not hold.
namespace Expect {

void screen(const QString& name);
void title(const QString& text);
void text(const QString& name, const QString& text);
void cell(const QString& grid, int row, const QString& column, const QString& text);
void rows(const QString& grid, int count);
void list(const QString& name, const QString& entries);
void enabled(const QString& name, bool enabled);
void hint(const QString& name, const QString& text);
void mark(const QString& name, const QString& text);
void aside(const QString& grid, int row, const QString& column, const QString& text);
void clipboard(const QString& text);
void visible(const QString& name, bool visible);
void checked(const QString& name, bool checked);

} // namespace Expect
