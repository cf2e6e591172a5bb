#include "customers/screens/frmCustomerChart.h"

#include "base/Text.h"
#include "base/basCommon.h"
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
constexpr int plainWarning = 901;
constexpr int askSave = 201;
constexpr int askDelete = 202;
constexpr int askCancel = 302;

const QString subject = u"顧客カルテ"_qs;

enum Mode { Add = 0, Edit = 1, Delete = 2 };

} // namespace

frmCustomerChart::frmCustomerChart(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCustomerChart>()) {
    ui->setupUi(this);
    ui->cboDoctor->setMaxLength(doctorLength);
    connect(ui->txtOrderCd, &TextField::valueChanged, this, [this] {
        if (!m_showing) guarded([this] { takeOrderOfCode(); });
    });
    onClick(ui->cmdOrderSelect, [this] { selectOrder(); });
    onClick(ui->cmdExec, [this] {
        if (takeOver()) close();
    });
    onClick(ui->cmdCancel, [this] { cancel(); });
    onClick(ui->cmdDel, [this] { remove(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCustomerChart::~frmCustomerChart() = default;

// --- showing ---

void frmCustomerChart::load() {
    showMode();
    FillAssistList(ui->cboLR, AssistGroup::Side);
    AttachControls(this, wrappers);
    showChart();
    if (EditMode == Delete)
        ui->cmdClose->setFocus();
    else
        ui->txtChartCd->setFocus();
}

void frmCustomerChart::showMode() {
    static const QStringList words{u"（追加）"_qs, u"（編集）"_qs, u"（削除）"_qs};
    setWindowTitle(u"顧客情報（カルテ）"_qs + words.value(EditMode));
    const bool editable = EditMode != Delete;
    for (QWidget* part :
         {static_cast<QWidget*>(ui->fraData), static_cast<QWidget*>(ui->cmdExec), static_cast<QWidget*>(ui->cmdCancel)})
        part->setEnabled(editable);
    ui->cmdDel->setEnabled(!editable);
}

void frmCustomerChart::showChart() {
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
    ClearEdited(wrappers);
}

// --- ordering party and doctor ---

void frmCustomerChart::fillDoctors() { FillDoctorsOfOrder(ui->cboDoctor, ui->txtOrderCd->value()); }

void frmCustomerChart::takeOrderOfCode() {
    clsOrder order;
    const QString code = ui->txtOrderCd->value();
    if (!code.isEmpty() && gOrderManager.GetDataCd(code, order)) ui->txtOrderNm->setValue(order.OrderNm);
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
bool frmCustomerChart::takeOver() {
    if (!leaveField()) return false;
    if (isCodeOfAnother()) {
        ShowMessage(plainWarning, u"受注先コードは　%1　で登録済みです。\n受注先コードを変更してください。"_qs.arg(
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
    ClearEdited(wrappers);
    return true;
}

void frmCustomerChart::cancel() {
    if (ShowMessage(askCancel, subject) == AnswerYes) showChart();
}

void frmCustomerChart::remove() {
    if (ShowMessage(askDelete, subject) != AnswerYes) return;
    Updated = true;
    close();
}

bool frmCustomerChart::queryUnload() {
    if (!Loaded || EditMode == Delete || !IsAnyEdited(wrappers)) return true;
    switch (ShowMessage(askSave, subject)) {
    case AnswerYes:
        return takeOver();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}
