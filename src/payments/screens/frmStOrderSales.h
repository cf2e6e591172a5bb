#pragma once

#include "reports/engine/PrintingScreen.h"

namespace Ui {
class frmStOrderSales;
}

// The sales of the ordering parties in a period, with what customers and public money have paid.
class frmStOrderSales : public PrintingScreen {
    Q_OBJECT

public:
    explicit frmStOrderSales(QWidget* parent = nullptr);
    ~frmStOrderSales() override;

protected:
    void load() override;

private:
    void print(PrintTo to);

    std::unique_ptr<Ui::frmStOrderSales> ui;
};
