#include "reports/ReportComposer.h"

#include "base/Numbers.h"
#include "reports/ReportSums.h"
#include "reports/ReportText.h"

#include <algorithm>
#include <cmath>

namespace {

// Finds, before the first page, what the layout names and the report lacks.
void check(const ReportLayout& layout, const ReportRecordset& records, const ReportParameters& parameters) {
    for (size_t kind = 0; kind < layout.bands.size(); ++kind) {
        const auto need = [&](const QString& item, const QStringList& fields, const QStringList& values) {
            const auto fail = [&](const QString& reason) {
                layout.fail(static_cast<ReportBandKind>(kind), item, reason);
            };
            for (const QString& field : fields)
                if (!field.isEmpty() && !records.hasField(field))
                    fail(u"帳票データに項目「%1」がありません。"_qs.arg(field));
            for (const QString& value : values)
                if (!value.isEmpty() && !parameters.contains(value)) fail(u"値「%1」がありません。"_qs.arg(value));
        };
        for (const ReportTextItem& text : layout.bands.at(kind).texts)
            need(text.name, QStringList(text.fields) << text.sum, {text.parameter, text.showIf});
        for (const ReportLineItem& line : layout.bands.at(kind).lines) need(line.name, {}, {line.showIf});
        for (const ReportBoxItem& box : layout.bands.at(kind).boxes) need(box.name, {}, {box.showIf});
    }
}

bool isOfRecord(const ReportTextItem& item) { return !item.fields.isEmpty() || !item.sum.isEmpty(); }

class Composer {
public:
    Composer(const ReportLayout& layout, const ReportContent& content, const QList<ReportRow>& rows,
             const ReportMeasure& measure)
        : m_layout(layout), m_content(content), m_rows(rows), m_measure(measure), m_sums(content.records, rows),
          m_parameters(content.parameters) {
        setNumbers(1, 1);
        check(layout, content.records, m_parameters);
    }

    ReportPage page(const PlannedPage& planned) {
        setNumbers(planned.number, planned.count);
        m_onPage = planned.rows;
        m_page = {};
        m_page.paperWidth = m_layout.paperWidth;
        m_page.paperHeight = m_layout.paperHeight;
        for (const PlacedBand& placed : planned.bands) addBand(placed);
        m_page.texts = inReadingOrder(std::move(m_page.texts));
        return std::move(m_page);
    }

private:
    void setNumbers(int page, int pages) {
        m_parameters[u"Page"_qs] = QString::number(page);
        m_parameters[u"Pages"_qs] = QString::number(pages);
        m_parameters[u"PageOf"_qs] = pages > 1 ? u"%1 / %2"_qs.arg(page).arg(pages) : QString();
    }

    void addBand(const PlacedBand& placed) {
        const ReportBand& band = m_layout.band(placed.kind);
        m_left = m_layout.margins.left;
        m_placed = placed;
        for (const ReportBoxItem& box : band.boxes)
            if (shown(box.showIf))
                m_page.boxes.append({box.at.moved(m_left, placed.top), box.width, box.dashed, box.shade});
        for (const ReportLineItem& line : band.lines)
            if (shown(line.showIf))
                m_page.lines.append({line.x1 + m_left, line.y1 + placed.top, line.x2 + m_left, line.y2 + placed.top,
                                     line.width, line.dashed});
        const bool blankDetail = placed.kind == ReportBandKind::Detail && placed.row.blank;
        for (const ReportTextItem& item : band.texts)
            if (shown(item.showIf) && !(blankDetail && isOfRecord(item))) addItem(item);
    }

    bool shown(const QString& condition) const {
        return condition.isEmpty() || !m_parameters.value(condition).isEmpty();
    }

    void addItem(const ReportTextItem& item) {
        if (!item.text.isEmpty()) return addText(item, item.text);
        const QVariant value = valueOf(item);
        if (item.digits > 0) return addDigits(item, value);
        if (item.hasWords) return addText(item, item.words.value(value.toString(), item.otherwise));
        if (!item.date.isEmpty()) return addText(item, ReportText::date(value.toString(), item.date));
        addText(item, ReportText::number(value, item.format));
    }

    QVariant valueOf(const ReportTextItem& item) {
        if (!item.sum.isEmpty()) return m_sums.over(item.sum, spanOf(item.over));
        return item.fields.isEmpty() ? QVariant(m_parameters.value(item.parameter)) : record(item);
    }

    ReportSpan spanOf(ReportSumOver over) const {
        if (over == ReportSumOver::Page) return m_onPage;
        if (over == ReportSumOver::Group) return m_placed.group;
        return {0, over == ReportSumOver::Running ? m_placed.done : static_cast<int>(m_rows.size())};
    }

    // A page on which no row stands shows the record that its band belongs to.
    int recordOf(const ReportTextItem& item) const {
        if (item.record == ReportRecordOf::Band || m_onPage.first == m_onPage.end) return m_placed.row.record;
        return m_rows.at(item.record == ReportRecordOf::First ? m_onPage.first : m_onPage.end - 1).record;
    }

    QVariant record(const ReportTextItem& item) const {
        const int row = recordOf(item);
        if (item.fields.size() == 1) return m_content.records.value(row, item.fields.first());
        QString joined;
        for (const QString& field : item.fields) joined += m_content.records.text(row, field);
        return joined;
    }

    void addDigits(const ReportTextItem& item, const QVariant& value) {
        const bool isText = value.metaType().id() == QMetaType::QString;
        const QString digits = isText ? value.toString() : ReportText::number(value, u"0"_qs);
        const bool whole = std::all_of(digits.begin(), digits.end(), [](QChar sign) { return sign.isDigit(); });
        if (!whole || digits.size() > item.digits)
            throw ReportValueError(
                u"%1 は %2 桁の枠に収まりません。"_qs.arg(whole ? groupThousands(digits) : digits).arg(item.digits),
                m_layout.name + u' ' + item.name);
        if (!digits.isEmpty()) addFromRight(item, item.lead + digits);
    }

    void addFromRight(ReportTextItem item, const QString& signs) {
        item.at = {item.at.right(), item.at.y, item.at.width / item.digits, item.at.height};
        item.align = ReportAlign::Center;
        for (qsizetype place = signs.size() - 1; place >= 0; --place) {
            item.at.x -= item.at.width;
            addText(item, signs.at(place));
        }
    }

    void addText(const ReportTextItem& item, const QString& text) {
        if (text.trimmed().isEmpty() || text == item.caption) return;
        const FittedText fitted = fitText(text, item, m_measure);
        const ReportRect room = item.at.moved(m_left, m_placed.top);
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
        m_page.texts.append({item.name, line, font, room.x + x, baseline, printed, fitted.squeeze, room,
                             m_placed.kind == ReportBandKind::Detail ? m_placed.done : 0});
    }

    const ReportLayout& m_layout;
    const ReportContent& m_content;
    const QList<ReportRow>& m_rows;
    const ReportMeasure& m_measure;
    ReportSums m_sums;
    ReportParameters m_parameters;
    ReportPage m_page;
    ReportSpan m_onPage;
    PlacedBand m_placed;
    int m_left = 0;
};

} // namespace

QList<ReportPage> composePages(const ReportLayout& layout, const ReportContent& content, const ReportMeasure& measure,
                               const std::function<bool()>& pause) {
    const QList<ReportRow> rows = content.plan == ReportRowPlan::Documents
                                      ? paddedRows(content.groups, content.linesPerPage)
                                      : plainRows(content.records.rowCount());
    Composer composer(layout, content, rows, measure);
    QList<ReportPage> pages;
    for (const PlannedPage& planned : planPages(layout, content.groups, rows, content.linesPerPage, content.plan)) {
        pages.append(composer.page(planned));
        if (pages.size() % pagesPerPause == 0 && pause && !pause()) return {};
    }
    return pages;
}
