#include "base/Dates.h"

#include "base/Text.h"

#include <QRegularExpression>

#include <array>

namespace {

struct Era {
    QDate firstDay;
    QString name;
    char16_t letter;
    int baseYear; // era year 1 is baseYear + 1
};

const std::array<Era, 5>& eras() {
    static const std::array<Era, 5> table{{
        {QDate(2019, 5, 1), u"令和"_qs, u'r', 2018},
        {QDate(1989, 1, 8), u"平成"_qs, u'h', 1988},
        {QDate(1926, 12, 25), u"昭和"_qs, u's', 1925},
        {QDate(1912, 7, 30), u"大正"_qs, u't', 1911},
        {QDate(1868, 1, 25), u"明治"_qs, u'm', 1867},
    }};
    return table;
}

const Era* eraOf(const QDate& date) {
    for (const Era& era : eras())
        if (date >= era.firstDay) return &era;
    return nullptr;
}

std::optional<QDateTime> dateOf(int year, int month, int day, const QTime& time = QTime(0, 0)) {
    const QDate date(year, month, day);
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    return QDateTime(date, time);
}

// What is typed earlier than this is a slip.
bool mayBeTyped(const QDate& date) { return date.isValid() && date >= QDate(1753, 1, 1); }

std::optional<QDate> typed(const QDate& date) { return mayBeTyped(date) ? std::optional(date) : std::nullopt; }

QString twoDigits(int value) { return QString::number(value).rightJustified(2, u'0'); }

} // namespace

std::optional<QDateTime> parseDate(const QString& text) {
    static const QRegularExpression form(
        u"^\\s*(\\d{4})[/-](\\d{1,2})[/-](\\d{1,2})(?:[ T](\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?)?\\s*$"_qs);
    const auto match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const auto part = [&match](int index) { return match.captured(index).toInt(); };
    return dateOf(part(1), part(2), part(3), QTime(part(4), part(5), part(6)));
}

std::optional<QDate> parseTypedDate(const QString& text) {
    const QString narrow = Text::toHalfWidth(text).trimmed();
    if (const auto date = parseDate(narrow)) return typed(date->date());
    static const QRegularExpression digits(u"^(\\d{4})(\\d{2})(\\d{2})$"_qs);
    if (const auto match = digits.match(narrow); match.hasMatch()) {
        return typed(QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()));
    }
    static const QRegularExpression era(
        u"^([rhstmRHSTM])(?:(\\d{2})(\\d{2})(\\d{2})|(\\d{1,2})[./-](\\d{1,2})[./-](\\d{1,2}))$"_qs);
    const auto match = era.match(narrow);
    if (!match.hasMatch()) return std::nullopt;
    const int first = match.captured(2).isEmpty() ? 5 : 2;
    return typed(QDate(eraBaseYear(match.captured(1).at(0)) + match.captured(first).toInt(),
                       match.captured(first + 1).toInt(), match.captured(first + 2).toInt()));
}

QString dateText(const QDateTime& value) {
    if (!value.isValid()) return {};
    const QTime time = value.time();
    if (time.hour() == 0 && time.minute() == 0 && time.second() == 0) return dateText(value.date());
    return dateText(value.date()) + value.toString(u" h:mm:ss"_qs);
}

QString dateText(const QDate& value) { return value.isValid() ? value.toString(u"yyyy/MM/dd"_qs) : QString(); }

QString formatDate(const QDateTime& value, const QString& format) {
    QString text = format;
    text.replace(u"yyyy"_qs, value.toString(u"yyyy"_qs));
    text.replace(u"yy"_qs, value.toString(u"yy"_qs));
    text.replace(u"mm"_qs, value.toString(u"MM"_qs));
    text.replace(u"dd"_qs, value.toString(u"dd"_qs));
    text.replace(u"hh"_qs, value.toString(u"HH"_qs));
    text.replace(u"nn"_qs, value.toString(u"mm"_qs));
    text.replace(u"ss"_qs, value.toString(u"ss"_qs));
    return text;
}

QString formatDate(const QString& value, const QString& format) {
    const auto date = parseDate(value);
    return date ? formatDate(*date, format) : QString();
}

QString FormatEraDate(const QString& value, const QString& format) {
    const auto moment = parseDate(value);
    if (!moment) return {};
    const QDate date = moment->date();
    const Era* era = eraOf(date);
    QString text = format;
    text.replace(u"ggg"_qs, era ? era->name : QString());
    text.replace(u"e"_qs, QString::number(date.year() - (era ? era->baseYear : 0)));
    text.replace(u"mm"_qs, twoDigits(date.month()));
    text.replace(u"dd"_qs, twoDigits(date.day()));
    text.replace(u"m"_qs, QString::number(date.month()));
    text.replace(u"d"_qs, QString::number(date.day()));
    return text;
}

int eraBaseYear(QChar letter) {
    for (const Era& era : eras())
        if (letter.toLower() == QChar(era.letter)) return era.baseYear;
    return 0;
}

QString CheckDate(const QString& text) {
    QString date = Text::rightTrimmed(text);
    if (date.isEmpty()) return {};
    if (!date.contains(u'/')) {
        if (date.size() != 8) return {};
        date = date.left(4) + u'/' + date.mid(4, 2) + u'/' + date.mid(6);
    }
    const auto parsed = parseDate(date);
    return parsed && mayBeTyped(parsed->date()) ? date : QString();
}

qint16 CalcAge(const QString& fromDate, const QString& toDate) {
    const auto from = parseDate(fromDate);
    const auto to = parseDate(toDate);
    if (!from || !to || *from > *to) return 0;
    const QDate birth = from->date();
    const QDate day = to->date();
    int years = day.year() - birth.year();
    if (birth.month() > day.month() || (birth.month() == day.month() && birth.day() > day.day())) --years;
    return static_cast<qint16>(years);
}
