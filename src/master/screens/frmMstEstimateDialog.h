#pragma once

#include "ui/Screen.h"

namespace Ui {
class frmMstEstimateDialog;
}

// Asks for the code and the name under which an estimate is stored as a master estimate. The code is a new one.
class frmMstEstimateDialog : public Screen {
    Q_OBJECT

public:
    explicit frmMstEstimateDialog(QWidget* parent = nullptr);
    ~frmMstEstimateDialog() override;

    // What the fields start with and, after the run, what the operator settled on, without blanks behind.
    QString ProductCd, ProductNm;
    // The operator stores.
    bool Updated = false;

protected:
    void load() override;

private:
    void insert();

    std::unique_ptr<Ui::frmMstEstimateDialog> ui;
};
