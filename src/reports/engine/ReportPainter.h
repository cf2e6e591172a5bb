#pragma once

#include "reports/ReportPage.h"

#include <QPageLayout>

class QImage;
class QPainter;

// The paper of these twips without margins; one that is wider than high is a sheet that lies on its side.
QPageLayout paperOf(int width, int height);

// Draws a page on a painter whose unit is the twip.
void paintPage(QPainter& painter, const ReportPage& page);

// The page as a picture on white paper.
QImage pageImage(const ReportPage& page, double dotsPerInch);
