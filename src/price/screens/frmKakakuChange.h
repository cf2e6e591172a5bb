#pragma once

#include "operations/PriceComparison.h"
#include "reports/engine/PrintingScreen.h"

namespace Ui {
class frmKakakuChange;
}

class ChoiceBox;
class Grid;

// Lays two price lists side by side: what is new, gone or costs otherwise, and which master estimates and open orders
// would cost otherwise. Nothing is changed by it.
class frmKakakuChange : public PrintingScreen {
    Q_OBJECT

public:
    explicit frmKakakuChange(QWidget* parent = nullptr);
    ~frmKakakuChange() override;

    // What is compared with the list in force when the screen opens; nothing while it is that list itself. The files of
    // a new year can be chosen only when they stand here.
    PriceList After;

protected:
    void load() override;

private:
    enum Page { Prices, Masters, Orders };

    void fillChoices();
    PriceList chosen(const ChoiceBox* box) const;
    void compare();
    bool mayTakeFiles();
    void take(const PriceComparison& found);
    void showCount();
    void tellFaults() const;

    Page page() const;
    Grid* grid(int page) const;
    qsizetype rowsOf(int page) const;
    QStringList cells(int page, qsizetype place) const;
    void print(PrintTo to);
    void writeCsv();

    std::unique_ptr<Ui::frmKakakuChange> ui;
    PriceComparison m_found;
    QString m_lists; // the two that were compared, in words
    bool m_filesAreTaken = false;
};
