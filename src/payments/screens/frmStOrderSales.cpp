#include "payments/screens/frmStOrderSales.h"

#include "db/clsDbManager.h"
#include "estimates/EstimateDates.h"
#include "payments/PaymentWords.h"
#include "payments/screens/PaymentConditions.h"
#include "reports/clsReportManager.h"
#include "ui/TextField.h"
#include "ui_PaymentConditions.h"
#include "ui_frmStOrderSales.h"

frmStOrderSales::frmStOrderSales(QWidget* parent)
    : PrintingScreen(parent), ui(std::make_unique<Ui::frmStOrderSales>()) {
    ui->setupUi(this);
    ui->pagConditions->hideStatus();
    ui->pagConditions->hideExclusions();
    onReturn(ui->pagConditions->ui->txtOrderCd, [this] { ui->pagConditions->completeOrder(); });
    onClick(ui->cmdPrint_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrint_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmStOrderSales::~frmStOrderSales() = default;

void frmStOrderSales::load() { ui->pagConditions->ui->txtOrderCd->setFocus(); }

// A sale is what is complete, or further.
void frmStOrderSales::print(PrintTo to) {
    if (!confirmsPrint(to)) return;
    PaymentSearch search = ui->pagConditions->search();
    search.Status = WorkStatus::Completion;
    const ReportParameters values{{u"Order"_qs, searchedParty(search.OrderCd, search.OrderNm)},
                                  {u"Period"_qs, periodOnPaper(search.DateFrom, search.DateTo)}};
    issue(u"repStOrderSales"_qs, values, to, [&search](ReportRecordset& records, const Pause& pause) {
        clsReportManager manager;
        manager.Prepare(gDbManager.Connection());
        manager.GetStOrderSalesData(search, records, pause);
    });
}
