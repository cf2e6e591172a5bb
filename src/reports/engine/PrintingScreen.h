#pragma once

#include "reports/ReportClasses.h"
#include "ui/ListScreen.h"

// A screen that prints lists: the record set is gathered, the pages are made and printed while the operator sees how
// far the work is and may stop it; what was stopped prints nothing more.
class PrintingScreen : public ListScreen {
    Q_OBJECT

public:
    using ListScreen::ListScreen;

protected:
    enum class PrintTo { Printer, Preview };
    using Gather = std::function<void(ReportRecordset& records, const Pause& pause)>;

    // Asks before paper is used.
    static bool confirmsPrint(PrintTo to);
    // Prints or shows a report; no row at all is told.
    void issue(const QString& reportClass, const ReportParameters& values, PrintTo to, const Gather& gather);
};
