#pragma once

#include "reference/ReferenceRecords.h"

#include <QList>
#include <QString>

// The postal codes as the post office publishes them: KEN_ALL.CSV (code page 932, one town over several lines where it
// is long), utf_ken_all.csv, and JIGYOSYO.CSV with the codes of large offices; each also inside a zip archive.
namespace PostalFiles {

struct Book {
    QList<clsZip> towns;
    QList<clsZip> offices;

    bool isEmpty() const { return towns.isEmpty() && offices.isEmpty(); }
    qsizetype size() const { return towns.size() + offices.size(); }
};

// Adds the rows of a file to a book. A file that is none of these shapes raises an error with its name and the line.
void read(const QString& path, Book& book);
void readText(const QByteArray& bytes, const QString& name, Book& book);

// The published files of a folder, by their names: those of the towns (one of them, if both are there) and of the
// offices.
QStringList find(const QString& folder);

// A town as an address is written: without what the list says about it in brackets, and empty where it stands for all
// other places of its city.
QString cleanTown(const QString& town);

} // namespace PostalFiles
