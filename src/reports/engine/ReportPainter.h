#pragma once

#include "reports/ReportPage.h"

class QImage;
class QPainter;

// Draws a page on a painter whose unit is the twip.
void paintPage(QPainter& painter, const ReportPage& page);

// The page as a picture on white paper.
QImage pageImage(const ReportPage& page, double dotsPerInch);
