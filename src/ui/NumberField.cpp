#include "ui/NumberField.h"

#include "base/basMessage.h"
#include "ui/basControlUtil.h"

namespace {

// "0012" gives "12", "" gives "0".
QString withoutLeadingZeros(const QString& digits) {
    qsizetype first = 0;
    while (first + 1 < digits.size() && digits.at(first) == u'0') ++first;
    return digits.isEmpty() ? u"0"_qs : digits.mid(first);
}

} // namespace

NumberField::NumberField(QWidget* parent) : EntryField(parent) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setInputMethodHints(Qt::ImhPreferLatin | Qt::ImhFormattedNumbersOnly);
    // A point is taken also where none belongs: left out, it would make the number ten times as large.
    setAllowedCharacters(numericKeys + u'.');
}

void NumberField::setDecimals(int decimals) { m_decimals = decimals; }

void NumberField::setLimit(double most, const QString& caption) {
    m_most = most;
    m_caption = caption;
}

QString NumberField::valueOfTyped(const QString& typed) const { return plain(typed).value_or(QString()); }

std::optional<QString> NumberField::plain(const QString& typed) {
    QString text = narrowNumber(typed).trimmed();
    text.remove(u',');
    if (text.isEmpty()) return QString();
    if (!isPlainNumber(text)) return std::nullopt;
    const bool negative = text.startsWith(u'-');
    if (negative || text.startsWith(u'+')) text.remove(0, 1);
    const QString fraction = text.section(u'.', 1);
    const QString number =
        withoutLeadingZeros(text.section(u'.', 0, 0)) + (fraction.isEmpty() ? QString() : u'.' + fraction);
    return negative ? u'-' + number : number;
}

std::optional<QString> NumberField::settled(const QString& typed) const {
    const auto number = plain(typed);
    if (!number || number->section(u'.', 1).size() > m_decimals || isBeyond(*number)) return std::nullopt;
    return groupThousands(*number);
}

QString NumberField::shownFor(const QString& value) const {
    const auto number = plain(value);
    if (!number) return value;
    const bool rounds = m_decimals == 0 && number->contains(u'.');
    return groupThousands(rounds ? formatWhole(*number) : *number);
}

QString NumberField::editable(const QString& shown) const { return QString(shown).remove(u','); }

QString NumberField::complaint() const {
    if (isBeyond(valueOfTyped(text()))) return GetMessageText(Message::Overflow, m_caption);
    return m_decimals > 0 ? u"数値が正しくありません。"_qs : u"数値が正しくありません。\n\n整数を入力してください。"_qs;
}
