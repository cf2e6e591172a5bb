#pragma once

#include "master/MasterRecords.h"
#include "reports/ReportRecordset.h"

#include <QHash>

// A stored master estimate with all that hangs on it.
struct MasterSource {
    clsMstEstimate header;
    QList<clsMstItem> items;
    QList<clsMstMakeElmt> make;
    QList<clsMstCmpltElmt> parts;
};

// What the papers of the master estimates show. A code that is longer than they have room for ends with "…".

// Their sheets: the rows of each, at least one. The prices of the lines are those of 大人; the totals are the stored
// amounts with tax. `pickStyles` holds the display words by 採型採寸, `taxRate` is in percent.
ReportRecordset masterSheetRows(const QList<MasterSource>& masters, const QHash<QString, QString>& pickStyles,
                                double taxRate);
// Their list, in the order given, with the same totals.
ReportRecordset masterListRows(const QList<clsMstEstimate>& masters, double taxRate);
