#include "reports/engine/ReportRecorder.h"

#include "base/AppError.h"
#include "reports/engine/ReportPainter.h"
#include "reports/engine/ReportPdf.h"

#include <QImage>

ReportRecorder::ReportRecorder(bool previewsOpen) : m_replaced(reportOutput()) {
    reportOutput().print = [this](const QList<ReportJob>& jobs, bool) { m_jobs += jobs; };
    reportOutput().preview = [this, previewsOpen](const QList<ReportJob>& jobs) {
        m_jobs += jobs;
        if (previewsOpen) m_replaced.preview(jobs);
    };
}

ReportRecorder::~ReportRecorder() { reportOutput() = m_replaced; }

QStringList ReportRecorder::documents() const {
    QStringList names;
    for (const ReportJob& job : m_jobs) names.append(job.reportClass);
    return names;
}

QList<ReportPage> ReportRecorder::pages() const {
    QList<ReportPage> all;
    for (const ReportJob& job : m_jobs) all += job.pages;
    return all;
}

void ReportRecorder::saveAsPdf(const QString& path) const { savePdf(pages(), documents().join(u' '), path); }

void ReportRecorder::saveAsPng(const QString& path, int page) const {
    constexpr double screenDots = 110;
    const QList<ReportPage> all = pages();
    if (page < 1 || page > all.size()) throw AppError(u"%1 ページ目はありません。"_qs.arg(page), u"saveAsPng"_qs);
    if (!pageImage(all.at(page - 1), screenDots).save(path, "PNG"))
        throw AppError(u"画像を保存できません。\n%1"_qs.arg(path), u"saveAsPng"_qs);
}
