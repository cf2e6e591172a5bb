#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// Comma-separated text with fields in double quotes where needed and doubled quotes inside.
namespace Csv {

QList<QStringList> read(const QString& text);
// One line without its end; every field in quotes.
QString quotedLine(const QStringList& fields);

} // namespace Csv
