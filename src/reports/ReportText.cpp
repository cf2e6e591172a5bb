#include "reports/ReportText.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basCommon.h"

#include <array>
#include <cmath>

namespace ReportText {

namespace {

const std::array<QString, 3> patterns{u"#,##0"_qs, u"#,###"_qs, u"0"_qs};

const QString* patternIn(const QString& form) {
    for (const QString& pattern : patterns)
        if (form.contains(pattern)) return &pattern;
    return nullptr;
}

QString twoPlaces(const QString& number) { return number.rightJustified(2, u' '); }

QString today() { return dateText(currentDate()); }

} // namespace

bool isNumberForm(const QString& form) { return patternIn(form) != nullptr; }

QString number(const QVariant& value, const QString& form) {
    if (value.isNull() || value.toString().isEmpty()) return {};
    const QString* pattern = patternIn(form);
    if (!pattern) return value.toString();
    const qint64 whole = std::llround(value.toDouble());
    if (whole == 0 && *pattern == patterns[1]) return {};
    const QString digits = *pattern == patterns[2] ? QString::number(whole) : formatThousands(whole);
    return QString(form).replace(*pattern, digits);
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

} // namespace ReportText
