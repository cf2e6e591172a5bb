#pragma once

#include "master/MasterDraft.h"

// Master estimates for tests that store them.
namespace MasterSamples {

// A new one of a code with one item and so many make element lines at 100, 200 and 300 yen. Its name tells their
// number, so that a reader of the database can tell whether it is whole.
MasterDraft master(const QString& code, int lines);
QString nameFor(int lines);

// An item and its lines as their grids hold them.
ComposedItem item(const QString& kind, const QString& name, const QString& form, const QString& pickStyle = {});
Cells makeLine(const QString& element, const QString& materials, const QStringList& amounts);
Cells partsLine(const QString& name, const QString& form, const QString& code, const QString& amount);

} // namespace MasterSamples
