#pragma once

#include <QFont>
#include <QStringList>

// The types of paper, mincho and gothic, and those that stand in for the characters that they lack. The toolkit puts in
// none of its own.

struct PaperFace {
    QString family;     // as the platform lists it
    QString japanese;   // its other name
    QByteArray pdfName; // as a PDF file names it
};

// The type of paper, then those that stand in for it, as far as they are installed.
QList<PaperFace> paperFaces(bool gothic);

// Raises an error that names the missing type. To be called at start-up.
void assertPaperFonts();
// The missing ones among the families given, each told by its Japanese name.
QStringList missingFonts(const QStringList& installedFamilies);
// What the operator is told about a type that should stand in and is missing among the families; empty when none is.
QString standInNotice(const QStringList& installedFamilies);

// A type without its weight (see ReportPainter) and with the twip as its pixel, so that one unit of a page is one unit
// of the painter.
QFont faceFont(const PaperFace& face, double size);
