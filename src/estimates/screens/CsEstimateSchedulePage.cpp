#include "estimates/screens/CsEstimateSchedulePage.h"

#include "estimates/screens/FormPieces.h"
#include "ui_CsEstimateSchedulePage.h"

CsEstimateSchedulePage::CsEstimateSchedulePage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateSchedulePage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

CsEstimateSchedulePage::~CsEstimateSchedulePage() = default;
