#pragma once

#include "base/Csv.h"

#include <functional>
#include <optional>

// How every list becomes a CSV file: where it goes, and what a spreadsheet of the old code page could not show.

// Asks where to write a CSV file and remembers the answer; false when cancelled.
bool AskCsvSavePath(QString& path);
// The same with the encoding as a choice among the file types.
bool AskCsvSavePath(QString& path, Csv::Encoding& encoding);

struct CsvRow {
    QStringList fields;
    QString whose; // tells the row to the operator: a list may stand in another order than the file
};

// The fields that hold characters which code page 932 lacks. Rows count from 1 below the lines above them.
class CsvLacking {
public:
    explicit CsvLacking(QStringList columns) : m_columns(std::move(columns)) {}

    void add(const CsvRow& row);
    // A line above the rows.
    void addHead(const QStringList& fields);
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

// A list as a file. Lines above the rows come first; without a name of its own the last one is offered again.
struct ListFile {
    QStringList columns;              // the words for the fields of a row
    QList<QStringList> heads{};       // the lines above the rows
    QString name{};                   // offered in the dialog
    QStringList filters = csvFilters; // the file types; the last one means UTF-8
    int filter = 2;                   // the one offered
    QChar separator = u',';           // a tab parts plain fields, a comma quoted ones

    static const QStringList csvFilters, textFilters;
};
struct WrittenFile {
    QString path;
    qint64 rows = 0;
};

// Asks for the file, asks about characters that its code page lacks, and writes it. `each` hands over all rows, twice
// where they must be looked through first, and gives false to give up. Nothing when the operator gave up; a failure
// leaves no file and rises.
using EachListRow = std::function<bool(const std::function<void(const CsvRow&)>& take)>;
std::optional<WrittenFile> writeListFile(const ListFile& file, const EachListRow& each);
// The same for a spreadsheet, which tells how many of the rows it has written. `counts` says how many when a row of the
// list takes more than one line.
void exportCsv(const ListFile& file, const EachListRow& each, const std::function<qint64()>& counts = {});
// With the columns as the one line above.
void exportCsv(const QStringList& columns, const EachListRow& each);
