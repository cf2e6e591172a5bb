#include "reports/engine/Report.h"

#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "reports/engine/PaperGlyphs.h"

#include <QRegularExpression>

Report::Report(const QString& reportClassName) : m_class(reportClass(reportClassName)) {}

void Report::Recordset(ReportRecordset records) {
    m_records = std::move(records);
    m_job.reset();
}

void Report::Value(const QString& name, const QString& value) {
    m_values.insert(name, value);
    m_job.reset();
}

ReportHeader Report::header() const {
    ReportHeader header = m_class.readHeader();
    header.values.insert(m_values);
    return header;
}

QString Report::Title() const { return hasRows() ? m_class.title(*m_records, header().values) : QString(); }

ReportJob Report::made() const {
    static const QRegularExpression unfitForFiles(u"[\\\\/:*?\"<>|]"_qs);
    if (!hasRows()) return {};
    const clsProfile profile;
    const ReportPrintSettings settings = readReportPrintSettings(profile, m_class.name);
    const ReportLayout layout = withPageSettings(loadReportLayout(m_class.name), settings);
    const ReportHeader values = header();
    const ReportOffset offset = readReportOffset(profile, m_class.name, printerOf(settings));
    const QList<ReportPage> pages = reportPages(m_class, layout, *m_records, values, measurePaperText, m_pause);
    return {m_class.name, shifted(pages, offsetTwips(offset.right), offsetTwips(offset.down)),
            settings,     m_class.title(*m_records, values.values).replace(unfitForFiles, u"_"_qs),
            offset,       readReportUnderlay(profile, m_class.name),
            m_pause,      m_about};
}

void Report::Compose() { m_job = made(); }

const ReportJob& Report::Job() {
    if (!m_job) Compose();
    return *m_job;
}

void Report::PrintReport(bool withDialog) {
    if (!Job().pages.isEmpty()) reportOutput().print({Job()}, withDialog);
}

ReportJob Report::shown() {
    ReportJob job = Job();
    job.pause = nullptr; // who looks at it prints it later
    return job;
}

void Report::Show(int) {
    if (!Job().pages.isEmpty()) reportOutput().preview({shown()});
}

void Report::Show(const std::vector<std::unique_ptr<Report>>& reports) {
    QList<ReportJob> jobs;
    for (const auto& report : reports)
        if (!report->Job().pages.isEmpty()) jobs << report->shown();
    if (!jobs.isEmpty()) reportOutput().preview(jobs);
}

void sendReport(const QString& reportClass, const ReportRecordset& records, PrintTo to) {
    if (records.isEmpty()) {
        ShowMessage(Message::Warning, u"対象データがありません。"_qs);
        return;
    }
    Report report(reportClass);
    report.Recordset(records);
    if (to == PrintTo::Printer)
        report.PrintReport(false);
    else
        report.Show(1);
}
