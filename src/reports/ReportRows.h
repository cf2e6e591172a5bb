#pragma once

#include "reports/ReportLayout.h"

// Which rows a report prints and on which page each band stands. Plain arithmetic: no texts, no fonts, no painter.

// How the rows of a report go over its pages.
enum class ReportRowPlan {
    Documents, // each group ends on a page that is filled up with blank rows
    List,      // row after row, as many as the paper holds
    Form       // each group is one page; what does not stand on it raises an error
};

// One printed detail row. A blank row belongs to the document of its record but prints empty details.
struct ReportRow {
    int record = 0;
    bool blank = false;
    bool operator==(const ReportRow&) const = default;
};

// A run of rows: from `first` up to, but without, `end`.
struct ReportSpan {
    int first = 0, end = 0;
    bool operator==(const ReportSpan&) const = default;
};

// Every record once, without padding.
QList<ReportRow> plainRows(int records);

// The rows that each page of a document takes: as many as asked for, but never so many that its totals would need
// another page.
int rowsOfForm(const ReportLayout& layout, int linesPerPage);

// Every record once, with blank rows behind each document so that it ends on a full page of `linesPerPage` rows. The
// texts tell the document of each record; a document is one unbroken run. Lines per page below 1 raise an error.
QList<ReportRow> paddedRows(const QStringList& documentOfRecord, int linesPerPage);

struct PlacedBand {
    ReportBandKind kind = ReportBandKind::Detail;
    int top = 0; // twips from the top of the paper
    ReportRow row;
    ReportSpan group; // the rows of its group, wherever they stand
    int done = 0;     // the rows that stand above it, with its own
};

struct PlannedPage {
    QList<PlacedBand> bands;
    int number = 1; // within its document when groups start on new pages, else within the report
    int count = 1;
    ReportSpan rows; // those that stand on it
};

// Lays the bands on pages. A page ends after `linesPerPage` details (0: no such limit) or when the paper is full; the
// group header is repeated where its group goes on. A page that would hold nothing is never made: no rows give no
// pages.
QList<PlannedPage> planPages(const ReportLayout& layout, const QStringList& groupOfRecord, const QList<ReportRow>& rows,
                             int linesPerPage = 0, ReportRowPlan plan = ReportRowPlan::List);
