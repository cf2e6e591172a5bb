#pragma once

#include "master/MasterListFilter.h"
#include "ui/ListScreen.h"

namespace Ui {
class frmMsEstimateList;
}

class ChoiceBox;
class KeyedList;

// Lists the master estimates by group and filter, opens their editor and prints them, one or the list.
class frmMsEstimateList : public ListScreen {
    Q_OBJECT

public:
    explicit frmMsEstimateList(QWidget* parent = nullptr);
    ~frmMsEstimateList() override;

protected:
    void load() override;

private:
    void connectFilters();
    void connectCommands();

    // --- filter ---
    QList<ChoiceBox*> boxes() const;
    void fillBox(int box);
    void narrow(int box);
    MasterListFilter filter() const;
    SqlTerm sorting() const;

    // --- rows ---
    void showRows();
    void sortBy(int column);
    QString currentId();

    // --- commands ---
    void open(qint16 mode);
    void edit(qint16 mode, const QString& id);
    bool mayPrint();
    void printList();
    void printCurrent();

    std::unique_ptr<Ui::frmMsEstimateList> ui;
    KeyedList* m_rows;
    bool m_filling = false; // boxes that change together rebuild the list once
};
