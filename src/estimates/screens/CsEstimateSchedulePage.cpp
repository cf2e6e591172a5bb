#include "estimates/screens/CsEstimateSchedulePage.h"

#include "base/Dates.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateDates.h"
#include "ui/FormPieces.h"
#include "ui/basControlUtil.h"
#include "ui_CsEstimateSchedulePage.h"

CsEstimateSchedulePage::CsEstimateSchedulePage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateSchedulePage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    for (ChoiceBox* box : {ui->cboDiscount1, ui->cboDiscount2, ui->cboDiscount3, ui->cboTax})
        connect(box, &ChoiceBox::valueChanged, this, &CsEstimateSchedulePage::percentagesChanged);
}

CsEstimateSchedulePage::~CsEstimateSchedulePage() = default;

QList<std::pair<DateField*, QString clsCsEstimate::*>> CsEstimateSchedulePage::dates() const {
    return {
        {ui->idtRecvDate, &clsCsEstimate::RecvDate},           {ui->idtEstDate, &clsCsEstimate::EstDate},
        {ui->idtTickRsvDate, &clsCsEstimate::TickRsvDate},     {ui->idtPickPtnDate, &clsCsEstimate::PickPtnDate},
        {ui->idtTmpSetPlnDate, &clsCsEstimate::TmpSetPlnDate}, {ui->idtTmpSetFinDate, &clsCsEstimate::TmpSetFinDate},
        {ui->idtCmpltPlnDate, &clsCsEstimate::CmpltPlnDate},   {ui->idtCmpltFinDate, &clsCsEstimate::CmpltFinDate},
        {ui->idtDelvPlnDate, &clsCsEstimate::DelvPlnDate},     {ui->idtDelvFinDate, &clsCsEstimate::DelvFinDate},
        {ui->idtAskPlnDate, &clsCsEstimate::AskPlnDate},       {ui->idtAskFinDate, &clsCsEstimate::AskFinDate},
        {ui->idtPayInPlnDate, &clsCsEstimate::PayInPlnDate},   {ui->idtPayInFinDate, &clsCsEstimate::PayInFinDate}};
}

void CsEstimateSchedulePage::fillLists() {
    FillCommaList(ui->cboDiscount1, u"100,95,70"_qs);
    FillCommaList(ui->cboDiscount2, u"100,95,70"_qs);
    FillCommaList(ui->cboDiscount3, u"100"_qs);
    FillTaxList(ui->cboTax, u"2,3"_qs);
}

void CsEstimateSchedulePage::showEstimate(const clsCsEstimate& estimate) {
    for (const auto& [field, member] : dates()) field->setValue(formatDate(estimate.*member, u"yyyy/mm/dd"_qs));
    ui->txtEstMemo->setValue(estimate.Memo);
    showPercentages(estimate);
}

void CsEstimateSchedulePage::showPercentages(const clsCsEstimate& estimate) {
    ui->cboDiscount1->setText(estimate.Discount1);
    ui->cboDiscount2->setText(estimate.Discount2);
    ui->cboDiscount3->setText(estimate.Discount3);
    ui->cboTax->setText(estimate.Tax);
}

void CsEstimateSchedulePage::showAmounts(const EstimateAmounts& amounts) { ui->amounts->showAmounts(amounts); }

DateField* CsEstimateSchedulePage::dateField(QString clsCsEstimate::*date) const {
    for (const auto& [field, member] : dates())
        if (member == date) return field;
    return nullptr;
}

void CsEstimateSchedulePage::collect(clsCsEstimate& estimate) const {
    for (const auto& [field, member] : dates()) estimate.*member = field->value();
    estimate.Memo = ui->txtEstMemo->value();
    collectPercentages(estimate);
}

void CsEstimateSchedulePage::collectPercentages(clsCsEstimate& estimate) const {
    estimate.Discount1 = storedDiscount(ui->cboDiscount1->text());
    estimate.Discount2 = storedDiscount(ui->cboDiscount2->text());
    estimate.Discount3 = storedDiscount(ui->cboDiscount3->text());
    estimate.Tax = storedTax(ui->cboTax->text());
}

void CsEstimateSchedulePage::planFromCasting() {
    const QString casting = ui->idtPickPtnDate->value();
    if (!isDate(casting)) return;
    const QList<std::pair<DateField*, int>> planned{{ui->idtTmpSetPlnDate, Setting::TmpSetDays},
                                                    {ui->idtCmpltPlnDate, Setting::CmpltDays},
                                                    {ui->idtDelvPlnDate, Setting::DelvDays},
                                                    {ui->idtAskPlnDate, Setting::AskDays},
                                                    {ui->idtPayInPlnDate, Setting::PayInDays}};
    for (const auto& [field, setting] : planned)
        if (!isDate(field->value())) field->setValue(plannedDate(casting, gSysSettingManager.value(setting)));
}
