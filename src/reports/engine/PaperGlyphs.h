#pragma once

#include "reports/ReportLayout.h"

#include <QPointF>
#include <QRawFont>

// The letters of a text as they stand on paper. Each takes the first face that has it: the toolkit chooses none.

struct PaperGlyph {
    quint32 number = 0;
    QPointF at;   // from the start of the text on its baseline, in twips
    QString text; // what it stands for; empty for the further glyphs of one letter
};

struct PaperRun {
    QRawFont font;
    QByteArray pdfName; // the face as a PDF file names it
    QList<PaperGlyph> glyphs;
};

QList<PaperRun> paperRuns(const QString& text, const ReportFont& font);

// The measuring seam of the layouts, filled with the real types.
double measurePaperText(const QString& text, const ReportFont& font);
