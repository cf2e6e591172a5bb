#pragma once

#include "customers/clsCustomerManager.h"
#include "ui/ListScreen.h"

namespace Ui {
class frmCustomerList;
}

class KeyedList;
class TextField;

// Lists the customer branches, filtered by reading and address, and opens the customer screen for them.
class frmCustomerList : public ListScreen {
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
    void fillPlaces();
    void goToRows();
    void takeReading();
    void takeTab();
    void clearFilters();
    int tabInForce() const;
    QList<QWidget*> areas() const; // what the list is filtered by
    void takePrefecture();
    void sortBy(int column);

    SqlTerm filter() const;
    SqlTerm sorting() const;
    QString statement() const; // of the rows that are asked for
    void showRows();
    void showTyped(const TextField* field);
    void showSettled();

    void open(qint16 mode);
    void view(qint16 mode, const QString& id, const QString& branch, const std::function<void()>& refreshRow);

    std::unique_ptr<Ui::frmCustomerList> ui;
    KeyedList* m_rows;
    bool m_readingTyped = false; // and not left yet
    QString m_typedFor;          // the statement shown for what is typed; empty: for something else
    bool m_filling = false;      // filters that change together rebuild the list once
};
