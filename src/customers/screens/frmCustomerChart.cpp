#include "customers/screens/frmCustomerChart.h"

#include "base/Text.h"
#include "base/basMessage.h"
#include "customers/ChartParties.h"
#include "db/clsAssistManager.h"
#include "reference/ReferenceManagers.h"
#include "ui/OrderChoice.h"
#include "ui/basControlUtil.h"
#include "ui_frmCustomerChart.h"

#include <QLineEdit>
#include <QScopedValueRollback>

namespace {

constexpr int doctorLength = 30;

const QString subject = u"顧客カルテ"_qs;

} // namespace

frmCustomerChart::frmCustomerChart(QWidget* parent)
    : EditScreen(parent, {u"顧客情報（カルテ）"_qs, subject, subject}), ui(std::make_unique<Ui::frmCustomerChart>()) {
    ui->setupUi(this);
    ui->cboDoctor->setMaxLength(doctorLength);
    connect(ui->txtOrderCd, &TextField::valueChanged, this, [this] {
        if (!m_showing) guarded([this] { takeOrderOfCode(); });
    });
    onClick(ui->cmdOrderSelect, [this] { selectOrder(); });
    onClick(ui->cmdExec, [this] {
        if (save()) close();
    });
    m_newNames.watchDoctor(ui->cboDoctor);
    m_newNames.watchOrder(ui->txtOrderCd, ui->txtOrderNm);
    setUpEditing({{ui->fraData, ui->cmdExec}, {}, ui->cmdCancel, ui->cmdDel, ui->cmdClose, nullptr});
}

frmCustomerChart::~frmCustomerChart() = default;

// --- showing ---

void frmCustomerChart::fillLists() { FillAssistList(ui->cboLR, AssistGroup::Side); }

QWidget* frmCustomerChart::firstField() const {
    return EditMode == Delete ? static_cast<QWidget*>(ui->cmdClose) : ui->txtChartCd;
}

void frmCustomerChart::showStored() {
    const QScopedValueRollback showing(m_showing, true);
    const QString code = Order.OrderCd.isEmpty() ? orderCodeOf(Chart) : Order.OrderCd;
    ui->txtChartNo->setValue(Chart.ChartNo.isEmpty() ? u"(追加)"_qs : Chart.ChartNo);
    ui->txtChartCd->setValue(Chart.ChartCd);
    ui->cboLR->setText(Chart.LR);
    ui->txtDiseaseNm->setValue(Chart.DiseaseNm);
    ui->idtHospDate->setValue(Chart.HospDate);
    ui->txtOrderCd->setValue(code);
    ui->txtOrderNm->setValue(Chart.OrderNm);
    fillDoctors();
    ui->cboDoctor->setText(Chart.DoctorNm);
    ui->txtMemo->setValue(Chart.Memo);
    m_newNames.look();
}

// --- ordering party and doctor ---

void frmCustomerChart::fillDoctors() { FillDoctorsOfOrder(ui->cboDoctor, ui->txtOrderCd->value()); }

void frmCustomerChart::takeOrderOfCode() {
    clsOrder order;
    const QString code = ui->txtOrderCd->value();
    if (!code.isEmpty() && gOrderManager.GetDataCd(code, order)) ui->txtOrderNm->fillIn(order.OrderNm);
    fillDoctors();
}

void frmCustomerChart::selectOrder() { SelectOrder(this, ui->txtOrderCd, ui->txtOrderNm); }

// Another name of the chart's own party is no other party's; which of the two holds is asked when the chart is stored.
bool frmCustomerChart::isCodeOfAnother() {
    clsOrder owner;
    const QString code = ui->txtOrderCd->value();
    const QString name = Text::rightTrimmed(ui->txtOrderNm->value());
    if (code.isEmpty() || !gOrderManager.GetDataCd(code, owner) || Text::rightTrimmed(owner.OrderNm) == name)
        return false;
    return owner.OrderNo != Chart.OrderNo;
}

clsOrder frmCustomerChart::enteredOrder() {
    clsOrder order;
    const QString code = ui->txtOrderCd->value();
    if (!code.isEmpty())
        gOrderManager.GetDataCd(code, order);
    else if (ui->txtOrderNm->value() == Chart.OrderNm)
        order.OrderNo = Chart.OrderNo;
    order.OrderCd = code;
    order.OrderNm = ui->txtOrderNm->value();
    return order;
}

clsDoctor frmCustomerChart::enteredDoctor(const QString& orderNo) {
    clsDoctor doctor;
    const QString number = ui->cboDoctor->data();
    if (!number.isEmpty())
        gDoctorManager.GetData(number, doctor);
    else if (ui->cboDoctor->text() == Chart.DoctorNm)
        doctor.DoctorNo = Chart.DoctorNo;
    doctor.DoctorNm = ui->cboDoctor->text();
    if (doctor.DoctorNo.isEmpty()) doctor.OrderNo = orderNo;
    return doctor;
}

// --- commands ---

// The fields become the record. False when they are refused, which was told.
bool frmCustomerChart::save() {
    if (!leaveField()) return false;
    if (isCodeOfAnother()) {
        ShowMessage(Message::Warning, u"受注先コードは　%1　で登録済みです。\n受注先コードを変更してください。"_qs.arg(
                                          ui->txtOrderCd->value()));
        ui->txtOrderCd->setFocus();
        return false;
    }
    Order = enteredOrder();
    Doctor = enteredDoctor(Order.OrderNo);
    Chart.ChartCd = ui->txtChartCd->value();
    Chart.LR = ui->cboLR->text();
    Chart.DiseaseNm = ui->txtDiseaseNm->value();
    Chart.HospDate = ui->idtHospDate->value();
    Chart.OrderNo = Order.OrderNo;
    Chart.OrderNm = Order.OrderNm;
    Chart.DoctorNo = Doctor.DoctorNo;
    Chart.DoctorNm = Doctor.DoctorNm;
    Chart.Memo = ui->txtMemo->value();
    Updated = true;
    clearEdited();
    return true;
}
