#pragma once

#include "reports/ReportComposer.h"

class clsProfile;

// What the system prints, each report class told in one place. A new report is one layout and one entry in the table of
// its subject.

// What a report shows besides its rows, and how many of them a setting gives to a page (0: as many as the paper holds).
struct ReportHeader {
    ReportParameters values;
    int linesPerPage = 0;
};

// The longest content, with which the layouts are tried: each text as long as its field, each number as large as papers
// show, but for what is told here.
struct ReportSample {
    QList<QStringList> rows{};         // fields that stand in one kind of row alone; a field of no kind stands in all
    ReportParameters longest{};        // the longest of a field or header value that has no size or never reaches it
    QHash<QString, int> sizes{};       // of header values, in characters
    QList<ReportParameters> given{{}}; // what the screens hand over, each set on pages of its own
};

struct ReportClass {
    QString name;                             // also that of its layout and of its INI section
    ReportRecordset (*recordset)() = nullptr; // its fields, without rows
    ReportRowPlan plan = ReportRowPlan::List;
    QString (*groupKey)(const ReportRecordset& records, int row) = nullptr; // a change ends the group; none: one group
    ReportHeader (*readHeader)() = nullptr; // from database and INI file; what the screen gives comes on top
    // The document's name in windows, files and the printer's queue. There is at least one row.
    std::function<QString(const ReportRecordset& records, const ReportParameters& values)> title;
    ReportSample sample{};
    int fewerLines = 0; // rows that a taller header takes from each page
};

// The tables of the subjects.
QList<ReportClass> estimateDocuments();
QList<ReportClass> estimateLists();
QList<ReportClass> masterReports();
QList<ReportClass> accidentPapers();
QList<ReportClass> opinionPapers();
QList<ReportClass> statistics();
QList<ReportClass> priceReports();

// The header of papers that tell the day of printing: the system date as `PrtDate`.
ReportHeader printDayHeader();

const QList<ReportClass>& reportClasses();
// Raises an error for a class that the system does not have.
const ReportClass& reportClass(const QString& name);

// The finished pages. An empty record set has none; lines per page below 1 raise an error for a padded document.
// `pause` as in `composePages`.
QList<ReportPage> reportPages(const ReportClass& report, const ReportLayout& layout, const ReportRecordset& records,
                              const ReportHeader& header, const ReportMeasure& measure,
                              const std::function<bool()>& pause = {});

// The classes that print one paper.
struct ReportPaper {
    int sizeSetting = 0; // No of the setting whose value 2 asks for B5
    QString a4, b5{};
    QString a4Variant{}, b5Variant{}; // take their places where the installation says so
};

struct ReportPaperSettings {
    QHash<int, int> values; // by No; a missing one counts as 1
    QStringList variants;   // the variants in force
    int value(int number) const { return values.value(number, 1); }
};

QString chosenClass(const ReportPaper& paper, const ReportPaperSettings& settings);
// Those of the papers' variants that the installation has under Variant/<class> as 1.
QStringList variantsInForce(const QList<ReportPaper>& papers, const clsProfile& profile);
