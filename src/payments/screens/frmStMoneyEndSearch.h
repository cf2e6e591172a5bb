#pragma once

#include "ui/Screen.h"

namespace Ui {
class frmStMoneyEndSearch;
}

// Which paid orders are looked at, by the day on which their payment was complete.
class frmStMoneyEndSearch : public Screen {
    Q_OBJECT

public:
    explicit frmStMoneyEndSearch(QWidget* parent = nullptr);
    ~frmStMoneyEndSearch() override;

protected:
    void load() override;

private:
    void search();

    std::unique_ptr<Ui::frmStMoneyEndSearch> ui;
};
