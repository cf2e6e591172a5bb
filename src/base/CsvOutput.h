#pragma once

#include "base/Csv.h"

#include <functional>

// How every list becomes a CSV file: where it goes, and what a spreadsheet of the old code page could not show.

// Asks where to write a CSV file and remembers the answer; false when cancelled.
bool AskCsvSavePath(QString& path);
// The same with the encoding as a choice among the file types.
bool AskCsvSavePath(QString& path, Csv::Encoding& encoding);

struct CsvRow {
    QStringList fields;
    QString whose; // tells the row to the operator: a list may stand in another order than the file
};
using EachCsvRow = std::function<void(const std::function<void(const CsvRow&)>& take)>;

// The fields that hold characters which code page 932 lacks. Rows count from 1 below the heading line.
class CsvLacking {
public:
    explicit CsvLacking(QStringList columns) : m_columns(std::move(columns)) {}

    void add(const CsvRow& row);
    bool isEmpty() const { return m_places.isEmpty(); }
    // The first of them in words for the operator, one a line, and how many more there are; then the log is given all,
    // without the persons.
    QString told() const;

private:
    struct Place {
        QString row, whose, what;
    };

    QStringList m_columns;
    QList<Place> m_places;
    qint64 m_row = 0;
};

// Asks for the file, asks about characters that its code page lacks, writes it and tells how many rows. `each` hands
// over all rows, twice where they must be looked through first. A failure leaves no file and rises.
void exportCsv(const QStringList& columns, const EachCsvRow& each);
