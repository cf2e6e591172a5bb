#pragma once

#include "payments/Ledger.h"
#include "payments/screens/EditedPaymentScreen.h"

namespace Ui {
class frmCsUrikakeList;
}

// The receivable ledger, whose own five fields are edited in place. The caller sets what was searched for.
class frmCsUrikakeList : public EditedPaymentScreen {
    Q_OBJECT

public:
    explicit frmCsUrikakeList(QWidget* parent = nullptr);
    ~frmCsUrikakeList() override;

    LedgerSearch Search;

protected:
    void load() override;
    QStringList cellsOf(const PaymentRow& row) override;
    void follow(int column, QStringList& values) override;
    QStringList write(const QList<EditedList::Row>& edits) override;
    QString whose(const EditedList::Row& row) const override;

private:
    void showList();
    void writeCsv();

    std::unique_ptr<Ui::frmCsUrikakeList> ui;
};
