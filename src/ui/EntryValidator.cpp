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
        const int units = cursor > 1 && text.at(cursor - 1).isLowSurrogate() ? 2 : 1;
        cursor -= units;
        text.remove(cursor, units);
    }
}

QValidator::State EntryValidator::validate(QString& input, int& cursor) const {
    if (!allowedCharacters.isEmpty()) {
        const QString behind = keepCharacters(input.mid(cursor), allowedCharacters);
        input = keepCharacters(input.left(cursor), allowedCharacters) + behind;
        cursor = static_cast<int>(input.size() - behind.size());
    }
    cutBeforeCursor(input, cursor, maxLength);
    return Acceptable;
}
