#include "estimates/screens/CsEstimatePartsPage.h"

#include "estimates/screens/EstimateGrids.h"
#include "ui/FormPieces.h"
#include "ui_CsEstimatePartsPage.h"

CsEstimatePartsPage::CsEstimatePartsPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimatePartsPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    EstimateGrids::setUpParts(ui->flxCpElm);
}

CsEstimatePartsPage::~CsEstimatePartsPage() = default;
