#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class Connection;

// The yearly price files: text in code page 932, one record a line, fields separated by a comma, double quotes without
// meaning. The fields stand in the order of the table's record.
namespace PriceFiles {

// How many fields a line of a table's file has: 5, 14, 8, 12 or 12.
int fieldCount(const QString& table);
// The file name under which the sample office keeps a table's file.
QString sampleName(const QString& table);
// The lines of a file; one with another number of fields raises an error that names its line.
QList<QStringList> read(const QString& table, const QByteArray& bytes);
// Inserts the lines of a file into a table as valid rows, IDs included.
void importInto(Connection& connection, const QString& table, const QByteArray& bytes);

} // namespace PriceFiles
