#pragma once

#include "payments/WorkPlan.h"
#include "reports/engine/PrintingScreen.h"

namespace Ui {
class frmStWorkPlan;
}

// The work plan: what is to be fitted, completed and delivered in a period, by date or by ordering party.
class frmStWorkPlan : public PrintingScreen {
    Q_OBJECT

public:
    explicit frmStWorkPlan(QWidget* parent = nullptr);
    ~frmStWorkPlan() override;

protected:
    void load() override;

private:
    WorkPlanSearch asked() const;
    void print(PrintTo to);

    std::unique_ptr<Ui::frmStWorkPlan> ui;
};
