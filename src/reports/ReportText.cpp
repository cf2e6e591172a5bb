#include "reports/ReportText.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/Text.h"

#include <array>
#include <cmath>

namespace ReportText {

namespace {

const std::array<QString, 4> patterns{u"#,##0"_qs, u"#,###.#"_qs, u"#,###"_qs, u"0"_qs};

const QString* patternIn(const QString& form) {
    for (const QString& pattern : patterns)
        if (form.contains(pattern)) return &pattern;
    return nullptr;
}

QString twoPlaces(const QString& number) { return number.rightJustified(2, u' '); }

// An era is known by the year that it counts from.
QString eraLetter(int year, int eraYear) {
    for (const QChar letter : u"rhstm"_qs)
        if (year - eraBaseYear(letter) == eraYear) return letter.toUpper();
    return {};
}

bool isEraForm(const QString& form) { return form.contains(u'g') || form.contains(u'e'); }

QString today() { return dateText(currentDate()); }

} // namespace

bool isNumberForm(const QString& form) { return patternIn(form) != nullptr; }

QString number(const QVariant& value, const QString& form) {
    if (value.isNull() || value.toString().isEmpty()) return {};
    const QString* pattern = patternIn(form);
    if (!pattern) return value.toString();
    const bool decimals = *pattern == patterns[1];
    const QString digits = decimals ? numberText(value.toDouble()) : QString::number(std::llround(value.toDouble()));
    if (digits == u"0" && pattern->startsWith(u"#,###")) return {};
    return QString(form).replace(*pattern, *pattern == patterns[3] ? digits : groupThousands(digits));
}

bool isDateForm(const QString& form) { return isEraForm(form) || form.contains(u"yy") || form.contains(u"mm"); }

QString date(const QString& value, const QString& form) {
    const auto moment = parseDate(value);
    if (!moment || !isEraForm(form)) return formatDate(value, form);
    const QString year = FormatEraDate(value, u"e"_qs);
    QString era = form;
    if (!era.contains(u"ggg")) era.replace(u"g"_qs, eraLetter(moment->date().year(), year.toInt()));
    return FormatEraDate(value, era.replace(u"ee"_qs, year.rightJustified(2, u'0')));
}

QString issueDate(const QString& date, int form, bool blankForm) {
    if (!parseDate(date)) {
        if (!blankForm) return {};
        return Text::toFullWidth(u"平成  年  月  日"_qs).replace(u"平成"_qs, FormatEraDate(today(), u"ggg"_qs));
    }
    const QString year = twoPlaces(FormatEraDate(date, u"e"_qs));
    const QString month = twoPlaces(FormatEraDate(date, u"m"_qs));
    const QString day = twoPlaces(FormatEraDate(date, u"d"_qs));
    QString text = FormatEraDate(date, u"ggg"_qs);
    switch (form) {
    case 1:
        text += year + u"年"_qs + month + u"月"_qs + day + u"日"_qs;
        break;
    case 2:
        text += year + u"年"_qs + month + u"月  日"_qs;
        break;
    case 3:
        text += year + u"年  月  日"_qs;
        break;
    default:
        text += u"  年  月  日"_qs;
    }
    return Text::toFullWidth(text);
}

QString shortened(const QString& text, int size) {
    if (text.size() <= size) return text;
    const int kept = size - 1;
    return text.left(text.at(kept - 1).isHighSurrogate() ? kept - 1 : kept) + u'…';
}

} // namespace ReportText
