#pragma once

#include "reports/ReportPage.h"
#include "reports/engine/PdfOutline.h"

#include <QByteArray>

// The pages as a PDF file whose text can be searched and copied as it was written. Readers list the bookmarks beside
// the pages.
QByteArray pdfOfPages(const QList<ReportPage>& pages, const QString& title, const QList<PdfBookmark>& bookmarks = {});
// Writes it; a file that cannot be written raises an error with its path.
void savePdf(const QList<ReportPage>& pages, const QString& title, const QString& path,
             const QList<PdfBookmark>& bookmarks = {});
