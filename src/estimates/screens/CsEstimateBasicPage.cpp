#include "estimates/screens/CsEstimateBasicPage.h"

#include "estimates/screens/FormPieces.h"
#include "ui/Grid.h"
#include "ui_CsEstimateBasicPage.h"

#include <QLineEdit>

namespace {

constexpr int prefLength = 8;
constexpr int cityLength = 12;
constexpr int personLength = 30;
constexpr int chargeLength = 40;
constexpr int insuranceRows = 4;
constexpr int insuranceClaimName = 4;

// 法別 and 請求先 of a row stand in its hidden numbers.
QList<GridColumn> insuranceColumns() {
    QList<GridColumn> columns(5);
    columns[0].title = u"法別No"_qs;
    columns[0].hidden = true;
    columns[1].title = u"保険名"_qs;
    columns[1].width = 18;
    columns[2].title = u"請求先No"_qs;
    columns[2].hidden = true;
    columns[3].title = u"請求先ｺｰﾄﾞ"_qs;
    columns[3].width = 11;
    columns[4].title = u"請求先"_qs;
    for (const int typed : {1, 3, 4}) columns[typed].editable = true;
    return columns;
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
    ui->flxIns->setRows(insuranceRows);
    FormPieces::stretchColumn(ui->flxIns, insuranceClaimName);
    FormPieces::fixRowsShown(ui->flxIns, insuranceRows);
}

CsEstimateBasicPage::~CsEstimateBasicPage() = default;
