#include "reports/ReportRows.h"

#include "base/AppError.h"

#include <QStringList>

#include <algorithm>

QList<ReportRow> plainRows(int records) {
    QList<ReportRow> rows;
    for (int record = 0; record < records; ++record) rows.append({record, false});
    return rows;
}

int rowsOfForm(const ReportLayout& layout, int linesPerPage) {
    int room = layout.paperHeight - layout.margins.top - layout.margins.bottom;
    for (const auto kind : {ReportBandKind::PageHeader, ReportBandKind::GroupHeader, ReportBandKind::GroupFooter,
                            ReportBandKind::PageFooter})
        room -= layout.band(kind).height;
    return std::min(linesPerPage, std::max(1, room / std::max(1, layout.band(ReportBandKind::Detail).height)));
}

QList<ReportRow> paddedRows(const QStringList& documentOfRecord, int linesPerPage) {
    if (linesPerPage < 1)
        throw AppError(
            u"１ページの明細行数（システム設定 No.13）が %1 です。1 以上にしてください。"_qs.arg(linesPerPage),
            u"paddedRows"_qs);
    QList<ReportRow> rows;
    const auto fillPage = [&](int record) {
        while (rows.size() % linesPerPage != 0) rows.append({record, true});
    };
    for (int record = 0; record < documentOfRecord.size(); ++record) {
        if (record > 0 && documentOfRecord.at(record) != documentOfRecord.at(record - 1)) fillPage(record - 1);
        rows.append({record, false});
    }
    fillPage(static_cast<int>(documentOfRecord.size()) - 1);
    return rows;
}

namespace {

class Planner {
public:
    Planner(const ReportLayout& layout, const QList<ReportRow>& rows, int linesPerPage, ReportRowPlan plan)
        : m_layout(layout), m_rows(rows), m_linesPerPage(linesPerPage), m_isForm(plan == ReportRowPlan::Form) {}

    void startGroup(const ReportSpan& group) {
        m_group = group;
        const bool room = fits(height(ReportBandKind::GroupHeader) + heightWithTotals(group.first));
        const bool onNewPage = m_layout.groupOnNewPage || m_isForm;
        if (onNewPage) m_documents.append(0);
        if (onNewPage || m_pages.isEmpty() || !room) openPage(group.first);
        place(ReportBandKind::GroupHeader, group.first);
    }

    void detail(int at) {
        const bool full = m_linesPerPage > 0 && m_details >= m_linesPerPage;
        const bool started = m_details > 0;
        if (started && (full || !fits(heightWithTotals(at)))) {
            if (fits(height(ReportBandKind::GroupContinued))) placeAny(ReportBandKind::GroupContinued);
            goOn(at);
        }
        ++m_done;
        ++m_details;
        place(ReportBandKind::Detail, at);
        m_pages.last().bands.first() = footer(at);
        m_pages.last().rows.end = m_done;
    }

    void endGroup() {
        if (lacksRoom(ReportBandKind::GroupFooter)) goOn(m_done - 1);
        placeAny(ReportBandKind::GroupFooter);
    }

    void endReport() {
        if (lacksRoom(ReportBandKind::ReportFooter)) openPage(m_done - 1);
        placeAny(ReportBandKind::ReportFooter);
    }

    QList<PlannedPage> pages() {
        for (qsizetype i = 0; i < m_pages.size(); ++i) m_pages[i].count = m_documents.at(m_documentOfPage.at(i));
        return std::move(m_pages);
    }

private:
    int height(ReportBandKind kind) const { return m_layout.band(kind).height; }
    int bottom() const { return m_layout.paperHeight - m_layout.margins.bottom - height(ReportBandKind::PageFooter); }
    bool fits(int needed) const { return m_isForm || m_y + needed <= bottom(); }

    // Totals never stand without a row above them: the last row goes where they have room.
    int heightWithTotals(int at) const {
        int needed = height(ReportBandKind::Detail);
        if (at + 1 == m_group.end) needed += height(ReportBandKind::GroupFooter);
        if (at + 1 == m_rows.size()) needed += height(ReportBandKind::ReportFooter);
        return needed;
    }

    // The margin of a form is its play: offices move it until it meets the printed lines.
    void place(ReportBandKind kind, int at) {
        m_pages.last().bands.append({kind, m_y, m_rows.at(at), m_group, m_done});
        m_y += height(kind);
        if (m_isForm && m_y > m_layout.paperHeight) m_layout.fail(kind, {}, u"用紙一枚に収まりません。"_qs);
    }

    // A footer goes to a page of its own only when the details have left no room for it.
    bool lacksRoom(ReportBandKind kind) const { return height(kind) > 0 && m_details > 0 && !fits(height(kind)); }

    void placeAny(ReportBandKind kind) {
        if (height(kind) > 0) place(kind, m_done - 1);
    }

    PlacedBand footer(int at) const { return {ReportBandKind::PageFooter, bottom(), m_rows.at(at), m_group, m_done}; }

    void openPage(int at) {
        if (m_documents.isEmpty()) m_documents.append(0);
        m_documentOfPage.append(m_documents.size() - 1);
        m_pages.append(PlannedPage{{footer(at)}, ++m_documents.last(), 1, {m_done, m_done}});
        m_y = m_layout.margins.top;
        m_details = 0;
        place(ReportBandKind::PageHeader, at);
    }

    void goOn(int at) {
        openPage(at);
        place(ReportBandKind::GroupHeader, at);
    }

    const ReportLayout& m_layout;
    const QList<ReportRow>& m_rows;
    int m_linesPerPage;
    bool m_isForm;
    QList<PlannedPage> m_pages;
    QList<int> m_documents; // pages of each document
    QList<qsizetype> m_documentOfPage;
    ReportSpan m_group;
    int m_y = 0;
    int m_details = 0; // on the current page
    int m_done = 0;
};

QList<ReportSpan> groupsOf(const QList<ReportRow>& rows, const QStringList& groupOfRecord) {
    QList<ReportSpan> groups;
    for (int at = 0; at < rows.size(); ++at) {
        const bool goesOn = at > 0 && groupOfRecord.at(rows.at(at).record) == groupOfRecord.at(rows.at(at - 1).record);
        if (!goesOn) groups.append({at, at});
        groups.last().end = at + 1;
    }
    return groups;
}

} // namespace

QList<PlannedPage> planPages(const ReportLayout& layout, const QStringList& groupOfRecord, const QList<ReportRow>& rows,
                             int linesPerPage, ReportRowPlan plan) {
    Planner planner(layout, rows, linesPerPage, plan);
    for (const ReportSpan& group : groupsOf(rows, groupOfRecord)) {
        planner.startGroup(group);
        for (int at = group.first; at < group.end; ++at) planner.detail(at);
        planner.endGroup();
    }
    if (!rows.isEmpty()) planner.endReport();
    return planner.pages();
}
