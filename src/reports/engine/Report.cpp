#include "reports/engine/Report.h"

#include "base/clsProfile.h"
#include "reports/DocumentReport.h"
#include "reports/engine/ReportFonts.h"

#include <QRegularExpression>

Report::Report(const QString& reportClassName) : m_class(reportClass(reportClassName)) {}

QString Report::title() const {
    static const QRegularExpression unfitForFiles(u"[\\\\/:*?\"<>|]"_qs);
    if (m_class.isList) return m_class.title;
    const QString estNo = m_records->text(0, u"EstNo"_qs).replace(unfitForFiles, u"_"_qs);
    return u"%1 %2"_qs.arg(documentTitle(m_class, m_prtType), estNo).trimmed();
}

ReportJob Report::job() const {
    if (!m_records || m_records->isEmpty()) return {};
    const ReportPrintSettings settings = readReportPrintSettings(clsProfile(), m_class.name);
    const ReportLayout layout = withMargins(loadReportLayout(m_class.name), settings);
    const QList<ReportPage> pages =
        m_class.isList
            ? listPages(layout, *m_records, measurePaperText)
            : documentPages(m_class, layout, *m_records, m_prtType, readDocumentSetup(), measurePaperText);
    return {m_class.name, pages, settings, title()};
}

void Report::PrintReport(bool withDialog) {
    if (const ReportJob made = job(); !made.pages.isEmpty()) reportOutput().print(made, withDialog);
}

void Report::Show(int) {
    if (const ReportJob made = job(); !made.pages.isEmpty()) reportOutput().preview(made);
}
