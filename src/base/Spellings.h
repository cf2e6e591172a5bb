#pragma once

#include <QStringList>

// The spellings in which one text may stand in the data of an office: kana as hiragana, katakana and half-width
// katakana, letters, digits and blanks in half and full width, the latter in both cases (the engines know the cases of
// half-width letters). The text itself comes first, each spelling once; of kanji alone there is but one. A text that
// mixes widths by itself is found by that mixture and by the pure ones.
QStringList spellings(const QString& text);
