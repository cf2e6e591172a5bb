#pragma once

#include "payments/Ledger.h"
#include "ui/Screen.h"

namespace Ui {
class frmCsUrikakeSystem;
}

class DateField;
class QRadioButton;

// What of the receivable ledger is looked at: by one of four days, of which book, with or without a balance.
class frmCsUrikakeSystem : public Screen {
    Q_OBJECT

public:
    explicit frmCsUrikakeSystem(QWidget* parent = nullptr);
    ~frmCsUrikakeSystem() override;

protected:
    void load() override;

private:
    struct DayRow {
        QRadioButton* option;
        DateField *from, *to;
    };
    QList<DayRow> dayRows() const;
    LedgerSearch asked() const;
    void search();

    std::unique_ptr<Ui::frmCsUrikakeSystem> ui;
};
