#include "payments/screens/frmStWorkPlan.h"

#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "payments/PaymentWords.h"
#include "payments/screens/PaymentConditions.h"
#include "reports/Statistics.h"
#include "reports/clsReportManager.h"
#include "ui/FormPieces.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"
#include "ui_PaymentConditions.h"
#include "ui_frmStWorkPlan.h"

frmStWorkPlan::frmStWorkPlan(QWidget* parent) : PrintingScreen(parent), ui(std::make_unique<Ui::frmStWorkPlan>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->pagConditions->setPeriodWord(u"日付範囲："_qs);
    ui->pagConditions->hideStatus();
    ui->pagConditions->hideExclusions();
    onReturn(ui->pagConditions->ui->txtOrderCd, [this] { ui->pagConditions->completeOrder(); });
    onClick(ui->cmdPrint_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrint_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmStWorkPlan::~frmStWorkPlan() = default;

void frmStWorkPlan::load() {
    FillProducerList(ui->cboProducer, gProducerManager.inUse());
    ui->pagConditions->ui->txtOrderCd->setFocus();
}

WorkPlanSearch frmStWorkPlan::asked() const {
    const PaymentSearch shared = ui->pagConditions->search();
    return {shared.OrderCd,
            shared.OrderNm,
            ui->cboProducer->text(),
            shared.DateFrom,
            shared.DateTo,
            ui->optPrtType_1->isChecked(),
            ui->optPricePrt_1->isChecked()};
}

void frmStWorkPlan::print(PrintTo to) {
    if (!confirmsPrint(to)) return;
    const WorkPlanSearch search = asked();
    const ReportParameters values{{u"Order"_qs, searchedParty(search.OrderCd, search.OrderNm)},
                                  {u"Producer"_qs, search.Producer},
                                  {u"Period"_qs, periodOnPaper(search.DateFrom, search.DateTo)},
                                  {u"PricePrt"_qs, search.prices ? u"1"_qs : QString()}};
    issue(statisticsClass(workPlanPaper(search.byOrder), clsProfile(), gSysSettingManager), values, to,
          [&search](ReportRecordset& records, const Pause& pause) {
              clsReportManager manager;
              manager.Prepare(gDbManager.Connection());
              manager.GetStWorkPlanData(search, records, pause);
          });
}
