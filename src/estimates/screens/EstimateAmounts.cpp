#include "estimates/screens/EstimateAmounts.h"

#include "estimates/screens/FormPieces.h"
#include "ui_EstimateAmounts.h"

EstimateAmounts::EstimateAmounts(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::EstimateAmounts>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

EstimateAmounts::~EstimateAmounts() = default;

void EstimateAmounts::setIndex(int index) {
    m_index = index;
    FormPieces::setArrayIndex(this, index);
}
