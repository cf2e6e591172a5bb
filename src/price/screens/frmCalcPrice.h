#pragma once

#include "ui/Screen.h"

namespace Ui {
class frmCalcPrice;
}

// Works out an amount as a percentage of a remainder. `AskDiff` is the remainder in yen, `xpos` and `ypos` the place on
// the display. With `Edited` the amount taken stands in `AskPrice`, as plain digits.
class frmCalcPrice : public Screen {
    Q_OBJECT

public:
    explicit frmCalcPrice(QWidget* parent = nullptr);
    ~frmCalcPrice() override;

    qint32 AskDiff = 0;
    int xpos = 0;
    int ypos = 0;
    QString AskPrice;
    bool Edited = false;

protected:
    void load() override;

private:
    void showPrice();
    void takeOver();

    std::unique_ptr<Ui::frmCalcPrice> ui;
};
