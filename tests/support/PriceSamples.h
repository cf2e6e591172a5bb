#pragma once

#include <QStringList>

// The five files of a price year for tests.
namespace PriceSamples {

// What an INI file says about their names, and where the log goes.
extern const QString profile;

// One row in each table, at the same price everywhere; in the order of the tables.
QStringList filesOfYear(const QString& price);
// So many rows in each of the five tables; the prices begin at `price`.
QStringList largeFiles(int rows, int price);

// Writes files in the code page of the price lists; missing folders are made.
void writeFile(const QString& path, const QString& text);
void writeYear(const QString& folder, const QStringList& files);

} // namespace PriceSamples
