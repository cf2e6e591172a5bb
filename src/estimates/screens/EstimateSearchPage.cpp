#include "estimates/screens/EstimateSearchPage.h"

#include "base/basCommon.h"
#include "base/basMessage.h"
#include "customers/clsCustomerManager.h"
#include "customers/screens/CustomerSelection.h"
#include "estimates/EstimateManagers.h"
#include "reference/ReferenceManagers.h"
#include "ui/FormPieces.h"
#include "ui/OrderChoice.h"
#include "ui/SearchFields.h"
#include "ui/SelectFrom.h"
#include "ui/basControlUtil.h"
#include "ui_EstimateSearchPage.h"

namespace {

constexpr int statusBoxes = 10;
constexpr char statusNumber[] = "procKbnNo";

} // namespace

EstimateSearchPage::EstimateSearchPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::EstimateSearchPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    const auto choose = [this](QPushButton* button, void (EstimateSearchPage::*work)()) {
        connect(button, &QPushButton::clicked, this, [this, work] { guarded([this, work] { (this->*work)(); }); });
    };
    choose(ui->cmdCustSelect, &EstimateSearchPage::chooseCustomer);
    choose(ui->cmdClaimSelect, &EstimateSearchPage::choosePayer);
    choose(ui->cmdOrderSelect, &EstimateSearchPage::chooseOrder);
    choose(ui->cmdProductSelect, &EstimateSearchPage::chooseProduct);
    connect(ui->cmdSearch, &QPushButton::clicked, this, &EstimateSearchPage::searchAsked);
    connect(ui->cmdClear, &QPushButton::clicked, this, &EstimateSearchPage::clear);
    connect(ui->cboPref, &ChoiceBox::valueChanged, this, [this] {
        guarded([this] {
            const QString city = ui->cboCity->text();
            FillCityList(ui->cboCity, ui->cboPref->text());
            ui->cboCity->setText(city);
        });
    });
    connect(ui->txtZip, &TextField::valueSettled, this,
            [this] { ui->txtZip->setValue(FormatZip(ui->txtZip->value())); });
}

EstimateSearchPage::~EstimateSearchPage() = default;

void EstimateSearchPage::fillLists() {
    FillPrefList(ui->cboPref);
    FillCityList(ui->cboCity, {});
    FillInsList(ui->cboIns, gInsManager.inUse(), bySeq, {.all = true});
    FillDoctorList(ui->cboDoctor, gDoctorManager.inUse());
    FillProducerList(ui->cboProducer, gProducerManager.inUse());
    fillStatuses();
}

void EstimateSearchPage::fillStatuses() {
    QList<clsProcKbn> rows;
    gProcKbnManager.GetList(rows, {}, gProcKbnManager.byKey());
    const QList<QCheckBox*> boxes = statuses();
    for (int i = 0; i < boxes.size(); ++i) {
        const clsProcKbn status = rows.value(i);
        boxes.at(i)->setText(status.ProcKbnNm1);
        boxes.at(i)->setProperty(statusNumber, status.ProcKbnNo);
        boxes.at(i)->setVisible(i < rows.size());
    }
}

QList<QCheckBox*> EstimateSearchPage::statuses() const {
    QList<QCheckBox*> boxes;
    for (int i = 0; i < statusBoxes; ++i) boxes << findChild<QCheckBox*>(u"chkProcKbn_%1"_qs.arg(i));
    return boxes;
}

void EstimateSearchPage::tickAllStatuses() {
    for (QCheckBox* box : statuses()) box->setChecked(!box->property(statusNumber).toString().isEmpty());
}

void EstimateSearchPage::clear() {
    SearchFields::clear(this);
    ui->txtKana1->setFocus();
}

void EstimateSearchPage::showNames(const QString& name1, const QString& name2) {
    ui->txtName1->setValue(name1);
    ui->txtName2->setValue(name2);
}

EstimateListFilter EstimateSearchPage::filter() const {
    EstimateListFilter filter;
    filter.CsNo = ui->txtCsNo->value();
    filter.Name1 = ui->txtName1->value();
    filter.Name2 = ui->txtName2->value();
    filter.Kana1 = ui->txtKana1->value();
    filter.Kana2 = ui->txtKana2->value();
    filter.Birth = ui->idtBirth->value();
    filter.Zip = ui->txtZip->value();
    filter.Pref = ui->cboPref->text();
    filter.City = ui->cboCity->text();
    filter.Addr = ui->txtAddr->value();
    filter.TelNo = ui->txtTelNo->value();
    filter.InsNo = ui->cboIns->data();
    filter.ClaimCd = ui->txtClaimCd->value();
    filter.ClaimNm = ui->txtClaimNm->value();
    filter.EstNo = ui->txtEstNo->value();
    filter.ProductCd = ui->txtProductCd->value();
    filter.ProductNm = ui->txtProductNm->value();
    filter.Producer = ui->cboProducer->text();
    for (const QCheckBox* box : statuses())
        if (box->isChecked()) filter.ProcKbn << box->property(statusNumber).toString();
    filter.RecvDate = {ui->idtRecvDate_0->value(), ui->idtRecvDate_1->value()};
    filter.PickPtnDate = {ui->idtPickPtnDate_0->value(), ui->idtPickPtnDate_1->value()};
    filter.DelvFinDate = {ui->idtDelvFinDate_0->value(), ui->idtDelvFinDate_1->value()};
    filter.LifeEnd = {ui->idtLifeEnd_0->value(), ui->idtLifeEnd_1->value()};
    filter.DiseaseNm = ui->txtDiseaseNm->value();
    filter.OrderCd = ui->txtOrderCd->value();
    filter.OrderNm = ui->txtOrderNm->value();
    filter.Doctor = ui->cboDoctor->text();
    return filter;
}

QList<QWidget*> EstimateSearchPage::fields() const {
    QList<QWidget*> fields;
    for (EntryField* field : findChildren<EntryField*>())
        if (!field->focusProxy()) fields << field; // that of a list is the list's own
    for (ChoiceBox* box : findChildren<ChoiceBox*>()) fields << box;
    for (QCheckBox* box : findChildren<QCheckBox*>()) fields << box;
    for (QWidget* code : {ui->txtClaimCd, ui->txtOrderCd, ui->txtProductCd}) fields.removeOne(code);
    for (QWidget* from : {ui->idtRecvDate_0, ui->idtPickPtnDate_0, ui->idtDelvFinDate_0, ui->idtLifeEnd_0})
        fields.removeOne(from);
    return fields;
}

void EstimateSearchPage::returnToField() {
    QWidget* last = focusWidget();
    const bool isField = last && !qobject_cast<QPushButton*>(last);
    (isField ? last : ui->txtKana1)->setFocus();
}

bool EstimateSearchPage::asksForPerson(const QWidget* field) const { return ui->fraCust->isAncestorOf(field); }

// --- selection lists ---

void EstimateSearchPage::chooseCustomer() {
    const SqlTerm where = gCustomerManager.startsWith({{&clsCustomer::CustNo, ui->txtCsNo->value()},
                                                       {&clsCustomer::CustNm1, ui->txtName1->value()},
                                                       {&clsCustomer::CustNm2, ui->txtName2->value()},
                                                       {&clsCustomer::CustKn1, ui->txtKana1->value()},
                                                       {&clsCustomer::CustKn2, ui->txtKana2->value()}});
    const auto chosen = selectCustomer(this, where);
    clsCustomer customer;
    if (!chosen || !gCustomerManager.GetData(chosen->value(u"顧客ID"_qs), chosen->value(u"顧客枝番"_qs), customer))
        return;
    ui->txtCsNo->setValue(customer.CustNo);
    showNames(customer.CustNm1, customer.CustNm2);
    ui->txtKana1->setValue(customer.CustKn1);
    ui->txtKana2->setValue(customer.CustKn2);
}

void EstimateSearchPage::choosePayer() {
    const SqlTerm where = SqlAllOf({gClaimManager.inUse(), gClaimManager.withCode(ui->txtClaimCd->value())});
    const auto chosen = SelectFrom(this, u"請求先"_qs, gClaimManager.GetSelectList(where, bySeq), {u"請求先No"_qs});
    if (!chosen) return;
    ui->txtClaimCd->setValue(chosen->value(u"請求先コード"_qs));
    ui->txtClaimNm->setValue(chosen->value(u"請求先"_qs));
}

void EstimateSearchPage::chooseOrder() { SelectOrder(this, ui->txtOrderCd, ui->txtOrderNm); }

void EstimateSearchPage::chooseProduct() {
    const auto chosen = SelectFrom(this, u"マスタ見積"_qs, gCsEstimateManager.GetProductList(ui->txtProductCd->value()),
                                   {u"製品ID"_qs});
    if (!chosen) return;
    ui->txtProductCd->setValue(chosen->value(u"製品コード"_qs));
    ui->txtProductNm->setValue(chosen->value(u"製品名称"_qs));
}
