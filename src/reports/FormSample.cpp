#include "reports/FormSample.h"

#include "base/Dates.h"
#include "base/Seams.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double twipsPerMillimetre = 1440 / 25.4;
constexpr int cornerMargin = 10; // millimetres
constexpr int hairline = 6;

int twips(double millimetres) { return static_cast<int>(std::lround(millimetres * twipsPerMillimetre)); }

// Short fields hold parts of dates.
QString sampleText(int size) {
    if (size <= 2) return u"10"_qs;
    return size <= 5 ? u"令和"_qs : u"見本見本見本見本"_qs.left(size);
}

QVariant sampleOf(const ReportField& field) {
    switch (field.type) {
    case ReportFieldType::Text:
        return sampleText(field.size);
    case ReportFieldType::Integer:
        return 1;
    case ReportFieldType::Float:
        return 10;
    case ReportFieldType::Currency:
        return 1'234'567;
    case ReportFieldType::Date:
        return dateText(currentDate());
    }
    return {};
}

// Several fields may share a place, one for each kind of row.
bool standsIn(const ReportSample& sample, const QString& field) {
    if (sample.rows.isEmpty() || sample.rows.first().contains(field)) return true;
    return std::none_of(sample.rows.begin(), sample.rows.end(),
                        [&](const QStringList& kind) { return kind.contains(field); });
}

class Ruler {
public:
    explicit Ruler(const ReportLayout& layout) {
        m_page.paperWidth = layout.paperWidth;
        m_page.paperHeight = layout.paperHeight;
    }

    ReportPage drawn(const QStringList& words) {
        addRuler(true);
        addRuler(false);
        addCorners();
        for (qsizetype i = 0; i < words.size(); ++i)
            addWords(words.at(i), {twips(15), twips(40 + 8.0 * double(i))}, 10);
        return std::move(m_page);
    }

private:
    void addLine(int x1, int y1, int x2, int y2) { m_page.lines.append({x1, y1, x2, y2, hairline, false}); }

    void addWords(const QString& words, std::pair<int, int> at, double size) {
        ReportPageText text;
        text.control = u"lblRuler"_qs;
        text.text = words;
        text.font = {true, size, false, 0};
        text.x = at.first;
        text.baseline = at.second;
        text.room = {at.first, at.second - twips(5), twips(150), twips(6)};
        m_page.texts.append(text);
    }

    // Marks of one, two and three millimetres at each one, fifth and tenth.
    void addRuler(bool across) {
        const int length = across ? m_page.paperWidth : m_page.paperHeight;
        const int middle = (across ? m_page.paperHeight : m_page.paperWidth) / 2;
        across ? addLine(0, middle, length, middle) : addLine(middle, 0, middle, length);
        for (int mark = 1; twips(mark) < length; ++mark) {
            const int reach = twips(mark % 10 == 0 ? 3 : mark % 5 == 0 ? 2 : 1);
            const int at = twips(mark);
            across ? addLine(at, middle - reach, at, middle) : addLine(middle - reach, at, middle, at);
            if (mark % 10 == 0)
                addWords(QString::number(mark),
                         across ? std::pair(at - twips(2), middle + twips(4))
                                : std::pair(middle + twips(1), at + twips(1)),
                         7);
        }
    }

    void addCorners() {
        const int margin = twips(cornerMargin), arm = twips(5);
        for (const int x : {margin, m_page.paperWidth - margin})
            for (const int y : {margin, m_page.paperHeight - margin}) {
                addLine(x - arm, y, x + arm, y);
                addLine(x, y - arm, x, y + arm);
            }
    }

    ReportPage m_page;
};

} // namespace

ReportRecordset sampleRecords(const ReportClass& report) {
    ReportRecordset records = report.recordset();
    const QList<ReportField> fields = records.fields();
    records.AddNew();
    for (const ReportField& field : fields)
        if (standsIn(report.sample, field.name))
            records.Set(field.name, report.sample.longest.contains(field.name)
                                        ? QVariant(report.sample.longest.value(field.name))
                                        : sampleOf(field));
    return records;
}

QString documentName(const ReportClass& report) {
    ReportRecordset records = report.recordset();
    records.AddNew();
    return report.title(records, report.sample.given.value(0)).trimmed();
}

ReportPage rulerPage(const ReportLayout& layout, const QStringList& words) { return Ruler(layout).drawn(words); }
