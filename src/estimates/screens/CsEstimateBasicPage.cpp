#include "estimates/screens/CsEstimateBasicPage.h"

#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsAssistManager.h"
#include "estimates/EstimateDates.h"
#include "estimates/screens/FormPieces.h"
#include "estimates/screens/InsuranceGrid.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "reference/ReferenceManagers.h"
#include "reference/clsZipManager.h"
#include "ui/Grid.h"
#include "ui/SelectFrom.h"
#include "ui/basControlUtil.h"
#include "ui_CsEstimateBasicPage.h"

#include <QLineEdit>

namespace {

constexpr int prefLength = 8;
constexpr int cityLength = 12;
constexpr int personLength = 30;
constexpr int chargeLength = 40;
constexpr int insuranceClaimName = 4;
constexpr int wholeZip = 8; // 123-4567

const QString inUse = u"[有効Flg] = 0"_qs;

// 法別 and 請求先 of a row stand in its hidden numbers.
QList<GridColumn> insuranceColumns() {
    QList<GridColumn> columns(5);
    columns[InsuranceGrid::InsNo].title = u"法別No"_qs;
    columns[InsuranceGrid::InsNo].hidden = true;
    columns[InsuranceGrid::InsNm].title = u"保険名"_qs;
    columns[InsuranceGrid::InsNm].width = 15;
    columns[InsuranceGrid::ClaimNo].title = u"請求先No"_qs;
    columns[InsuranceGrid::ClaimNo].hidden = true;
    columns[InsuranceGrid::ClaimCd].title = u"請求先ｺｰﾄﾞ"_qs;
    columns[InsuranceGrid::ClaimCd].width = 11;
    columns[InsuranceGrid::ClaimNm].title = u"請求先"_qs;
    for (const int typed : {InsuranceGrid::InsNm, InsuranceGrid::ClaimCd, InsuranceGrid::ClaimNm})
        columns[typed].editable = true;
    for (const int free : {InsuranceGrid::ClaimCd, InsuranceGrid::ClaimNm}) columns[free].freeText = true;
    return columns;
}

// "[名前1] LIKE 'text%'" of the fields that hold a text.
QString startingWith(const QList<std::pair<QString, QString>>& fields) {
    QStringList terms;
    for (const auto& [column, text] : fields)
        if (!text.isEmpty()) terms << u'[' + column + u"] LIKE '"_qs + SqlQuote(text, true) + u"%'"_qs;
    return terms.join(u" AND "_qs);
}

} // namespace

CsEstimateBasicPage::CsEstimateBasicPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateBasicPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->txtName1->setReadingField(ui->txtKana1);
    ui->txtName2->setReadingField(ui->txtKana2);
    ui->cboPref->lineEdit()->setMaxLength(prefLength);
    ui->cboCity->lineEdit()->setMaxLength(cityLength);
    for (ChoiceBox* person : {ui->cboDoctor, ui->cboProducer}) person->lineEdit()->setMaxLength(personLength);
    ui->cboCharge1->lineEdit()->setMaxLength(chargeLength);
    ui->flxIns->setColumns(insuranceColumns());
    ui->flxIns->setRows(claimRowCount);
    FormPieces::stretchColumn(ui->flxIns, insuranceClaimName);
    FormPieces::fixRowsShown(ui->flxIns, claimRowCount);
    m_insurances = new InsuranceGrid(ui->flxIns);
    m_insurances->customerName = [this] { return customerName(); };
    m_insurances->insuredName = [this] { return ui->txtInsured->value(); };
    connect(m_insurances, &InsuranceGrid::changed, this, &CsEstimateBasicPage::insurancesChanged);
    connectPerson();
    connectAddress();
    connectChart();
}

CsEstimateBasicPage::~CsEstimateBasicPage() = default;

// --- what hangs on what ---

void CsEstimateBasicPage::connectPerson() {
    for (TextField* name : {ui->txtName1, ui->txtName2})
        connect(name, &TextField::valueChanged, this, &CsEstimateBasicPage::followName);
    for (QRadioButton* choice : {ui->optIns_0, ui->optIns_1})
        connect(choice, &QRadioButton::toggled, this, &CsEstimateBasicPage::followName);
    connect(ui->idtBirth, &DateField::valueChanged, this, &CsEstimateBasicPage::showAge);
    connect(ui->numLifeYear, &NumberField::valueSettled, this, [this] {
        const QString years = ui->numLifeYear->value();
        if (!m_showing && !years.isEmpty()) ui->idtLifeEnd->setValue(lifeEndDate(years));
    });
    connect(ui->txtEra, &QLineEdit::editingFinished, this, [this] { guarded([this] { takeEraDate(); }); });
    connect(ui->cmdCustSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseCustomer(); }); });
}

void CsEstimateBasicPage::connectAddress() {
    connect(ui->cboPref, &ChoiceBox::valueChanged, this, [this] {
        guarded([this] {
            const QString city = ui->cboCity->text();
            FillCityList(ui->cboCity, ui->cboPref->text());
            ui->cboCity->setText(city);
        });
    });
    connect(ui->txtZip, &TextField::valueSettled, this, [this] { guarded([this] { takeZip(); }); });
    connect(ui->cmdSetZip, &QPushButton::clicked, this, [this] { guarded([this] { chooseAddress(); }); });
}

void CsEstimateBasicPage::connectChart() {
    connect(ui->txtOrderCd, &TextField::valueSettled, this, [this] { guarded([this] { takeOrderCode(); }); });
    connect(ui->cmdOrderSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseOrder(); }); });
    connect(ui->cmdChartSelect, &QPushButton::clicked, this, [this] { guarded([this] { chooseChart(); }); });
}

void CsEstimateBasicPage::fillLists() {
    FillPrefList(ui->cboPref);
    FillCityList(ui->cboCity, {});
    FillAssistList(ui->cboSex, AssistGroup::Sex);
    FillAssistValueList(ui->cboFamilyType, AssistGroup::FamilyType);
    FillAssistList(ui->cboLR, AssistGroup::Side);
    FillProducerList(ui->cboProducer, inUse);
    FillProducerList(ui->cboCharge1, inUse);
    fillDoctors();
}

// --- the order ---

void CsEstimateBasicPage::showOrder(const EstimateDraft& draft) {
    showCustomer(draft.customer, draft.chart, draft.orderCd, draft.claims);
    showProduct(draft);
}

void CsEstimateBasicPage::showCustomer(const clsCustomer& customer, const clsChart& chart, const QString& orderCd,
                                       const QList<ClaimRow>& claims) {
    m_showing = true;
    m_customer = customer;
    const QString joined = JoinWithSpace(customer.CustNm1, customer.CustNm2);
    const bool isSelf = !joined.isEmpty() && customer.Insured == joined;
    (isSelf ? ui->optIns_0 : ui->optIns_1)->setChecked(true);
    ui->txtName1->setValue(customer.CustNm1);
    ui->txtName2->setValue(customer.CustNm2);
    ui->txtKana1->setValue(customer.CustKn1);
    ui->txtKana2->setValue(customer.CustKn2);
    ui->idtBirth->setValue(customer.Birth);
    ui->cboSex->setText(customer.Sex);
    if (!ui->cboFamilyType->chooseByData(customer.FamilyType)) ui->cboFamilyType->clearChoice();
    ui->txtInsured->setValue(customer.Insured);
    ui->txtZip->setValue(customer.Zip);
    ui->cboPref->setText(customer.Pref);
    ui->cboCity->setText(customer.City);
    ui->txtAddr1->setValue(customer.Addr1);
    ui->txtAddr2->setValue(customer.Addr2);
    ui->txtTelNo->setValue(customer.Tel);
    ui->txtFax->setValue(customer.Fax);
    ui->lblEmail->setText(customer.mail);
    ui->lblPriceKbn->setText(customer.PriceType);
    ui->txtCsMemo->setValue(customer.Memo);
    ui->txtEra->setValue({});
    showAge();
    showChart(chart, orderCd);
    m_insurances->showRows(claims);
    m_showing = false;
}

void CsEstimateBasicPage::showChart(const clsChart& chart, const QString& orderCd) {
    m_chart = chart;
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
    ui->lblProductNm->clear();
    ui->cboProducer->setText(estimate.ProducerNm);
    ui->numLifeYear->setValue(estimate.LifeYear);
    ui->idtLifeEnd->setValue(formatDate(estimate.LifeEnd, u"yyyy/mm/dd"_qs));
    ui->lblCategory->setText(estimate.Category);
    ui->lblFrame->setText(estimate.Frame);
    ui->cboCharge1->setText(estimate.Charge1Nm);
    ui->numPartialPayment->setValue(draft.partialPayment);
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
    customer.CustNm1 = ui->txtName1->value();
    customer.CustNm2 = ui->txtName2->value();
    customer.CustKn1 = ui->txtKana1->value();
    customer.CustKn2 = ui->txtKana2->value();
    customer.Birth = ui->idtBirth->value();
    customer.Sex = ui->cboSex->text();
    customer.FamilyType = ui->cboFamilyType->data();
    customer.Insured = ui->txtInsured->value();
    customer.Zip = ui->txtZip->value();
    customer.Pref = ui->cboPref->text();
    customer.City = ui->cboCity->text();
    customer.Addr1 = ui->txtAddr1->value();
    customer.Addr2 = ui->txtAddr2->value();
    customer.Tel = ui->txtTelNo->value();
    customer.Fax = ui->txtFax->value();
    customer.Memo = ui->txtCsMemo->value();

    clsChart& chart = draft.chart;
    chart = m_chart;
    chart.ChartCd = ui->txtChartCd->value();
    chart.DiseaseNm = ui->txtDiseaseNm->value();
    chart.LR = ui->cboLR->text();
    chart.HospDate = ui->idtHospDate->value();
    chart.OrderNm = ui->txtOrderNm->value();
    chart.DoctorNm = ui->cboDoctor->text();
    draft.orderCd = ui->txtOrderCd->value();
    if (draft.orderCd.isEmpty()) chart.OrderNo.clear();

    clsCsEstimate& estimate = draft.estimate;
    estimate.GrantNo = ui->txtGrantNo->value();
    estimate.ProductCd = ui->txtProductCd->value();
    estimate.ProducerNm = ui->cboProducer->text();
    estimate.LifeYear = ui->numLifeYear->value();
    estimate.LifeEnd = ui->idtLifeEnd->value();
    estimate.Category = ui->lblCategory->text();
    estimate.Frame = ui->lblFrame->text();
    estimate.Charge1Nm = ui->cboCharge1->text();
    draft.partialPayment = ui->numPartialPayment->isEnabled() ? ui->numPartialPayment->value() : QString();
}

QList<ClaimRow> CsEstimateBasicPage::insuranceRows() const { return m_insurances->rows(); }

QString CsEstimateBasicPage::customerName() const {
    return JoinWithSpace(ui->txtName1->value(), ui->txtName2->value());
}

QString CsEstimateBasicPage::ageKbn() const { return ui->lblPriceKbn->text(); }

// --- person ---

void CsEstimateBasicPage::followName() {
    const bool same = ui->optIns_0->isChecked();
    ui->txtInsured->setReadOnly(same);
    if (same) ui->txtInsured->setValue(customerName());
    emit nameChanged();
}

void CsEstimateBasicPage::showAge() {
    const QString birth = ui->idtBirth->value();
    ui->lblEra->setText(FormatEraDate(birth, u"ggge年m月d日"_qs));
    ui->lblAge->setText(birth.isEmpty() ? QString() : QString::number(CalcAge(birth, dateText(currentDate()))));
}

void CsEstimateBasicPage::takeEraDate() {
    const QString typed = Text::rightTrimmed(ui->txtEra->value());
    if (typed.isEmpty()) return;
    const QString narrow = Text::toHalfWidth(typed);
    const int base = eraBaseYear(narrow.at(0));
    const auto date = base == 0 ? std::nullopt : parseTypedDate(narrow);
    ui->txtEra->setValue({});
    if (date) {
        ui->idtBirth->setValue(dateText(*date));
        return;
    }
    ui->txtEra->setValue(typed);
    ShowMessage(901, typed + u"は日付として入力できません。 h010203 のように入力してください"_qs);
    ui->txtEra->setFocus();
}

void CsEstimateBasicPage::chooseCustomer() {
    const QString where = startingWith({{u"名前1"_qs, ui->txtName1->value()},
                                        {u"名前2"_qs, ui->txtName2->value()},
                                        {u"フリガナ1"_qs, ui->txtKana1->value()},
                                        {u"フリガナ2"_qs, ui->txtKana2->value()}});
    std::optional<frmCsEstimateList::Choice> estimate;
    const auto chosen = SelectFrom(this, u"顧客"_qs, gCustomerManager.GetSelectList(where, u"[フリガナ1],[フリガナ2],[顧客番号]"_qs),
                                   {u"顧客ID"_qs, u"顧客枝番"_qs}, TellMissing::Yes, [&](QWidget* parent) {
                                       estimate = frmCsEstimateList::chooseOf(parent, ui->txtName1->value(), ui->txtName2->value());
                                       return estimate ? estimate->EstId : QString();
                                   });
    if (estimate) emit estimateChosen(estimate->EstId, estimate->EditMode);
    if (!chosen || estimate) return;
    clsCustomer customer;
    if (!gCustomerManager.GetData(chosen->value(u"顧客ID"_qs), chosen->value(u"顧客枝番"_qs), customer)) return;
    showCustomer(customer, {}, {}, insuranceRowsOf(customer.CustId, customer.CustSubId));
    emit customerChosen(customer);
}

// --- address ---

void CsEstimateBasicPage::takeZip() {
    if (m_showing) return;
    const QString zip = FormatZip(ui->txtZip->value());
    if (zip != ui->txtZip->value()) return ui->txtZip->setValue(zip); // which settles once more
    if (zip.isEmpty()) return;
    QList<clsZip> found;
    gZipManager.GetList(found, u"[郵便番号] LIKE '"_qs + SqlQuote(zip, true) + u"%'"_qs, u"[郵便番号]"_qs);
    clsZip place;
    if (found.size() == 1) {
        place = found.first();
    } else if (found.size() > 1 && zip.size() == wholeZip) {
        // One code of several places: the operator says which.
        const auto chosen = SelectFrom(this, u"郵便番号"_qs, gZipManager.GetSelectListFromZip(zip, u"[都道府県名]"_qs));
        if (!chosen) return;
        place = {zip, chosen->value(u"都道府県名"_qs), chosen->value(u"市区町村名"_qs), chosen->value(u"住所"_qs)};
    } else {
        return;
    }
    ui->cboPref->setText(place.Pref);
    ui->cboCity->setText(place.City);
    ui->txtAddr1->setValue(place.Town);
}

void CsEstimateBasicPage::chooseAddress() {
    const auto chosen = SelectFrom(this, u"郵便番号"_qs,
                                   gZipManager.GetSelectListFromAddr(ui->cboPref->text(),
                                                                     ui->cboCity->text() + ui->txtAddr1->value(),
                                                                     u"[郵便番号]"_qs),
                                   {}, TellMissing::No);
    if (!chosen) return;
    m_showing = true; // the code comes from the address, not the other way round
    ui->txtZip->setValue(chosen->value(u"郵便番号"_qs));
    m_showing = false;
    ui->cboPref->setText(chosen->value(u"都道府県名"_qs));
    ui->cboCity->setText(chosen->value(u"市区町村名"_qs));
    ui->txtAddr1->setValue(chosen->value(u"住所"_qs));
}

// --- chart ---

void CsEstimateBasicPage::fillDoctors() {
    const QString shown = ui->cboDoctor->text();
    const QString code = ui->txtOrderCd->value();
    QString where = inUse;
    if (!code.isEmpty())
        where = u"[受注先No] IN (SELECT [受注先No] FROM [受注先] WHERE [受注先コード] LIKE '"_qs + SqlQuote(code, true) +
                u"%') AND "_qs + inUse;
    FillDoctorList(ui->cboDoctor, where);
    ui->cboDoctor->setText(shown);
}

void CsEstimateBasicPage::takeOrderCode() {
    if (m_showing) return;
    const QString code = ui->txtOrderCd->value();
    clsOrder order;
    if (!code.isEmpty() && gOrderManager.GetDataCd(code, order)) {
        ui->txtOrderNm->setValue(order.OrderNm);
        m_chart.OrderNo = order.OrderNo;
    }
    fillDoctors();
}

void CsEstimateBasicPage::chooseOrder() {
    QString where = inUse;
    const QString code = ui->txtOrderCd->value();
    if (!code.isEmpty()) where += u" AND [受注先コード] LIKE '"_qs + SqlQuote(code, true) + u"%'"_qs;
    const auto chosen =
        SelectFrom(this, u"受注先"_qs, gOrderManager.GetSelectList(where, u"[順番]"_qs), {u"受注先No"_qs});
    if (!chosen) return;
    ui->txtOrderCd->setValue(chosen->value(u"受注先コード"_qs));
    ui->txtOrderNm->setValue(chosen->value(u"受注先"_qs));
}

void CsEstimateBasicPage::chooseChart() {
    if (m_customer.CustId.isEmpty()) {
        ShowMessage(102, u"顧客"_qs);
        return;
    }
    const QString where = u"[顧客ID] = "_qs + sqlText(m_customer.CustId) + u" AND [顧客枝番] = "_qs +
                          sqlNumber(m_customer.CustSubId);
    const auto chosen = SelectFrom(this, u"カルテ"_qs, gChartManager.GetSelectList(where, u"[カルテNo]"_qs),
                                   {u"顧客ID"_qs, u"顧客枝番"_qs});
    if (!chosen) return;
    clsChart chart;
    if (!gChartManager.GetData(m_customer.CustId, m_customer.CustSubId, chosen->value(u"カルテNo"_qs), chart)) return;
    clsOrder order;
    if (Val(chart.OrderNo) != 0) gOrderManager.GetData(chart.OrderNo, order);
    showChart(chart, order.OrderCd);
}
