#pragma once

#include <QString>

// Numbers travel as text, too.

// True when the text holds digits, signs, commas and points only; an empty text gives `whenEmpty`.
bool IsNumericText(const QString& text, bool whenEmpty);
// A number typed in full width (digits, signs, point and comma) as it is read: in half width. Full-width digits count
// wherever a text is read as a number.
QString narrowNumber(const QString& text);
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
