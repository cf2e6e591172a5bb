#include "master/screens/MasterPrinting.h"

#include "db/clsDbManager.h"
#include "reports/clsReportManager.h"

void printMasters(const SqlTerm& where, PrintTo to) {
    ReportRecordset records;
    clsReportManager manager;
    manager.Prepare(gDbManager.Connection());
    manager.GetMstEstimateData(where, records);
    sendReport(u"repMstEstimate"_qs, records, to);
}
