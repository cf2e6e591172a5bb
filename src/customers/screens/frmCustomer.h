#pragma once

#include "customers/CustomerSave.h"
#include "ui/EditScreen.h"

namespace Ui {
class frmCustomer;
}

class LawGrid;
class PersonFields;

// Edits one customer branch with its insurances and charts: but for a new customer that of `CustId` and `CustSubId`,
// which afterwards name what was written. A branch registered beside a stored one comes back as an addition.
class frmCustomer : public EditScreen {
    Q_OBJECT

public:
    explicit frmCustomer(QWidget* parent = nullptr);
    ~frmCustomer() override;

    QString CustId, CustSubId;

protected:
    void fillLists() override;
    QWidget* firstField() const override;
    void showStored() override;
    bool save() override { return save(CustomerSaveAs::Itself); }
    bool removeStored() override;

private:
    void connectCommands();
    void showDraft();
    void showCharts();
    CustomerDraft collect() const;

    CustomerChart* currentChart();
    void viewChart();
    void removeChart();

    bool save(CustomerSaveAs as);
    void execute(CustomerSaveAs as);

    std::unique_ptr<Ui::frmCustomer> ui;
    PersonFields* m_person;
    LawGrid* m_laws;
    CustomerDraft m_draft; // as it was loaded, with the charts as they stand
};
