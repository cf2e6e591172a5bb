#pragma once

#include "reports/ReportPage.h"
#include "reports/basReportUtil.h"

#include <functional>

class QPrinter;

// A finished document on its way to paper or screen.
struct ReportJob {
    QString reportClass;
    QList<ReportPage> pages;
    ReportPrintSettings settings;
    QString title;                 // for the printer's queue and as a file name
    ReportOffset offset{};         // by which the pages are moved already
    QString underlay{};            // a scan to show behind the preview; empty: none
    std::function<bool()> pause{}; // runs after each few pages; false gives the printing up
    QString about{};               // whom and what it is made for, such as number and name; empty: nobody in particular
};

// Where the documents of one command go, in their order. The program fills both with the printer and the preview
// screen; tests and scenarios record.
struct ReportOutput {
    std::function<void(const QList<ReportJob>& jobs, bool withDialog)> print;
    std::function<void(const QList<ReportJob>& jobs)> preview; // returns when the preview is closed
};

ReportOutput& reportOutput();

// The printer that a report goes to when nobody chooses another one: that of its settings, or the machine's; empty when
// there is none.
QString printerOf(const ReportPrintSettings& settings);

// Tenths of a millimetre in twips.
int offsetTwips(int tenths);

// The pages of a job where they belong on a printer, which may be another one than the job was made for.
QList<ReportPage> pagesFor(const QString& printer, const ReportJob& job);

// Sends each document to the printer of its settings, or to the default one. The dialog comes once: another printer or
// number of copies that is chosen there holds for all of them. Raises an error when there is no printer or it refuses
// the work; a cancelled dialog prints nothing.
void printOnPaper(const QList<ReportJob>& jobs, bool withDialog);

// The pages that the operator asked the dialog for, counted from 1; all of them when no range was asked for.
QList<ReportPage> pagesInRange(const QList<ReportPage>& pages, const QPrinter& printer);

// Paints the pages from the corner of the paper. Raises an error when the printer refuses. `pause` as in the job; false
// when it gave the printing up.
bool printPages(const QList<ReportPage>& pages, QPrinter& printer, const std::function<bool()>& pause = {});

// Puts the settings into force, in their order; what is empty stays as the printer has it. A port has no meaning to Qt,
// which finds the printer by its name; the margins are already in the pages.
void applyPrintSettings(const ReportPrintSettings& settings, QPrinter& printer);
