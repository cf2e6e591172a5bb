#pragma once

#include "estimates/EstimateAmounts.h"

#include <QWidget>

#include <memory>

namespace Ui {
class AmountsBlock;
}

// The subtotals, the tax and the total of an estimate; every page but the first has one. `index` is its place in the
// control arrays, as in lblTax_2.
class AmountsBlock : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex)

public:
    explicit AmountsBlock(QWidget* parent = nullptr);
    ~AmountsBlock() override;

    int index() const { return m_index; }
    // To be set once: it names the controls.
    void setIndex(int index);
    void showAmounts(const EstimateAmounts& amounts);

    const std::unique_ptr<Ui::AmountsBlock> ui;

private:
    int m_index = -1;
};
