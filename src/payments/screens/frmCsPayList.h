#pragma once

#include "payments/PaymentSearch.h"
#include "payments/screens/EditedPaymentScreen.h"

namespace Ui {
class frmCsPayList;
}

// The orders that are not paid yet, to be given a payment date many at a time, or marked as never to be paid. The
// caller sets what was searched for.
class frmCsPayList : public EditedPaymentScreen {
    Q_OBJECT

public:
    explicit frmCsPayList(QWidget* parent = nullptr);
    ~frmCsPayList() override;

    PaymentSearch Search;
    QString StatusWord; // the name of its status

protected:
    void load() override;
    QStringList cellsOf(const PaymentRow& row) override;
    void follow(int column, QStringList& values) override;
    QStringList write(const QList<EditedList::Row>& edits) override;
    QString whose(const EditedList::Row& row) const override;

private:
    void showList();
    void chooseDate();
    void print(PrintTo to);
    void writeCsv();

    std::unique_ptr<Ui::frmCsPayList> ui;
};
