#pragma once

#include "reports/ReportLayout.h"

// Which rows a report prints and on which page each band stands. Plain arithmetic: no texts, no fonts, no painter.

// One printed detail row. A blank row belongs to the document of its record but prints empty details.
struct ReportRow {
    int record = 0;
    bool blank = false;
    bool operator==(const ReportRow&) const = default;
};

// Every record once, without padding.
QList<ReportRow> plainRows(int records);

// Every record once, with blank rows behind each document so that it ends on a full page of `linesPerPage` rows. The
// texts tell the document of each record; a document is one unbroken run. Lines per page below 1 raise an error.
QList<ReportRow> paddedRows(const QStringList& documentOfRecord, int linesPerPage);

struct PlacedBand {
    ReportBandKind kind = ReportBandKind::Detail;
    int top = 0; // twips from the top of the paper
    ReportRow row;
};

struct PlannedPage {
    QList<PlacedBand> bands;
    int number = 1; // within its document when groups start on new pages, else within the report
    int count = 1;
};

// Lays the bands on pages. A page ends after `linesPerPage` details (0: no such limit) or when the paper is full; the
// group header is repeated on each page. A page that would hold nothing is never made: no rows give no pages.
QList<PlannedPage> planPages(const ReportLayout& layout, const QStringList& groupOfRecord, const QList<ReportRow>& rows,
                             int linesPerPage = 0);
