#pragma once

#include "reports/engine/PdfOutline.h"
#include "reports/engine/ReportOutput.h"

// The papers of one preview as a single run of pages. Pages count from 1, papers from 0.
class PreviewPapers {
public:
    explicit PreviewPapers(QList<ReportJob> jobs);

    int papers() const { return static_cast<int>(m_jobs.size()); }
    int pages() const;
    const ReportJob& paper(int paper) const { return m_jobs.at(paper); }
    const QList<ReportJob>& all() const { return m_jobs; }

    int paperOf(int page) const;
    int firstPageOf(int paper) const { return m_firstPages.at(paper); }
    // The page as it is printed, and its place inside of its paper, from 1.
    const ReportPage& page(int page) const;
    int pageInPaper(int page) const { return page - firstPageOf(paperOf(page)) + 1; }

    // What a paper is called, such as 見積書; the second of a name is 見積書 (2).
    QString name(int paper) const { return m_names.at(paper); }
    // The name for windows: the title of a single paper, or whom and what several are made for.
    QString title() const;
    // The name that a file of all pages is offered: number, person, papers.
    QString fileName() const;
    QList<ReportPage> allPages() const;
    // The papers as a reader lists them; a single one needs no list.
    QList<PdfBookmark> bookmarks() const;

private:
    QList<ReportJob> m_jobs;
    QList<int> m_firstPages;
    QStringList m_names;
};
