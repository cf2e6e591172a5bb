#pragma once

#include "customers/clsCustomerManager.h"
#include "db/PagedQuery.h"
#include "ui/Screen.h"

namespace Ui {
class frmCustomerList;
}

class GridPages;

// Lists the customer branches, filtered by reading and address, and opens the customer screen for them.
class frmCustomerList : public Screen {
    Q_OBJECT

public:
    explicit frmCustomerList(QWidget* parent = nullptr);
    ~frmCustomerList() override;

protected:
    void load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectFilters();
    void connectCommands();
    void goToRows();
    void takeReading();
    void takePrefecture();
    void sortBy(int column);

    QString filter() const;
    QList<PagedQuery::Term> order() const;
    void showRows();
    void showCount();

    void open(qint16 mode);
    void takeAdded(const QString& CustId, const QString& CustSubId);
    void takeChanged(int row);

    std::unique_ptr<Ui::frmCustomerList> ui;
    GridPages* m_pages;
    bool m_filling = false; // filters that change together rebuild the list once
};
