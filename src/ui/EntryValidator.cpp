#include "ui/EntryValidator.h"

#include "base/Text.h"

#include <algorithm>

QString keepCharacters(const QString& text, const QString& allowed) {
    QString kept;
    for (const QChar c : Text::toHalfWidth(text)) {
        const bool dash = c == u'ｰ' || c == u'\u2212' || c == u'\u2015' || c == u'\u2010';
        const QChar plain = dash ? QChar(u'-') : c;
        if (allowed.contains(plain)) kept += plain;
    }
    return kept;
}

void cutBeforeCursor(QString& text, int& cursor, int maxLength) {
    if (maxLength <= 0) return;
    auto excess = text.toUcs4().size() - maxLength;
    while (excess-- > 0) {
        if (cursor == 0) cursor = static_cast<int>(text.size());
        const bool pair = cursor > 1 && text.at(cursor - 1).isLowSurrogate() && text.at(cursor - 2).isHighSurrogate();
        const int units = pair ? 2 : 1;
        cursor -= units;
        text.remove(cursor, units);
    }
}

namespace {

bool isLineEnd(QChar c) { return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029'; }

// What stands before the cursor ends with what was pasted.
void keepOneLine(QString& text, int& cursor) {
    if (std::none_of(text.begin(), text.end(), isLineEnd)) return;
    const QString ahead = Text::oneLine(text.left(cursor));
    const QString behind = text.mid(cursor);
    const auto end = std::find_if(behind.begin(), behind.end(), isLineEnd);
    text = ahead + behind.left(end - behind.begin());
    cursor = static_cast<int>(ahead.size());
}

} // namespace

QValidator::State EntryValidator::validate(QString& input, int& cursor) const {
    keepOneLine(input, cursor);
    if (!allowedCharacters.isEmpty()) {
        const QString behind = keepCharacters(input.mid(cursor), allowedCharacters);
        input = keepCharacters(input.left(cursor), allowedCharacters) + behind;
        cursor = static_cast<int>(input.size() - behind.size());
    }
    cutBeforeCursor(input, cursor, maxLength);
    return Acceptable;
}
