#include "estimates/screens/AmountsBlock.h"

#include "base/Numbers.h"
#include "ui/FormPieces.h"
#include "ui_AmountsBlock.h"

AmountsBlock::AmountsBlock(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::AmountsBlock>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

AmountsBlock::~AmountsBlock() = default;

void AmountsBlock::setIndex(int index) {
    m_index = index;
    FormPieces::setArrayIndex(this, index);
}

void AmountsBlock::showAmounts(const EstimateAmounts& amounts) {
    ui->lblSubtotal1->setText(formatThousands(amounts.makeElements));
    ui->lblSubtotal2->setText(formatThousands(amounts.completeParts));
    ui->lblTax->setText(formatThousands(amounts.tax));
    ui->lblEstTotal->setText(formatThousands(amounts.total));
}
