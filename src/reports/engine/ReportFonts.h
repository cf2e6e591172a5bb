#pragma once

#include "reports/ReportTextFit.h"

#include <QFont>
#include <QStringList>

// The types of paper: mincho and gothic. Nothing is ever printed in a type that stands in for a missing one.

// Raises an error that names the missing type. To be called at start-up.
void assertPaperFonts();
// The missing ones among the families given, each told by its Japanese name.
QStringList missingFonts(const QStringList& installedFamilies);

// A type without its weight (see ReportPainter) and with the twip as its pixel, so that one unit of a page is one unit
// of the painter.
QFont paperFont(const ReportFont& font);

// The measuring seam of the layouts, filled with the real types.
double measurePaperText(const QString& text, const ReportFont& font);
