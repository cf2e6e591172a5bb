#pragma once

#include "reports/ReportLayout.h"

// A finished page: texts, lines and boxes at fixed places, in twips from the top left corner of the paper. Preview,
// printer, PDF, picture and tests all read this list.

struct ReportPageText {
    QString control; // the control it came from, for tests and messages
    QString text;
    ReportFont font;
    int x = 0;
    int baseline = 0;
    int width = 0;      // as printed
    double squeeze = 1; // horizontal scale, below 1 only when the smallest size is still too wide
    ReportRect room;    // the control on the page
    int row = 0;        // the detail row that it is a part of, from 1; 0: none
};

struct ReportPageLine {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int width = 0;
    bool dashed = false;
};

struct ReportPageBox {
    ReportRect at;
    int width = 0;
    bool dashed = false;
    int shade = 0;
};

// Line by line from top to bottom, each from left to right; the lines inside of one control stay together.
QList<ReportPageText> inReadingOrder(QList<ReportPageText> texts);

struct ReportPage {
    int paperWidth = 0, paperHeight = 0;
    QList<ReportPageText> texts;
    QList<ReportPageLine> lines;
    QList<ReportPageBox> boxes;

    // The texts by their baselines, one a line; what was broken into lines inside of a control is whole again.
    QString plainText() const;
};

// The pages with all that stands on them moved to the right and down.
QList<ReportPage> shifted(QList<ReportPage> pages, int right, int down);
