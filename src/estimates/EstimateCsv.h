#pragma once

#include "customers/clsCustomerManager.h"
#include "estimates/EstimateRecords.h"

#include <QStringList>

// The estimates of a list as lines of a CSV file.
namespace EstimateCsv {

QStringList columns();
// The fields of an estimate and its customer, in the order of the columns.
QStringList fields(const clsCsEstimate& estimate, const clsCustomer& customer);

// A field that holds characters which code page 932 lacks. Rows count from 1 below the heading line.
struct Lacking {
    qint64 row;
    QString whose; // the estimate's number and its person: a list may stand in another order than the file
    QString column;
    QStringList characters;
};
QList<Lacking> lacking(qint64 row, const clsCsEstimate& estimate, const clsCustomer& customer);
// The first of them in words for the operator, one a line, and how many more there are; then the log is given all.
QString told(const QList<Lacking>& found);

} // namespace EstimateCsv
