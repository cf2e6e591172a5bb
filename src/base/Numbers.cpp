#include "base/Numbers.h"

#include "base/AppError.h"
#include "base/Text.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

bool IsNumericText(const QString& text, bool whenEmpty) {
    const QString trimmed = Text::rightTrimmed(text);
    if (trimmed.isEmpty()) return whenEmpty;
    static const QRegularExpression form(u"^[0-9+\\-,.]+\\z"_qs);
    return form.match(trimmed).hasMatch();
}

QString narrowNumber(const QString& text) {
    const bool isNarrow = std::all_of(text.begin(), text.end(), [](QChar sign) { return sign.unicode() < 0x80; });
    return isNarrow ? text : Text::toNarrowLetters(text);
}

bool isPlainNumber(const QString& text) {
    static const QRegularExpression form(u"^[+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)$"_qs);
    return form.match(text.trimmed()).hasMatch();
}

QString leadingNumberText(const QString& text) {
    QString plain = narrowNumber(text);
    plain.remove(u',');
    static const QRegularExpression form(u"^\\s*([+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+))"_qs);
    return form.match(plain).captured(1);
}

double Val(const QString& text) { return leadingNumberText(text).toDouble(); }

double roundHalfEven(double value) {
    // The default rounding mode of the machine is to nearest, ties to even.
    return std::nearbyint(value);
}

qint32 ToInt(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<qint32>::min() && rounded <= std::numeric_limits<qint32>::max()))
        throw Errors::overflow(u"ToInt"_qs);
    return static_cast<qint32>(rounded);
}

qint16 ToInt16(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<qint16>::min() && rounded <= std::numeric_limits<qint16>::max()))
        throw Errors::overflow(u"ToInt16"_qs);
    return static_cast<qint16>(rounded);
}

qint32 ToInt(const QString& text) {
    const QString number = narrowNumber(text).trimmed();
    if (!isPlainNumber(number)) throw Errors::typeMismatch(u"ToInt"_qs);
    return ToInt(number.toDouble());
}

qint16 ToInt16(const QString& text) {
    const QString number = narrowNumber(text).trimmed();
    if (!isPlainNumber(number)) throw Errors::typeMismatch(u"ToInt16"_qs);
    return ToInt16(number.toDouble());
}

QString numberText(double value) {
    QString text = QString::number(value, 'f', 10);
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text == u"-0" ? u"0"_qs : text;
}

namespace {

// The whole number that a text starts with; beyond 64 bits an error.
qint64 wholeNumber(const QString& text) {
    constexpr double bound = 9223372036854775808.0; // 2 to the 63rd
    const double rounded = roundHalfEven(Val(text));
    if (!(rounded >= -bound && rounded < bound)) throw Errors::overflow(u"wholeNumber"_qs);
    return static_cast<qint64>(rounded);
}

} // namespace

QString formatThousands(qint64 value) {
    QString digits = QString::number(value);
    for (qsizetype i = digits.size() - 3; i > (value < 0 ? 1 : 0); i -= 3) digits.insert(i, u',');
    return digits;
}

QString formatThousands(const QString& text) { return formatThousands(wholeNumber(text)); }

QString groupThousands(const QString& number) {
    const bool isSigned = number.startsWith(u'-') || number.startsWith(u'+');
    const qsizetype point = number.indexOf(u'.');
    QString grouped = number;
    for (qsizetype i = (point < 0 ? number.size() : point) - 3; i > (isSigned ? 1 : 0); i -= 3) grouped.insert(i, u',');
    return grouped;
}

QString formatWhole(const QString& text) { return QString::number(wholeNumber(text)); }
