#include "reports/basReportUtil.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/clsProfile.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double twipsPerInch = 1440;
constexpr double millimetresPerInch = 25.4;
constexpr int firstUserDefinedSize = 256;
constexpr int longestPaper = 1'000'000;

int wholeTwips(double length) {
    if (!(std::abs(length) <= longestPaper)) return -1;
    return static_cast<int>(std::lround(static_cast<float>(length)));
}

class Section {
public:
    Section(const clsProfile& profile, const QString& name) : m_profile(profile), m_name(name) {}

    QString text(const QString& key) const { return m_profile.GetValue(m_name, key); }

    // A number beyond the range counts as not set.
    int number(const QString& key) const {
        try {
            return ToInt(Val(text(key)));
        } catch (const AppError&) {
            return 0;
        }
    }

    std::optional<int> code(const QString& key) const {
        const int value = number(key);
        return value > 0 ? std::optional(value) : std::nullopt;
    }

    std::optional<int> length(const QString& key) const {
        const int value = reportLength(text(key));
        return value >= 0 ? std::optional(value) : std::nullopt;
    }

private:
    const clsProfile& m_profile;
    QString m_name;
};

int contentWidth(const ReportLayout& layout) {
    int width = 0;
    for (const ReportBand& band : layout.bands) {
        for (const ReportTextItem& text : band.texts) width = std::max(width, text.at.right());
        for (const ReportBoxItem& box : band.boxes) width = std::max(width, box.at.right());
        for (const ReportLineItem& line : band.lines) width = std::max({width, line.x1, line.x2});
    }
    return width;
}

// Heads, totals and one row between them.
int leastHeight(const ReportLayout& layout) {
    return std::accumulate(layout.bands.begin(), layout.bands.end(), 0,
                           [](int height, const ReportBand& band) { return height + band.height; }) -
           layout.band(ReportBandKind::GroupContinued).height;
}

// Only what the office has set can be at fault.
void refuse(const ReportLayout& layout, const QString& side,
            const QList<std::pair<QString, std::optional<int>>>& lengths) {
    QStringList set;
    for (const auto& [key, length] : lengths)
        if (length) set.append(key);
    if (set.isEmpty()) return;
    throw AppError(u"Halvane.ini の [%1] の %2 では、印刷の内容が用紙の%3に収まりません。値を直してください。"_qs.arg(
                       layout.name, set.join(u"、"_qs), side),
                   u"withPageSettings"_qs);
}

// A printer's name may hold what would end a key.
QString offsetKey(const QString& printer) { return (u"Offset "_qs + QString(printer).replace(u'=', u'_')).trimmed(); }

std::optional<int> offsetIn(const QString& text) {
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    return isNumber && std::abs(number) <= largestOffset ? std::optional(number) : std::nullopt;
}

std::optional<ReportOffset> offsetAt(const clsProfile& profile, const QString& section, const QString& printer) {
    const QStringList parts = profile.GetValue(section, offsetKey(printer)).split(u',');
    if (parts.size() != 2) return std::nullopt;
    const auto right = offsetIn(parts.at(0)), down = offsetIn(parts.at(1));
    return right && down ? std::optional(ReportOffset{*right, *down}) : std::nullopt;
}

const QString underlayKey = u"Underlay"_qs;

} // namespace

int reportLength(const QString& text) {
    if (text.endsWith(u"mm", Qt::CaseInsensitive)) return wholeTwips(Val(text) * twipsPerInch / millimetresPerInch);
    if (text.endsWith(u"inch", Qt::CaseInsensitive)) return wholeTwips(Val(text) * twipsPerInch);
    return isPlainNumber(text) ? wholeTwips(Val(text)) : -1;
}

ReportPrintSettings readReportPrintSettings(const clsProfile& profile, const QString& reportClass) {
    const Section section(profile, reportClass);
    ReportPrintSettings settings;
    settings.repName = section.text(u"RepName"_qs);
    settings.paperBin = section.code(u"PaperBin"_qs);
    settings.orientation = section.code(u"Orientation"_qs);
    settings.pageSize = section.code(u"PageSize"_qs);
    settings.copies = section.code(u"Copies"_qs);
    settings.prtId = section.number(u"PrtId"_qs);
    if (settings.pageSize >= firstUserDefinedSize) {
        settings.pageHeight = section.length(u"PageHeight"_qs);
        settings.pageWidth = section.length(u"PageWidth"_qs);
    }
    settings.topMargin = section.length(u"PageTopMargin"_qs);
    settings.bottomMargin = section.length(u"PageBottomMargin"_qs);
    settings.leftMargin = section.length(u"PageLeftMargin"_qs);
    settings.rightMargin = section.length(u"PageRightMargin"_qs);
    settings.device = section.text(u"Device"_qs);
    settings.printer = section.text(u"Printer"_qs);
    settings.port = section.text(u"Port"_qs);
    return settings;
}

ReportLayout withPageSettings(ReportLayout layout, const ReportPrintSettings& settings) {
    layout.paperHeight = settings.pageHeight.value_or(layout.paperHeight);
    layout.paperWidth = settings.pageWidth.value_or(layout.paperWidth);
    layout.margins.top = settings.topMargin.value_or(layout.margins.top);
    layout.margins.bottom = settings.bottomMargin.value_or(layout.margins.bottom);
    layout.margins.left = settings.leftMargin.value_or(layout.margins.left);
    layout.margins.right = settings.rightMargin.value_or(layout.margins.right);
    if (layout.margins.left + contentWidth(layout) + settings.rightMargin.value_or(0) > layout.paperWidth)
        refuse(layout, u"幅"_qs,
               {{u"PageWidth"_qs, settings.pageWidth},
                {u"PageLeftMargin"_qs, settings.leftMargin},
                {u"PageRightMargin"_qs, settings.rightMargin}});
    if (layout.margins.top + leastHeight(layout) + layout.margins.bottom > layout.paperHeight)
        refuse(layout, u"高さ"_qs,
               {{u"PageHeight"_qs, settings.pageHeight},
                {u"PageTopMargin"_qs, settings.topMargin},
                {u"PageBottomMargin"_qs, settings.bottomMargin}});
    return layout;
}

ReportOffset readReportOffset(const clsProfile& profile, const QString& reportClass, const QString& printer) {
    if (!printer.isEmpty())
        if (const auto own = offsetAt(profile, reportClass, printer)) return *own;
    return offsetAt(profile, reportClass, {}).value_or(ReportOffset{});
}

void saveReportOffset(const clsProfile& profile, const QString& reportClass, const QString& printer,
                      ReportOffset offset) {
    profile.SaveValue(reportClass, offsetKey(printer), u"%1,%2"_qs.arg(offset.right).arg(offset.down));
}

QString readReportUnderlay(const clsProfile& profile, const QString& reportClass) {
    return profile.GetPath(reportClass, underlayKey);
}

void saveReportUnderlay(const clsProfile& profile, const QString& reportClass, const QString& path) {
    profile.SaveValue(reportClass, underlayKey, path);
}
