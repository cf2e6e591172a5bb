#pragma once

#include "reports/ReportLayout.h"

// Makes the positions, margins and type sizes of a layout smaller, for a paper of the same shape. What touched still
// does; the strokes keep their width.
void scaleLayout(ReportLayout& layout, double factor);
