#pragma once

#include "reports/ReportPage.h"

#include <QImage>
#include <QPageLayout>

class QPainter;

// The paper of these twips without margins; one that is wider than high is a sheet that lies on its side.
QPageLayout paperOf(int width, int height);

// Draws a page on a painter whose unit is the twip.
void paintPage(QPainter& painter, const ReportPage& page);

// The pixels of a page at this resolution.
QSize pagePixels(const ReportPage& page, double dotsPerInch);

// The page as a picture on white paper, or on what lies under it.
QImage pageImage(const ReportPage& page, double dotsPerInch, const QImage& under = {});
