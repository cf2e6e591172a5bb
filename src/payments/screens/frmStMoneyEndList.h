#pragma once

#include "payments/PaymentSearch.h"
#include "payments/screens/PaymentListScreen.h"

namespace Ui {
class frmStMoneyEndList;
}

class KeyedList;

// The paid orders, to be looked at, printed and written to a file. The caller sets what was searched for.
class frmStMoneyEndList : public PaymentListScreen {
    Q_OBJECT

public:
    explicit frmStMoneyEndList(QWidget* parent = nullptr);
    ~frmStMoneyEndList() override;

    PaymentSearch Search;

protected:
    void load() override;

private:
    QHash<QString, QStringList> fetch(const QStringList& keys);
    void showList();
    void print(PrintTo to);
    void writeCsv();

    std::unique_ptr<Ui::frmStMoneyEndList> ui;
    KeyedList* m_list;
};
