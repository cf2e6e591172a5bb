#include "estimates/screens/CsEstimateItemPage.h"

#include "estimates/screens/EstimateGrids.h"
#include "estimates/screens/FormPieces.h"
#include "ui_CsEstimateItemPage.h"

CsEstimateItemPage::CsEstimateItemPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateItemPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    EstimateGrids::setUpItems(ui->flxItem);
    FormPieces::fixRowsShown(ui->flxItem, EstimateGrids::itemRows);
}

CsEstimateItemPage::~CsEstimateItemPage() = default;
