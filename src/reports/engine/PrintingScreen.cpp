#include "reports/engine/PrintingScreen.h"

#include "base/basMessage.h"
#include "reports/engine/Report.h"

bool PrintingScreen::confirmsPrint(PrintTo to) {
    return to == PrintTo::Preview || ShowMessage(Message::AskPrint, {}) == AnswerYes;
}

void PrintingScreen::issue(const QString& reportClass, const ReportParameters& values, PrintTo to,
                           const Gather& gather) {
    ReportRecordset records;
    if (!whileBusy(u"印刷準備中"_qs, [&](const Pause& pause) { gather(records, pause); })) return;
    if (records.isEmpty()) {
        ShowMessage(Message::Warning, u"対象データがありません。"_qs);
        return;
    }
    Report report(reportClass);
    report.Recordset(std::move(records));
    for (auto value = values.begin(); value != values.end(); ++value) report.Value(value.key(), value.value());
    const auto work = [&](const Pause& pause) {
        report.Pausing(pause);
        if (to == PrintTo::Printer)
            report.PrintReport(false);
        else
            report.Compose();
    };
    if (whileBusy(u"印刷中"_qs, work) && to == PrintTo::Preview) report.Show(1);
}
