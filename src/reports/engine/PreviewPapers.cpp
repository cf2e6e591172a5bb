#include "reports/engine/PreviewPapers.h"

#include "base/Text.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qsizetype mostNamed = 3;
constexpr int longestFileName = 60; // signs, a rare one of which is four bytes of the 255 that a name may have

// The title behind the paper's own name tells its number.
QString paperName(const ReportJob& job) { return job.title.section(u' ', 0, 0); }

QString joinedNames(QStringList names) {
    names.removeDuplicates();
    if (names.size() <= mostNamed) return names.join(u'・');
    return names.first() + u"ほか%1件"_qs.arg(names.size() - 1);
}

QString fitForFiles(const QString& name) {
    static const QRegularExpression unfit(u"[\\\\/:*?\"<>|\\x00-\\x1F]"_qs);
    return Text::first(QString(name).replace(unfit, u"_"_qs), longestFileName).trimmed();
}

} // namespace

PreviewPapers::PreviewPapers(QList<ReportJob> jobs) : m_jobs(std::move(jobs)) {
    QHash<QString, int> seen;
    int page = 1;
    for (const ReportJob& job : m_jobs) {
        m_firstPages << page;
        page += static_cast<int>(job.pages.size());
        const QString name = paperName(job);
        const int count = ++seen[name];
        m_names << (count == 1 ? name : u"%1 (%2)"_qs.arg(name).arg(count));
    }
}

int PreviewPapers::pages() const { return static_cast<int>(allPages().size()); }

int PreviewPapers::paperOf(int page) const {
    const auto behind = std::upper_bound(m_firstPages.begin(), m_firstPages.end(), page);
    return static_cast<int>(behind - m_firstPages.begin()) - 1;
}

const ReportPage& PreviewPapers::page(int page) const {
    return m_jobs.at(paperOf(page)).pages.at(pageInPaper(page) - 1);
}

QString PreviewPapers::title() const {
    if (papers() == 0) return {};
    return papers() == 1 || m_jobs.first().about.isEmpty() ? m_jobs.first().title : m_jobs.first().about;
}

QString PreviewPapers::fileName() const {
    if (papers() == 0) return {};
    const QString about = m_jobs.first().about;
    QStringList names;
    for (const ReportJob& job : m_jobs) names << paperName(job);
    return fitForFiles(about.isEmpty() && papers() == 1 ? title() : about + u' ' + joinedNames(names)) + u".pdf"_qs;
}

QList<ReportPage> PreviewPapers::allPages() const {
    QList<ReportPage> pages;
    for (const ReportJob& job : m_jobs) pages += job.pages;
    return pages;
}

QList<PdfBookmark> PreviewPapers::bookmarks() const {
    QList<PdfBookmark> marks;
    for (int paper = 0; papers() > 1 && paper < papers(); ++paper)
        marks << PdfBookmark{name(paper), firstPageOf(paper)};
    return marks;
}
