#include "base/Spellings.h"

#include "base/Text.h"

namespace {

constexpr char16_t fromKatakana = u'\u30A1' - u'\u3041';

// Whole katakana and wide letters, from any of the forms.
QString wide(const QString& text) { return Text::toFullWidth(Text::toHalfKana(text)); }

QString hiragana(QString katakana) {
    for (QChar& sign : katakana)
        if (sign >= u'\u30A1' && sign <= u'\u30F6') sign = QChar(sign.unicode() - fromKatakana);
    return katakana;
}

} // namespace

QStringList spellings(const QString& text) {
    QStringList all{text, Text::toHalfKana(text)};
    for (const QString& each : {wide(text).toUpper(), wide(text).toLower(), Text::toNarrowLetters(wide(text))})
        all << each << hiragana(each);
    all.removeDuplicates();
    return all;
}
