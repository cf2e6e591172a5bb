#include "base/basCommon.h"

#include "base/AppError.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsProfile.h"

#include <QDir>
#include <QRegularExpression>

#include <array>
#include <cfenv>
#include <cmath>
#include <limits>

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
    if (const auto date = parseDate(narrow)) return date->date();
    static const QRegularExpression digits(u"^(\\d{4})(\\d{2})(\\d{2})$"_qs);
    if (const auto match = digits.match(narrow); match.hasMatch()) {
        const QDate date(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    static const QRegularExpression era(
        u"^([rhstmRHSTM])(?:(\\d{2})(\\d{2})(\\d{2})|(\\d{1,2})[./-](\\d{1,2})[./-](\\d{1,2}))$"_qs);
    const auto match = era.match(narrow);
    if (!match.hasMatch()) return std::nullopt;
    const int first = match.captured(2).isEmpty() ? 5 : 2;
    const QDate date(eraBaseYear(match.captured(1).at(0)) + match.captured(first).toInt(),
                     match.captured(first + 1).toInt(), match.captured(first + 2).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
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
    return parsed && parsed->date() >= QDate(1753, 1, 1) ? date : QString();
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

bool IsNumericText(const QString& text, bool whenEmpty) {
    const QString trimmed = Text::rightTrimmed(text);
    if (trimmed.isEmpty()) return whenEmpty;
    static const QRegularExpression form(u"^[0-9+\\-,.]+\\z"_qs);
    return form.match(trimmed).hasMatch();
}

bool isPlainNumber(const QString& text) {
    static const QRegularExpression form(u"^[+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)$"_qs);
    return form.match(text.trimmed()).hasMatch();
}

QString leadingNumberText(const QString& text) {
    QString plain = text;
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
    if (!isPlainNumber(text)) throw Errors::typeMismatch(u"ToInt"_qs);
    return ToInt(text.trimmed().toDouble());
}

qint16 ToInt16(const QString& text) {
    if (!isPlainNumber(text)) throw Errors::typeMismatch(u"ToInt16"_qs);
    return ToInt16(text.trimmed().toDouble());
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

QString FormatZip(const QString& text) {
    if (text.contains(u'-') || text.size() < 4) return text;
    return text.left(3) + u'-' + text.mid(3);
}

QString JoinWithSpace(const QString& first, const QString& second) {
    const QString head = Text::rightTrimmed(first);
    const QString tail = Text::rightTrimmed(second);
    if (tail.isEmpty()) return head;
    return head.isEmpty() ? tail : head + u'\u3000' + tail;
}

QString GetDbFilePath() {
    const clsProfile profile;
    const QString folder = profile.GetPath(u"DB"_qs, u"Path"_qs, QString());
    const QString file = profile.GetValue(u"DB"_qs, u"Database"_qs, QString());
    return folder.isEmpty() ? file : QDir(folder).filePath(file);
}

QString GetDefaultBackupFolder() { return QDir(programFolder()).filePath(u"backup"_qs); }

QString GetBackupFolder() {
    const QString configured = clsProfile().GetPath(u"Backup"_qs, u"Path"_qs, QString());
    if (!configured.isEmpty()) return configured;
    const QString folder = GetDefaultBackupFolder();
    QDir().mkpath(folder);
    return folder;
}

QString FindDriveByType(int) { return {}; }

void OpenWithShell(const QString& path) { seams().openWithShell(path); }
