#include "estimates/screens/CsEstimateBasicPage.h"

#include "base/Dates.h"
#include "base/basMessage.h"
#include "customers/ChartParties.h"
#include "customers/screens/CustomerSelection.h"
#include "customers/screens/PersonFields.h"
#include "db/clsAssistManager.h"
#include "estimates/EstimateDates.h"
#include "estimates/screens/ClaimGrid.h"
#include "estimates/screens/MasterCommands.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "reference/ReferenceManagers.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui/OrderChoice.h"
#include "ui/SelectFrom.h"
#include "ui/basControlUtil.h"
#include "ui_CsEstimateBasicPage.h"

#include <QApplication>
#include <QLineEdit>

namespace {

constexpr int personLength = 30;
constexpr int chargeLength = 40;
constexpr int insurancePayer = 4;
constexpr int longestLife = 999; // years

// 法別 and 請求先 of a row stand in its hidden numbers.
QList<GridColumn> insuranceColumns() {
    return {GridColumn::of(u"法別No"_qs, 10).unseen(), GridColumn::of(u"保険名"_qs, 15).typed(),
            GridColumn::of(u"請求先No"_qs, 10).unseen(),
            GridColumn::of(u"請求先ｺｰﾄﾞ"_qs, 11).typed().takingAny().coded().atMost(10),
            GridColumn::of(u"請求先"_qs, 10).typed().takingAny().atMost(40)};
}

} // namespace

CsEstimateBasicPage::CsEstimateBasicPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateBasicPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    m_person = new PersonFields(PersonControls::of(*ui), this);
    for (ChoiceBox* person : {ui->cboDoctor, ui->cboProducer}) person->setMaxLength(personLength);
    ui->cboCharge1->setMaxLength(chargeLength);
    ui->numLifeYear->setLimit(longestLife, u"耐用年数"_qs);
    ui->flxIns->setColumns(insuranceColumns());
    ui->flxIns->setRows(claimRowCount);
    ui->flxIns->setLeavesFromEmptyRow(true);
    FormPieces::stretchColumn(ui->flxIns, insurancePayer);
    FormPieces::fixRowsShown(ui->flxIns, claimRowCount);
    m_newNames.watchDoctor(ui->cboDoctor);
    for (ChoiceBox* producer : {ui->cboProducer, ui->cboCharge1}) m_newNames.watchProducer(producer);
    m_newNames.watchOrder(ui->txtOrderCd, ui->txtOrderNm);
    m_claimGrid = new ClaimGrid(ui->flxIns);
    m_claimGrid->customerName = [this] { return m_person->name(); };
    m_claimGrid->insuredName = [this] { return ui->txtInsured->value(); };
    connect(m_claimGrid, &ClaimGrid::changed, this, [this] {
        FormPieces::allow(ui->numPartialPayment, hasClaims() ? QString() : u"保険（法別）を入力すると使えます。"_qs);
        emit insurancesChanged();
    });
    connect(ui->numPartialPayment, &NumberField::valueSettled, this, &CsEstimateBasicPage::takePartialPayment);
    connect(ui->cmdEtcPrt_2, &QPushButton::clicked, this, &CsEstimateBasicPage::receiptAsked);
    connect(ui->cmdOpnPrt_2, &QPushButton::clicked, this, &CsEstimateBasicPage::opinionAsked);
    connectPerson();
    connectChart();
    connectProduct();
}

CsEstimateBasicPage::~CsEstimateBasicPage() = default;

// --- what hangs on what ---

void CsEstimateBasicPage::connectPerson() {
    connect(m_person, &PersonFields::nameChanged, this, &CsEstimateBasicPage::nameChanged);
    connect(ui->numLifeYear, &NumberField::valueSettled, this, [this] {
        const QString years = ui->numLifeYear->value();
        if (!m_showing && !years.isEmpty()) guarded([&] { ui->idtLifeEnd->setValue(lifeEndDate(years)); });
    });
    connect(ui->txtEra, &EraField::valueSettled, this, &CsEstimateBasicPage::takeEraDate);
    connect(ui->cmdCustSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseCustomer(); }); });
}

void CsEstimateBasicPage::connectChart() {
    connect(ui->txtOrderCd, &TextField::valueSettled, this, [this] { guarded([this] { takeOrderCode(); }); });
    connect(ui->cmdOrderSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseOrder(); }); });
    connect(ui->cmdChartSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseChart(); }); });
}

void CsEstimateBasicPage::connectProduct() {
    connect(ui->txtProductCd, &TextField::valueSettled, this, [this] { guarded([this] { takeProductCode(); }); });
    connect(ui->cmdProductSelect, &QPushButton::clicked, this, [this] {
        guarded([this] {
            if (const auto master = MasterCommands::choose(this, ui->txtProductCd->value())) emit masterChosen(*master);
        });
    });
}

void CsEstimateBasicPage::fillLists() {
    m_person->fillLists();
    FillAssistList(ui->cboLR, AssistGroup::Side);
    FillProducerList(ui->cboProducer, gProducerManager.inUse());
    FillProducerList(ui->cboCharge1, gProducerManager.inUse());
    fillDoctors();
}

// --- the estimate ---

void CsEstimateBasicPage::showCustomer(const clsCustomer& customer, const clsChart& chart, const QString& orderCd,
                                       const QList<ClaimRow>& claims) {
    m_showing = true;
    m_customer = customer;
    m_person->show(customer);
    ui->lblEmail->setText(customer.mail);
    ui->txtEra->setValue({});
    showChart(chart, orderCd);
    m_claimGrid->showRows(claims);
    m_newNames.look();
    m_showing = false;
}

void CsEstimateBasicPage::showChart(const clsChart& chart, const QString& orderCd) {
    m_chart = chart;
    m_orderCd = orderCd;
    ui->lblChartNo->setText(chart.ChartNo);
    ui->txtChartCd->setValue(chart.ChartCd);
    ui->txtDiseaseNm->setValue(chart.DiseaseNm);
    ui->cboLR->setText(chart.LR);
    ui->idtHospDate->setValue(chart.HospDate);
    ui->txtOrderCd->setValue(orderCd);
    ui->txtOrderNm->setValue(chart.OrderNm);
    fillDoctors();
    ui->cboDoctor->setText(chart.DoctorNm);
    ui->lblChartMemo->setText(chart.Memo);
}

void CsEstimateBasicPage::showProduct(const EstimateDraft& draft) {
    m_showing = true;
    const clsCsEstimate& estimate = draft.estimate;
    ui->txtGrantNo->setValue(estimate.GrantNo);
    ui->txtProductCd->setValue(estimate.ProductCd);
    ui->lblProductNm->setText(MasterCommands::nameOf(estimate.ProductCd));
    ui->cboProducer->setText(estimate.ProducerNm);
    ui->numLifeYear->setValue(estimate.LifeYear);
    ui->idtLifeEnd->setValue(formatDate(estimate.LifeEnd, u"yyyy/mm/dd"_qs));
    m_category = estimate.Category;
    m_frame = estimate.Frame;
    ui->lblCategory->setText(m_category);
    ui->lblFrame->setText(m_frame);
    ui->cboCharge1->setText(estimate.Charge1Nm);
    ui->numPartialPayment->setValue(draft.partialPayment);
    m_newNames.look();
    m_showing = false;
}

void CsEstimateBasicPage::collect(EstimateDraft& draft) const {
    clsCustomer& customer = draft.customer;
    const QString number = customer.CustNo;
    const QString id = customer.CustId;
    const QString branch = customer.CustSubId;
    customer = m_customer;
    customer.CustNo = number;
    customer.CustId = id;
    customer.CustSubId = branch;
    m_person->collect(customer);

    clsChart& chart = draft.chart;
    chart = m_chart;
    chart.ChartCd = ui->txtChartCd->value();
    chart.DiseaseNm = ui->txtDiseaseNm->value();
    chart.LR = ui->cboLR->text();
    chart.HospDate = ui->idtHospDate->value();
    chart.OrderNm = ui->txtOrderNm->value();
    chart.DoctorNm = ui->cboDoctor->text();
    draft.orderCd = ui->txtOrderCd->value();
    // A party without a code, or one that is gone, keeps its number as long as nobody touches it.
    const bool untouched = m_orderCd.isEmpty() && chart.OrderNm == m_chart.OrderNm;
    if (draft.orderCd.isEmpty() && !untouched) chart.OrderNo.clear();

    clsCsEstimate& estimate = draft.estimate;
    estimate.GrantNo = ui->txtGrantNo->value();
    estimate.ProductCd = ui->txtProductCd->value();
    estimate.ProducerNm = ui->cboProducer->text();
    estimate.LifeYear = ui->numLifeYear->value();
    estimate.LifeEnd = ui->idtLifeEnd->value();
    estimate.Category = m_category;
    estimate.Frame = m_frame;
    estimate.Charge1Nm = ui->cboCharge1->text();
    draft.partialPayment = partialPayment();
}

QWidget* CsEstimateBasicPage::firstField() const { return ui->txtName1; }

bool CsEstimateBasicPage::hasClaims() const {
    const QList<ClaimRow> rows = claimRows();
    return std::any_of(rows.begin(), rows.end(), [](const ClaimRow& row) { return row.isUsed(); });
}

void CsEstimateBasicPage::takePartialPayment() {
    if (!m_showing && hasClaims() && ui->numPartialPayment->value().isEmpty()) emit partialPaymentEmptied();
}

QString CsEstimateBasicPage::partialPayment() const { return hasClaims() ? ui->numPartialPayment->value() : QString(); }

QList<ClaimRow> CsEstimateBasicPage::claimRows() const { return m_claimGrid->rows(); }

QString CsEstimateBasicPage::customerName() const { return m_person->name(); }

QString CsEstimateBasicPage::side() const { return ui->cboLR->text(); }

CsEstimateBasicPage::QuickDates CsEstimateBasicPage::quickDates() const {
    return {ui->idtPickPtnDate2, ui->idtDelvFinDate2, ui->idtPayPrtDate2};
}

// --- product ---

namespace {

// キャンセル and 閉じる give up what was typed.
bool isGivingUp() {
    const QWidget* now = QApplication::focusWidget();
    return now && now->property("leavesUnchecked").toBool();
}

} // namespace

void CsEstimateBasicPage::takeProductCode() {
    if (m_showing || isGivingUp()) return;
    const QString code = Text::rightTrimmed(ui->txtProductCd->value());
    ui->lblProductNm->clear();
    if (code.isEmpty()) return;
    if (const auto master = MasterCommands::ofTypedCode(this, code)) emit masterChosen(*master);
}

// --- person ---

void CsEstimateBasicPage::takeEraDate() {
    const QString date = ui->txtEra->value();
    if (date.isEmpty()) return;
    ui->idtBirth->setValue(date);
    ui->txtEra->setValue({});
}

void CsEstimateBasicPage::chooseCustomer() {
    const SqlTerm where = gCustomerManager.startsWith({{&clsCustomer::CustNm1, ui->txtName1->value()},
                                                       {&clsCustomer::CustNm2, ui->txtName2->value()},
                                                       {&clsCustomer::CustKn1, ui->txtKana1->value()},
                                                       {&clsCustomer::CustKn2, ui->txtKana2->value()}});
    std::optional<frmCsEstimateList::Choice> estimate;
    const auto chosen = selectCustomer(this, where, [&](QWidget* parent) {
        estimate = frmCsEstimateList::chooseOf(parent, ui->txtName1->value(), ui->txtName2->value());
        return estimate ? estimate->EstId : QString();
    });
    if (estimate) emit estimateChosen(estimate->EstId, estimate->EditMode);
    if (!chosen || estimate) return;
    clsCustomer customer;
    if (!gCustomerManager.GetData(chosen->value(u"顧客ID"_qs), chosen->value(u"顧客枝番"_qs), customer)) return;
    showCustomer(customer, {}, {}, claimRowsOf(customer.CustId, customer.CustSubId));
    emit customerChosen(customer);
}

// --- chart ---

void CsEstimateBasicPage::fillDoctors() { FillDoctorsOfOrder(ui->cboDoctor, ui->txtOrderCd->value()); }

void CsEstimateBasicPage::takeOrderCode() {
    if (m_showing) return;
    const QString code = ui->txtOrderCd->value();
    clsOrder order;
    if (!code.isEmpty() && gOrderManager.GetDataCd(code, order)) {
        ui->txtOrderNm->fillIn(order.OrderNm);
        m_chart.OrderNo = order.OrderNo;
    }
    fillDoctors();
}

void CsEstimateBasicPage::chooseOrder() { SelectOrder(this, ui->txtOrderCd, ui->txtOrderNm); }

void CsEstimateBasicPage::chooseChart() {
    if (m_customer.CustId.isEmpty()) {
        ShowMessage(Message::ChooseValue, u"顧客"_qs);
        return;
    }
    Recordset charts =
        gChartManager.GetSelectList(gChartManager.keyed(m_customer.key()), gChartManager.column(&clsChart::ChartNo));
    const auto chosen = SelectFrom(this, u"カルテ"_qs, std::move(charts), {u"顧客ID"_qs, u"顧客枝番"_qs});
    if (!chosen) return;
    clsChart chart;
    if (!gChartManager.GetData(m_customer.CustId, m_customer.CustSubId, chosen->value(u"カルテNo"_qs), chart)) return;
    showChart(chart, orderCodeOf(chart));
}
