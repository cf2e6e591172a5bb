#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

// Dates travel as text: "2005/03/01", with " 9:05:00" behind it when they have a time; the empty text is no date.

// A date text in any of the forms that the system writes or reads (2005/3/1, 2005-03-01, with or without a time).
std::optional<QDateTime> parseDate(const QString& text);
// What an operator types into a date field: the above, 20050301, h170301, R6.4.1, also in full width. Nothing before
// 1753/01/01.
std::optional<QDate> parseTypedDate(const QString& text);
// "2005/03/01", with " 9:05:00" behind it when the time is not midnight.
QString dateText(const QDateTime& value);
QString dateText(const QDate& value);
// The moment in a form of letters: yyyy, mm, dd, hh, nn, ss; all else stays.
QString formatDate(const QDateTime& value, const QString& format);
// The date in a text, formatted; no date gives the empty text.
QString formatDate(const QString& value, const QString& format);

// The Japanese era form of a date text: "ggg" era name, "e" era year, "mm", "dd", "m", "d". No date gives the empty
// text; 2019/05/01 and later is 令和, with its first year as 1.
QString FormatEraDate(const QString& value, const QString& format);
// The first year of an era minus one, by its Latin letter r h s t m; 0 for another letter.
int eraBaseYear(QChar letter);

// The date as entered (8 digits get their slashes), or empty when it is none or lies before 1753/01/01.
QString CheckDate(const QString& text);
// Whole years between two date texts; 0 when one is no date or they run backwards.
qint16 CalcAge(const QString& fromDate, const QString& toDate);
