#pragma once

#include "base/WholeFile.h"

#include <QList>
#include <QString>
#include <QStringList>

// Comma-separated text with fields in double quotes where needed and doubled quotes inside.
namespace Csv {

QList<QStringList> read(const QString& text);
// One line without its end; every field in quotes.
QString quotedLine(const QStringList& fields);
// The field so that no spreadsheet takes it for a formula: one that begins with = + - or @, also behind blanks, gets an
// apostrophe in front. A sign alone, a number and a telephone number stay as they are.
QString harmless(const QString& field);

enum class Encoding { Cp932, Utf8 };

// One line without its end of fields without quotes; a tab or line break inside of one becomes a blank.
QString tabbedLine(const QStringList& fields);

// Writes a file line by line; nothing stands there before `commit`. UTF-8 begins with its mark, by which spreadsheets
// know it. A character that the encoding lacks, and a failure to write, raise an error.
class Writer {
public:
    Writer(const QString& path, Encoding encoding, QChar separator = u',');
    void line(const QStringList& fields);
    void commit();

private:
    WholeFile m_file;
    Encoding m_encoding;
    QChar m_separator;
};

} // namespace Csv
