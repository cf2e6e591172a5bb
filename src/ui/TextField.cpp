#include "ui/TextField.h"

#include "base/Text.h"

#include <QInputMethodEvent>

#include <algorithm>

namespace {

bool isKana(QChar c) {
    const char16_t code = c.unicode();
    return (code >= u'\u3041' && code <= u'\u30FE') || (code >= u'\uFF66' && code <= u'\uFF9F');
}

// Letters at the end are a syllable that is still being spelled.
QString kanaOf(const QString& composed) {
    QString kana = composed;
    while (!kana.isEmpty() && kana.back().unicode() < u'\u3000') kana.chop(1);
    return std::all_of(kana.cbegin(), kana.cend(), isKana) ? kana : QString();
}

} // namespace

TextField::TextField(QWidget* parent) : EntryField(parent) {}

void TextField::setInputMode(InputMode mode) {
    m_mode = mode;
    setInputMethodHints(mode == Off ? Qt::ImhPreferLatin | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase
                                    : Qt::ImhNone);
}

std::optional<QString> TextField::settled(const QString& typed) const { return spelled(typed); }

QString TextField::spelled(const QString& typed) const {
    const QString line = Text::oneLine(typed);
    switch (m_mode) {
    case HalfKana:
        return Text::toHalfKana(line);
    case Off:
        return Text::toNarrowLetters(line);
    default:
        return line;
    }
}

void TextField::inputMethodEvent(QInputMethodEvent* event) {
    const QString committed = event->commitString();
    const bool fromNothing = text().isEmpty() || selectedText() == text();
    EntryField::inputMethodEvent(event);
    if (!committed.isEmpty()) {
        appendReading(m_composedKana.isEmpty() ? kanaOf(committed) : m_composedKana, fromNothing);
        m_composedKana.clear();
    }
    const QString kana = kanaOf(event->preeditString());
    if (!kana.isEmpty() || (event->preeditString().isEmpty() && committed.isEmpty())) m_composedKana = kana;
}

void TextField::appendReading(const QString& kana, bool replace) {
    if (!m_reading || kana.isEmpty() || isReadOnly()) return;
    const QString before = replace ? QString() : m_reading->value();
    m_reading->fillIn(before + Text::toHalfKana(kana));
}
