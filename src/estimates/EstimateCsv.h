#pragma once

#include "customers/clsCustomerManager.h"
#include "estimates/EstimateRecords.h"

#include <QStringList>

// The estimates of a list as lines of a CSV file.
namespace EstimateCsv {

QStringList columns();
// The fields of an estimate and its customer, in the order of the columns.
QStringList fields(const clsCsEstimate& estimate, const clsCustomer& customer);

// A field that holds characters which code page 932 lacks; rows count from 1.
struct Lacking {
    qint64 row;
    QString column;
    QString characters;
};
QList<Lacking> lacking(qint64 row, const QStringList& fields);
// The first of them in words for the operator, one a line, and how many more there are; then the log is given all.
QString told(const QList<Lacking>& found);

} // namespace EstimateCsv
