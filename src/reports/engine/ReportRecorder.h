#pragma once

#include "reports/engine/ReportOutput.h"

#include <QStringList>

// Keeps the documents printed or previewed, in order, for tests and scenarios. While it lives, nothing reaches a
// printer; previews still open when `previewsOpen` is set.
class ReportRecorder {
public:
    explicit ReportRecorder(bool previewsOpen = false);
    ~ReportRecorder();
    ReportRecorder(const ReportRecorder&) = delete;
    ReportRecorder& operator=(const ReportRecorder&) = delete;

    void clear() { m_jobs.clear(); }
    const QList<ReportJob>& jobs() const { return m_jobs; }
    QStringList documents() const;
    // The pages of all documents together.
    QList<ReportPage> pages() const;

    // Write the pages kept; without any they raise an error. The picture is that of one page, from 1.
    void saveAsPdf(const QString& path) const;
    void saveAsPng(const QString& path, int page = 1) const;

private:
    ReportOutput m_replaced;
    QList<ReportJob> m_jobs;
};
