#pragma once

#include "customers/CustomerSave.h"
#include "ui/Screen.h"

namespace Ui {
class frmCustomer;
}

class LawGrid;
class PersonFields;

// Edits one customer branch with its insurances and charts. Set `EditMode`, and but for a new customer `CustId` and
// `CustSubId`; afterwards `Updated` tells that something was written, and the two name what. A branch registered beside
// a stored one comes back as an addition.
class frmCustomer : public Screen {
    Q_OBJECT

public:
    enum Mode : qint16 { Add = 0, Edit = 1, Delete = 2 };

    explicit frmCustomer(QWidget* parent = nullptr);
    ~frmCustomer() override;

    qint16 EditMode = Add;
    QString CustId, CustSubId;
    bool Updated = false;

protected:
    void load() override;
    bool queryUnload() override;

private:
    void connectCommands();
    void setMode();
    void showStored();
    void showDraft();
    void showCharts();
    CustomerDraft collect() const;
    bool isEdited() const;
    void clearEdited();

    CustomerChart* currentChart();
    void viewChart();
    void removeChart();

    bool save(CustomerSaveAs as);
    void execute(CustomerSaveAs as);
    void cancel();
    void removeCustomer();

    std::unique_ptr<Ui::frmCustomer> ui;
    PersonFields* m_person;
    LawGrid* m_laws;
    CustomerDraft m_draft; // as it was loaded, with the charts as they stand
    bool m_edited = false; // beside the fields: laws and charts
};
