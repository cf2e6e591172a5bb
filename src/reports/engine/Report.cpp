#include "reports/engine/Report.h"

#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "reports/engine/PaperGlyphs.h"

#include <QRegularExpression>

Report::Report(const QString& reportClassName) : m_class(reportClass(reportClassName)) {}

ReportJob Report::job() const {
    static const QRegularExpression unfitForFiles(u"[\\\\/:*?\"<>|]"_qs);
    if (!m_records || m_records->isEmpty()) return {};
    const ReportPrintSettings settings = readReportPrintSettings(clsProfile(), m_class.name);
    const ReportLayout layout = withPageSettings(loadReportLayout(m_class.name), settings);
    ReportHeader header = m_class.readHeader();
    header.values.insert(m_values);
    return {m_class.name, reportPages(m_class, layout, *m_records, header, measurePaperText, m_pause), settings,
            m_class.title(*m_records, header.values).replace(unfitForFiles, u"_"_qs), m_pause};
}

void Report::Compose() { m_composed = job(); }

ReportJob Report::takeJob() {
    ReportJob made = m_composed ? std::move(*m_composed) : job();
    m_composed.reset();
    return made;
}

void Report::PrintReport(bool withDialog) {
    if (const ReportJob made = takeJob(); !made.pages.isEmpty()) reportOutput().print(made, withDialog);
}

void Report::Show(int) {
    ReportJob made = takeJob();
    made.pause = nullptr; // who looks at it prints it later
    if (!made.pages.isEmpty()) reportOutput().preview(made);
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
