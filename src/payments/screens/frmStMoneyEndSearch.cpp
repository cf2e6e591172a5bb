#include "payments/screens/frmStMoneyEndSearch.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "payments/PaymentRows.h"
#include "payments/screens/PaymentConditions.h"
#include "payments/screens/frmStMoneyEndList.h"
#include "ui/DateField.h"
#include "ui_PaymentConditions.h"
#include "ui_frmStMoneyEndSearch.h"

frmStMoneyEndSearch::frmStMoneyEndSearch(QWidget* parent)
    : Screen(parent), ui(std::make_unique<Ui::frmStMoneyEndSearch>()) {
    ui->setupUi(this);
    ui->pagConditions->setPeriodWord(u"入金年月日："_qs);
    ui->pagConditions->hideOrder();
    ui->pagConditions->hideStatus();
    ui->pagConditions->hideExclusions();
    onClick(ui->cmdSearch, [this] { search(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmStMoneyEndSearch::~frmStMoneyEndSearch() = default;

void frmStMoneyEndSearch::load() { ui->pagConditions->ui->idtDateFrom->setFocus(); }

void frmStMoneyEndSearch::search() {
    const PaymentSearch asked = ui->pagConditions->search();
    if (PaymentRows(gDbManager.Connection()).count(paidCondition(asked)) == 0) {
        ShowMessage(Message::Missing, u"対象データ"_qs);
        return;
    }
    openScreen<frmStMoneyEndList>(
        this, [&](frmStMoneyEndList& list) { list.Search = asked; }, [](frmStMoneyEndList&) {});
}
