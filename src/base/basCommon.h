#pragma once

#include "base/Paths.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <optional>

// The plain conversions that every subject shares. Dates travel as text: "2005/03/01", with " 9:05:00" behind it when
// they have a time; the empty text is no date.

// --- dates ---

// A date text in any of the forms that the system writes or reads (2005/3/1, 2005-03-01, with or without a time).
std::optional<QDateTime> parseDate(const QString& text);
// What an operator types into a date field: the above, 20050301, h170301, R6.4.1, also in full width.
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

// --- numbers ---

// True when the text holds digits, signs, commas and points only; an empty text gives `whenEmpty`.
bool IsNumericText(const QString& text, bool whenEmpty);
// True for one well-formed decimal number such as "12", "-3.5" (no separators, no exponent, no blanks inside).
bool isPlainNumber(const QString& text);
// The number at the start of a text, thousands separators taken out: "1,234円" gives "1234"; empty when there is none.
QString leadingNumberText(const QString& text);
// The value of the number at the start of a text, else 0.
double Val(const QString& text);
// Rounds to the nearest whole number, ties to even. Raises an overflow error beyond 32 (or 16) bits.
qint32 ToInt(double value);
qint16 ToInt16(double value);
// A text that is a number as a whole to a rounded number; raises a type error for any other text.
qint32 ToInt(const QString& text);
qint16 ToInt16(const QString& text);
// Ties to even, without bounds other than those of a double.
double roundHalfEven(double value);
// A double as plain decimal text without exponent and without trailing zeros.
QString numberText(double value);
// "#,##0" of the leading number of the text, and "0" of it: whole numbers, ties to even.
QString formatThousands(qint64 value);
QString formatThousands(const QString& text);
// A plain number with separators and its decimals as they stand.
QString groupThousands(const QString& number);
QString formatWhole(const QString& text);

// --- other texts ---

// 1234567 gives 123-4567; shorter than 4 characters or with a hyphen it stays.
QString FormatZip(const QString& text);
// Both texts with one ideographic blank between them; the second alone or the first alone without it.
QString JoinWithSpace(const QString& first, const QString& second);

// --- paths ---

QString GetDbFilePath();
QString GetDefaultBackupFolder();
QString GetBackupFolder();
// The first drive of a kind; drives have no letters here, so none is found.
QString FindDriveByType(int type);
// Opens a document by its association.
void OpenWithShell(const QString& path);
