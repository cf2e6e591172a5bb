#pragma once

#include "reports/ReportPage.h"

#include <QByteArray>

// The pages as a PDF file whose text can be searched and copied as it was written.
QByteArray pdfOfPages(const QList<ReportPage>& pages, const QString& title);
// Writes it; a file that cannot be written raises an error with its path.
void savePdf(const QList<ReportPage>& pages, const QString& title, const QString& path);
