#include "estimates/screens/EstimateRowCommands.h"

#include "ui/FormPieces.h"
#include "ui_EstimateRowCommands.h"

EstimateRowCommands::EstimateRowCommands(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::EstimateRowCommands>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

EstimateRowCommands::~EstimateRowCommands() = default;

void EstimateRowCommands::setIndex(int index) {
    m_index = index;
    FormPieces::setArrayIndex(this, index);
}
