#include "base/Money.h"

#include "base/AppError.h"
#include "base/Numbers.h"

#include <limits>

Money Money::yen(qint64 value) {
    qint64 scaled = 0;
    if (__builtin_mul_overflow(value, Scale, &scaled)) throw Errors::overflow(u"Money"_qs);
    return Money(scaled);
}

namespace {

// Decimal digits to ten-thousandths; what lies behind the fourth decimal rounds to the nearest, ties to even.
qint64 scaledDigits(const QString& number) {
    const bool negative = number.startsWith(u'-');
    const qsizetype start = negative || number.startsWith(u'+') ? 1 : 0;
    const qsizetype point = number.indexOf(u'.');
    const QString whole = number.mid(start, (point < 0 ? number.size() : point) - start);
    const QString fraction = point < 0 ? QString() : number.mid(point + 1);
    qint64 value = 0;
    for (QChar c : whole + fraction.left(4).leftJustified(4, u'0')) {
        if (__builtin_mul_overflow(value, qint64{10}, &value) || __builtin_add_overflow(value, c.digitValue(), &value))
            throw Errors::overflow(u"Money"_qs);
    }
    const QString rest = fraction.mid(4);
    const bool half = rest.startsWith(u'5') && rest.mid(1).count(u'0') == rest.size() - 1;
    const bool up = !rest.isEmpty() && rest.at(0) >= u'5' && (!half || value % 2 != 0);
    if (__builtin_add_overflow(value, qint64{up}, &value)) throw Errors::overflow(u"Money"_qs);
    return negative ? -value : value;
}

} // namespace

Money Money::leadingNumber(const QString& text) {
    const QString number = leadingNumberText(text);
    return number.isEmpty() ? Money() : Money(scaledDigits(number));
}

Money Money::parse(const QString& text) {
    if (!isPlainNumber(narrowNumber(text))) throw Errors::typeMismatch(u"Money"_qs);
    return leadingNumber(text);
}

qint64 Money::toYen() const {
    const qint64 whole = m_value / Scale;
    const qint64 rest = m_value % Scale;
    const qint64 twice = 2 * (rest < 0 ? -rest : rest);
    if (twice > Scale || (twice == Scale && whole % 2 != 0)) return whole + (m_value < 0 ? -1 : 1);
    return whole;
}

QString Money::toText() const {
    const bool negative = m_value < 0;
    const quint64 magnitude = negative ? 0 - static_cast<quint64>(m_value) : static_cast<quint64>(m_value);
    QString text = (negative ? u"-"_qs : QString()) + QString::number(magnitude / Scale);
    const quint64 rest = magnitude % Scale;
    if (rest == 0) return text;
    QString decimals = QString::number(rest).rightJustified(4, u'0');
    while (decimals.endsWith(u'0')) decimals.chop(1);
    return text + u'.' + decimals;
}

qint64 Money::percentage(const QString& percent, qint64 yen) {
    constexpr __int128 whole = __int128{100} * Scale;
    const __int128 product = static_cast<__int128>(leadingNumber(percent).m_value) * yen;
    __int128 result = product / whole;
    const __int128 rest = product % whole;
    const __int128 twice = 2 * (rest < 0 ? -rest : rest);
    if (twice > whole || (twice == whole && result % 2 != 0)) result += product < 0 ? -1 : 1;
    if (result > std::numeric_limits<qint64>::max() || result < std::numeric_limits<qint64>::min())
        throw Errors::overflow(u"Money"_qs);
    return static_cast<qint64>(result);
}

Money Money::operator+(Money other) const {
    qint64 sum = 0;
    if (__builtin_add_overflow(m_value, other.m_value, &sum)) throw Errors::overflow(u"Money"_qs);
    return Money(sum);
}

Money Money::operator-(Money other) const {
    qint64 difference = 0;
    if (__builtin_sub_overflow(m_value, other.m_value, &difference)) throw Errors::overflow(u"Money"_qs);
    return Money(difference);
}
