#pragma once

#include "estimates/EstimateListFilter.h"
#include "reports/engine/PrintingScreen.h"

#include <QSet>

#include <optional>

namespace Ui {
class frmCsEstimateList;
}

class KeyedList;

// The way into the stored estimates: a page of conditions, the customers found, their estimates. From the menu
// (`OpenMode` 1) it opens estimates in the editor; otherwise it is a chooser, which closes with the chosen estimate in
// `EstId` and the mode for it in `EditMode`, or with `Cancel`. `DetailMode` 1 starts with the estimates of the person
// named by `CustName1` and `CustName2`.
class frmCsEstimateList : public PrintingScreen {
    Q_OBJECT

public:
    explicit frmCsEstimateList(QWidget* parent = nullptr);
    ~frmCsEstimateList() override;

    // Whether one is open.
    static bool isOpen() { return s_open > 0; }

    // The list as a chooser of one estimate, of a person's when names are given; nothing when it was cancelled.
    struct Choice {
        QString EstId;
        qint16 EditMode;
    };
    static std::optional<Choice> choose(QWidget* parent);
    static std::optional<Choice> chooseOf(QWidget* parent, const QString& name1, const QString& name2);

    static constexpr qint16 fromMenu = 1;
    qint16 OpenMode = 0;
    qint16 DetailMode = 0;
    QString CustName1, CustName2;

    QString EstId;
    qint16 EditMode = 0;
    bool Cancel = true;

protected:
    void load() override;

private:
    enum Page { Conditions, Customers, Estimates };

    static std::optional<Choice> open(QWidget* parent, const std::function<void(frmCsEstimateList&)>& prepare);

    void connectSearch();
    void connectLists();
    void connectCommands();

    // --- pages ---
    void turnTo(int page);
    void pageTurned(int page);
    void showCustomers();
    void showEstimates();
    void forgetOtherTicks();
    CustomerKey customerAt(int row) const;
    void noteTick(int row);
    void openCustomer(int row);
    void showNarrowing();
    void showWhatIsAskedFor();

    // --- the list as it is asked for ---
    SqlTerm condition() const;
    SqlTerm sorting() const;
    void sortBy(int column);

    // --- commands ---
    void openRow(qint16 mode);
    void edit(const QString& id, qint16 mode, int row);
    void writeCsv();
    void print(int member);

    std::unique_ptr<Ui::frmCsEstimateList> ui;
    KeyedList* m_customers;
    KeyedList* m_estimates;
    SqlTerm m_searched;     // the condition that the lists show
    QSet<QString> m_ticked; // keys of its customers
    CustomerKey m_opened;   // the one of them whose estimates are looked at
    QString m_openedName;

    QString m_exclusions; // 法別 names that the list without them leaves out

    static int s_open;
};
