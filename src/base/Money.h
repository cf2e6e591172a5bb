#pragma once

#include <QString>

#include <compare>

// An amount of yen with four decimals, held as a whole number of ten-thousandths.
class Money {
public:
    static constexpr qint64 Scale = 10'000;

    Money() = default;
    // Whole yen; raises an overflow error beyond the range.
    static Money yen(qint64 value);
    static Money ofTenThousandths(qint64 value) { return Money(value); }
    // The leading number of a text (thousands separators allowed), rounded to four decimals with ties to even; a text
    // without one gives 0.
    static Money leadingNumber(const QString& text);
    // A text that is a number as a whole; anything else, the empty text included, raises a type error.
    static Money parse(const QString& text);

    // So many percent (the leading number of a text, with up to four decimals) of whole yen, in whole yen with ties to
    // even; computed in decimals, as binary fractions miss the ties.
    static qint64 percentage(const QString& percent, qint64 yen);

    qint64 tenThousandths() const { return m_value; }
    double toDouble() const { return static_cast<double>(m_value) / Scale; }
    // Whole yen, rounded with ties to even.
    qint64 toYen() const;
    // Plain decimal without trailing zeros: "1234" or "0.5".
    QString toText() const;

    Money operator+(Money other) const;
    Money operator-(Money other) const;
    Money& operator+=(Money other) { return *this = *this + other; }
    // NOLINTNEXTLINE(modernize-use-nullptr): the check takes the 0 of the compiler's own comparison for ours
    auto operator<=>(const Money&) const = default;

private:
    explicit constexpr Money(qint64 value) : m_value(value) {}

    qint64 m_value = 0;
};
