#include "reports/ReportComposer.h"

#include "base/AppError.h"
#include "reports/ReportText.h"

#include <QStringList>

#include <cmath>

namespace {

class Composer {
public:
    Composer(const ReportLayout& layout, const ReportContent& content, const ReportMeasure& measure)
        : m_layout(layout), m_content(content), m_measure(measure), m_parameters(content.parameters) {}

    ReportPage page(const PlannedPage& planned) {
        m_parameters[u"PageOf"_qs] =
            planned.count > 1 ? u"%1 / %2"_qs.arg(planned.number).arg(planned.count) : QString();
        m_page = {};
        m_page.paperWidth = m_layout.paperWidth;
        m_page.paperHeight = m_layout.paperHeight;
        for (const PlacedBand& placed : planned.bands) addBand(placed);
        return std::move(m_page);
    }

private:
    void addBand(const PlacedBand& placed) {
        const ReportBand& band = m_layout.band(placed.kind);
        m_left = m_layout.margins.left;
        m_top = placed.top;
        for (const ReportBoxItem& box : band.boxes)
            if (shown(box.showIf)) m_page.boxes.append({box.at.moved(m_left, m_top), box.width, box.dashed, box.shade});
        for (const ReportLineItem& line : band.lines)
            if (shown(line.showIf))
                m_page.lines.append(
                    {line.x1 + m_left, line.y1 + m_top, line.x2 + m_left, line.y2 + m_top, line.width, line.dashed});
        const bool blankDetail = placed.kind == ReportBandKind::Detail && placed.row.blank;
        for (const ReportTextItem& item : band.texts)
            if (shown(item.showIf) && !(blankDetail && !item.fields.isEmpty()))
                addText(item, valueOf(item, placed.row));
    }

    bool shown(const QString& condition) const { return condition.isEmpty() || !parameter(condition).isEmpty(); }

    QString parameter(const QString& name) const {
        const auto found = m_parameters.constFind(name);
        if (found == m_parameters.constEnd())
            throw AppError(u"帳票レイアウト %1 の値「%2」がありません。"_qs.arg(m_layout.name, name),
                           u"composePages"_qs);
        return *found;
    }

    QString valueOf(const ReportTextItem& item, const ReportRow& row) const {
        if (!item.text.isEmpty()) return item.text;
        const QVariant value = item.fields.isEmpty() ? QVariant(parameter(item.parameter)) : record(item.fields, row);
        if (item.hasWords) return item.words.value(value.toString(), item.otherwise);
        return ReportText::number(value, item.format);
    }

    QVariant record(const QStringList& fields, const ReportRow& row) const {
        if (fields.size() == 1) return m_content.records.value(row.record, fields.first());
        QString joined;
        for (const QString& field : fields) joined += m_content.records.text(row.record, field);
        return joined;
    }

    void addText(const ReportTextItem& item, const QString& text) {
        if (text.trimmed().isEmpty() || text == item.caption) return;
        const FittedText fitted = fitText(text, item, m_measure);
        const ReportRect room = item.at.moved(m_left, m_top);
        const int block = fitted.pitch * static_cast<int>(fitted.lines.size());
        int top = room.y + (room.height - block) / 2;
        for (const QString& line : fitted.lines) {
            addLine(item, fitted, line, room, centredBaseline(top, fitted.pitch, fitted.size));
            top += fitted.pitch;
        }
    }

    void addLine(const ReportTextItem& item, const FittedText& fitted, const QString& line, const ReportRect& room,
                 int baseline) {
        const ReportFont font = item.font.sized(fitted.size);
        const double width = m_measure(line, font) * fitted.squeeze;
        const int printed = std::min(room.width, static_cast<int>(std::ceil(width)));
        const int slack = room.width - printed;
        const int x = item.align == ReportAlign::Left ? 0 : item.align == ReportAlign::Center ? slack / 2 : slack;
        m_page.texts.append({item.name, line, font, room.x + x, baseline, printed, fitted.squeeze, room});
    }

    const ReportLayout& m_layout;
    const ReportContent& m_content;
    const ReportMeasure& m_measure;
    ReportParameters m_parameters;
    ReportPage m_page;
    int m_left = 0;
    int m_top = 0;
};

} // namespace

QList<ReportPage> composePages(const ReportLayout& layout, const ReportContent& content, const ReportMeasure& measure) {
    Composer composer(layout, content, measure);
    QList<ReportPage> pages;
    for (const PlannedPage& planned : planPages(layout, content.groups, content.rows, content.linesPerPage))
        pages.append(composer.page(planned));
    return pages;
}
