#include "payments/screens/frmCsPaySearch.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "estimates/EstimateDates.h"
#include "payments/PaymentRows.h"
#include "payments/screens/PaymentConditions.h"
#include "payments/screens/frmCsPayList.h"
#include "ui/TextField.h"
#include "ui_PaymentConditions.h"
#include "ui_frmCsPaySearch.h"

frmCsPaySearch::frmCsPaySearch(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsPaySearch>()) {
    ui->setupUi(this);
    onReturn(ui->pagConditions->ui->txtOrderCd, [this] { ui->pagConditions->completeOrder(); });
    onClick(ui->cmdSearch, [this] { search(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsPaySearch::~frmCsPaySearch() = default;

void frmCsPaySearch::load() {
    QList<clsProcKbn> statuses;
    gProcKbnManager.GetList(statuses, {}, gProcKbnManager.byKey());
    statuses.removeIf([](const clsProcKbn& status) { return status.ProcKbnNo == WorkStatus::Payment; });
    ui->pagConditions->fillStatuses(statuses);
    ui->pagConditions->restoreExclusions();
    ui->pagConditions->ui->txtOrderCd->setFocus();
}

void frmCsPaySearch::search() {
    const PaymentSearch asked = ui->pagConditions->search();
    ui->pagConditions->keepExclusions();
    if (PaymentRows(gDbManager.Connection()).count(noPayCondition(asked)) == 0) {
        ShowMessage(Message::Warning, u"対象データがありません。"_qs);
        return;
    }
    openScreen<frmCsPayList>(
        this,
        [&](frmCsPayList& list) {
            list.Search = asked;
            list.StatusWord = ui->pagConditions->statusWord();
        },
        [](frmCsPayList&) {});
}
