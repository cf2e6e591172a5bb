#pragma once

#include "payments/screens/PaymentListScreen.h"
#include "ui/EditedList.h"

class QLabel;

// A list of orders that is edited in place and reflected in one run. What another machine changed meanwhile is not
// written, and told.
class EditedPaymentScreen : public PaymentListScreen {
    Q_OBJECT

protected:
    using PaymentListScreen::PaymentListScreen;

    // Fills the grid; `edited` shows how many rows wait to be reflected.
    void setUpEditing(Grid* grid, QLabel* count, QLabel* edited);
    EditedList& list() { return *m_list; }

    // --- what a list says of its own ---
    virtual QStringList cellsOf(const PaymentRow& row) = 0; // by columns
    virtual void follow(int column, QStringList& values) = 0;
    // Writes the rows and gives the keys of those that were changed elsewhere.
    virtual QStringList write(const QList<EditedList::Row>& edits) = 0;
    // The number and name of an order.
    virtual QString whose(const EditedList::Row& row) const = 0;

    // False when an order was changed elsewhere.
    bool reflect();
    bool queryUnload() override;

private:
    QHash<QString, QStringList> fetch(const QStringList& keys);

    EditedList* m_list = nullptr;
};
