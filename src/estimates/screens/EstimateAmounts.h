#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class EstimateAmounts;
}

// The subtotals, the tax and the total of an estimate; every page but the first has one. `index` is its place in the
// control arrays, as in lblTax_2.
class EstimateAmounts : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex)

public:
    explicit EstimateAmounts(QWidget* parent = nullptr);
    ~EstimateAmounts() override;

    int index() const { return m_index; }
    // To be set once: it names the controls.
    void setIndex(int index);

    const std::unique_ptr<Ui::EstimateAmounts> ui;

private:
    int m_index = -1;
};
