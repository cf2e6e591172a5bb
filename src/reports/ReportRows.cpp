#include "reports/ReportRows.h"

#include "base/AppError.h"

#include <QStringList>

QList<ReportRow> plainRows(int records) {
    QList<ReportRow> rows;
    for (int record = 0; record < records; ++record) rows.append({record, false});
    return rows;
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
    Planner(const ReportLayout& layout, int linesPerPage) : m_layout(layout), m_linesPerPage(linesPerPage) {}

    void startGroup(const ReportRow& row) {
        const bool room = fits(height(ReportBandKind::GroupHeader) + height(ReportBandKind::Detail));
        if (m_layout.groupOnNewPage) m_documents.append(0);
        if (m_layout.groupOnNewPage || m_pages.isEmpty() || !room)
            openPage(row);
        else
            place(ReportBandKind::GroupHeader, row);
    }

    void detail(const ReportRow& row) {
        const bool full = m_linesPerPage > 0 && m_details >= m_linesPerPage;
        const bool started = m_details > 0;
        if (started && (full || !fits(height(ReportBandKind::Detail)))) {
            const bool room = fits(height(ReportBandKind::GroupContinued));
            if (room && height(ReportBandKind::GroupContinued) > 0) place(ReportBandKind::GroupContinued, row);
            openPage(row);
        }
        place(ReportBandKind::Detail, row);
        ++m_details;
    }

    void endGroup(const ReportRow& row) { placeBehind(ReportBandKind::GroupFooter, row); }
    void endReport(const ReportRow& row) { placeBehind(ReportBandKind::ReportFooter, row); }

    QList<PlannedPage> pages() {
        for (qsizetype i = 0; i < m_pages.size(); ++i) m_pages[i].count = m_documents.at(m_documentOfPage.at(i));
        return std::move(m_pages);
    }

private:
    int height(ReportBandKind kind) const { return m_layout.band(kind).height; }
    int bottom() const { return m_layout.paperHeight - m_layout.margins.bottom - height(ReportBandKind::PageFooter); }
    bool fits(int needed) const { return m_y + needed <= bottom(); }

    void place(ReportBandKind kind, const ReportRow& row) {
        m_pages.last().bands.append({kind, m_y, row});
        m_y += height(kind);
    }

    // A footer goes to a page of its own only when the details have left no room for it.
    void placeBehind(ReportBandKind kind, const ReportRow& row) {
        if (height(kind) == 0) return;
        if (m_details > 0 && !fits(height(kind))) openPage(row);
        place(kind, row);
    }

    void openPage(const ReportRow& row) {
        if (m_documents.isEmpty()) m_documents.append(0);
        m_documentOfPage.append(m_documents.size() - 1);
        m_pages.append(PlannedPage{{}, ++m_documents.last(), 1});
        m_pages.last().bands.append({ReportBandKind::PageFooter, bottom(), row});
        m_y = m_layout.margins.top;
        m_details = 0;
        place(ReportBandKind::PageHeader, row);
        place(ReportBandKind::GroupHeader, row);
    }

    const ReportLayout& m_layout;
    int m_linesPerPage;
    QList<PlannedPage> m_pages;
    QList<int> m_documents; // pages of each document
    QList<qsizetype> m_documentOfPage;
    int m_y = 0;
    int m_details = 0; // on the current page
};

} // namespace

QList<PlannedPage> planPages(const ReportLayout& layout, const QStringList& groupOfRecord, const QList<ReportRow>& rows,
                             int linesPerPage) {
    Planner planner(layout, linesPerPage);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const ReportRow& row = rows.at(i);
        const bool first = i == 0;
        if (first || groupOfRecord.at(row.record) != groupOfRecord.at(rows.at(i - 1).record)) {
            if (!first) planner.endGroup(rows.at(i - 1));
            planner.startGroup(row);
        }
        planner.detail(row);
    }
    if (!rows.isEmpty()) {
        planner.endGroup(rows.last());
        planner.endReport(rows.last());
    }
    return planner.pages();
}
