#pragma once

#include "customers/clsCustomerManager.h"
#include "ui/Screen.h"

namespace Ui {
class frmCsUpdConf;
}

// Shows a stored customer (`MstInf`) against what was typed (`IptInf`) and asks how to register it. `Selected` is a
// `CustomerUpdate`; it stays 0 when the screen is closed without a choice.
class frmCsUpdConf : public Screen {
    Q_OBJECT

public:
    explicit frmCsUpdConf(QWidget* parent = nullptr);
    ~frmCsUpdConf() override;

    clsCustomer MstInf;
    clsCustomer IptInf;
    qint16 Selected = 0;

    // Opens the screen and gives the choice.
    static CustomerUpdate ask(QWidget* parent, const clsCustomer& stored, const clsCustomer& typed);

protected:
    void load() override;

private:
    void select(CustomerUpdate choice);

    std::unique_ptr<Ui::frmCsUpdConf> ui;
};
