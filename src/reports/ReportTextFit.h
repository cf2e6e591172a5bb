#pragma once

#include "reports/ReportLayout.h"

#include <QStringList>

// The width of a text in twips, in a type at its size. The one thing about paper that needs real fonts; the engine
// fills it, tests may use a plain rule.
using ReportMeasure = std::function<double(const QString& text, const ReportFont& font)>;

// A text as it fits into its control.
struct FittedText {
    QStringList lines;
    double size = 0;    // points
    double squeeze = 1; // horizontal scale
    int pitch = 0;      // twips from line to line
};

// Starts with the size of the step that the text's byte length reaches, then goes down by half points until the text
// stands inside of its control, on as many lines as fit there when the control wraps; where a little smaller is enough
// for one line, it stays on one, and where it is enough to keep the words whole, they stay whole. What is still too
// wide at the smallest size is squeezed, so that no text is ever cut.
FittedText fitText(const QString& text, const ReportTextItem& item, const ReportMeasure& measure);

// The baseline of a line of this size whose em box stands in the middle of a strip: Japanese type has 0.88 of its size
// above the baseline.
int centredBaseline(int top, int height, double size);
