#pragma once

#include "ui/Screen.h"

namespace Ui {
class frmCsEstimate;
}

// The whole work on one order: who it is for, the product with its items and lines, the dates, the amounts, the claims
// and the papers. `EstId` is the stored estimate to load, empty for a new one; `Updated` tells that something was saved
// or deleted.
class frmCsEstimate : public Screen {
    Q_OBJECT

public:
    explicit frmCsEstimate(QWidget* parent = nullptr);
    ~frmCsEstimate() override;

    QString EstId;
    qint16 EditMode = 0; // 0 add, 1 edit, 2 delete
    bool Updated = false;

protected:
    void load() override;

private:
    void setUpTabKeys();

    std::unique_ptr<Ui::frmCsEstimate> ui;
};
