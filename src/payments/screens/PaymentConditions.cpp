#include "payments/screens/PaymentConditions.h"

#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "ui/FormPieces.h"
#include "ui/OrderChoice.h"
#include "ui/basControlUtil.h"
#include "ui_PaymentConditions.h"

namespace {

const QString profileSection = u"PaySearch"_qs;
const QString profileKey = u"PayChkIns"_qs;

void hideAll(const QList<QWidget*>& parts) {
    for (QWidget* part : parts) part->hide();
}

} // namespace

PaymentConditions::PaymentConditions(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::PaymentConditions>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    connect(ui->cmdOrderSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseOrder(); }); });
}

PaymentConditions::~PaymentConditions() = default;

void PaymentConditions::setPeriodWord(const QString& word) { ui->lblPeriod->setText(word); }

void PaymentConditions::hideOrder() { hideAll({ui->lblOrder, ui->txtOrderCd, ui->txtOrderNm, ui->cmdOrderSelect}); }

void PaymentConditions::hideStatus() { hideAll({ui->lblStatus, ui->cboStatus}); }

void PaymentConditions::hideExclusions() { ui->fraIns->hide(); }

void PaymentConditions::fillStatuses(const QList<clsProcKbn>& statuses) {
    m_statuses = statuses;
    BeginList(ui->cboStatus);
    for (const clsProcKbn& status : statuses) AddListEntry(ui->cboStatus, status.ProcKbnNm1, status.ProcKbnNo);
}

QList<QCheckBox*> PaymentConditions::exclusions() const {
    return {ui->chkIns_0, ui->chkIns_1, ui->chkIns_2, ui->chkIns_3};
}

QString PaymentConditions::ticks() const {
    QString ticks;
    for (const QCheckBox* box : exclusions()) ticks += box->isChecked() ? u'1' : u'0';
    return ticks;
}

void PaymentConditions::restoreExclusions() {
    const QString kept = clsProfile().GetValue(profileSection, profileKey);
    const QList<QCheckBox*> boxes = exclusions();
    for (int i = 0; i < boxes.size(); ++i) boxes.at(i)->setChecked(kept.mid(i, 1) == u"1");
}

void PaymentConditions::keepExclusions() const { clsProfile().SaveValue(profileSection, profileKey, ticks()); }

PaymentSearch PaymentConditions::search() const {
    PaymentSearch search;
    search.OrderCd = ui->txtOrderCd->value();
    search.OrderNm = ui->txtOrderNm->value();
    search.DateFrom = ui->idtDateFrom->value();
    search.DateTo = ui->idtDateTo->value();
    search.Status = ui->cboStatus->data();
    search.allStatuses = !search.Status.isEmpty() && meansAllStatuses(search.Status, m_statuses);
    search.ChkIns = ticks();
    return search;
}

QString PaymentConditions::statusWord() const { return ui->cboStatus->text(); }

void PaymentConditions::chooseOrder() { SelectOrder(this, ui->txtOrderCd, ui->txtOrderNm); }

void PaymentConditions::completeOrder() {
    if (!ui->txtOrderCd->value().isEmpty()) chooseOrder();
}
