#include "estimates/screens/CsEstimateMakePage.h"

#include "estimates/screens/EstimateGrids.h"
#include "ui/FormPieces.h"
#include "ui_CsEstimateMakePage.h"

CsEstimateMakePage::CsEstimateMakePage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateMakePage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    EstimateGrids::setUpMakeElements(ui->flxMkElm);
}

CsEstimateMakePage::~CsEstimateMakePage() = default;
