#include "reports/engine/Report.h"

#include "base/clsProfile.h"
#include "reports/DocumentReport.h"
#include "reports/ReportClasses.h"
#include "reports/engine/ReportFonts.h"

Report::Report(const QString& reportClassName) : m_class(reportClass(reportClassName).name) {}

ReportJob Report::job() const {
    if (!m_records || m_records->isEmpty()) return {m_class, {}, {}};
    const ReportPrintSettings settings = readReportPrintSettings(clsProfile(), m_class);
    const ReportLayout layout = withMargins(loadReportLayout(m_class), settings);
    return {m_class, documentPages(m_class, layout, *m_records, m_prtType, readDocumentSetup(), measurePaperText),
            settings};
}

void Report::PrintReport(bool withDialog) {
    if (const ReportJob made = job(); !made.pages.isEmpty()) reportOutput().print(made, withDialog);
}

void Report::Show(int) {
    if (const ReportJob made = job(); !made.pages.isEmpty()) reportOutput().preview(made);
}
