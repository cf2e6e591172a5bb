#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Code page 932, widths and kana. Japanese files (INI, price files, CSV) and field widths of paper count in this code
// page's bytes.
namespace Text {

// Raises an error when the platform lacks the converter of the code page. Those of kana and widths are opened by the
// first text that needs them: all of them together are a fifth of a start.
void assertConverters();

// A character that the code page lacks becomes "?"; one that is not seen by itself leaves nothing.
QByteArray toCp932(const QString& text);
QString fromCp932(const QByteArray& bytes);
int cp932Length(const QString& text);
// The characters that the code page lacks, in order of appearance, each once, as a person can find them: what is not
// seen by itself stands as its code point behind the character before it, as in "辻（異体字 U+E0100）".
QStringList missingInCp932(const QString& text);
// The code point, such as "U+20BB7", in the place of each character that the code page lacks.
QString withCodePoints(const QString& text);

// Any kana to half-width katakana, full-width Latin letters, digits and blanks to half width; all else stays.
QString toHalfWidth(const QString& text);
QString toFullWidth(const QString& text);
// Letters, digits, signs and blanks to half width; kana stay. Any dash behind a digit is a hyphen, as the input method
// writes a long vowel there.
QString toNarrowLetters(const QString& text);
// The kana of a reading in half-width katakana: hiragana, katakana and half-width katakana alike.
QString toHalfKana(const QString& text);

// The parts of a Japanese text between which a line may end without parting a word.
QStringList phrases(const QString& text);

// So many signs from the beginning; one that takes two units counts once and stays whole.
QString first(const QString& text, int signs);
// How many signs a text has.
qsizetype signs(const QString& text);
// Where half of a sign of two units stands alone, which no encoding has a form for; -1: nowhere.
qsizetype loneHalf(const QString& text);
// The text with the sign U+FFFD in the place of each lone half.
QString wholeSigns(const QString& text);
// What a field of one line takes from a text of any shape, such as the cell of a spreadsheet: its first line that holds
// something, without blanks around it and without control characters and lone halves.
QString oneLine(const QString& text);

// Without blanks at its end (also ideographic ones are kept: only U+0020 counts).
QString rightTrimmed(const QString& text);

} // namespace Text
