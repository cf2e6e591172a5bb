#include "estimates/screens/EstimateItemChoice.h"

#include "ui/FormPieces.h"
#include "ui_EstimateItemChoice.h"

EstimateItemChoice::EstimateItemChoice(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::EstimateItemChoice>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

EstimateItemChoice::~EstimateItemChoice() = default;

void EstimateItemChoice::setIndex(int index) {
    m_index = index;
    FormPieces::setArrayIndex(this, index);
}
