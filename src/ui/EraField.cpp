#include "ui/EraField.h"

#include "base/Dates.h"
#include "base/Text.h"

EraField::EraField(QWidget* parent) : EntryField(parent) { setInputMethodHints(Qt::ImhPreferLatin | Qt::ImhDate); }

namespace {

QString dateOf(const QString& entry) {
    const auto date = entry.isEmpty() || eraBaseYear(entry.front()) == 0 ? std::nullopt : parseTypedDate(entry);
    return date ? dateText(*date) : QString();
}

} // namespace

std::optional<QString> EraField::settled(const QString& typed) const {
    const QString entry = Text::toNarrowLetters(Text::oneLine(typed));
    return entry.isEmpty() || !dateOf(entry).isEmpty() ? std::optional(entry) : std::nullopt;
}

QString EraField::valueOfTyped(const QString& typed) const { return dateOf(settled(typed).value_or(QString())); }

QString EraField::complaint() const {
    return Text::rightTrimmed(text()) + u"は日付として入力できません。 h010203 のように入力してください"_qs;
}
