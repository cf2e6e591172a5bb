#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

// A PDF file holds for each of its fonts a table from letter to text, used by search and copy. The writer fills it with
// look-alikes (the radical ⽉ for 月) and leaves out what lies beyond the basic plane; this puts in the texts that were
// printed. The streams' lengths and the file's cross-reference table are kept right.

// The texts of a font by the numbers that the file gives to its letters; number 0 is the letter that is not there.
// Fonts are named as in the file; those not named stay as they are.
using PdfTexts = QMap<QByteArray, QStringList>;
QByteArray withPrintedTexts(const QByteArray& pdf, const PdfTexts& fonts);

// What a reader takes together: letter-spaced words and the cells of a row, which it would tear apart into columns.
struct PdfSpan {
    qsizetype drawings = 0; // that follow each other
    QString text;
};
// The file with the spans of each page told; they take all drawings of letters in their order. A page whose drawings
// they do not meet stays as it is.
QByteArray withSpans(const QByteArray& pdf, const QList<QList<PdfSpan>>& pages);
