#pragma once

#include "ui/ListScreen.h"

namespace Ui {
class frmCsPaidSearch;
}

// Writes the paid orders of a period as a file of sales for the accounting.
class frmCsPaidSearch : public ListScreen {
    Q_OBJECT

public:
    explicit frmCsPaidSearch(QWidget* parent = nullptr);
    ~frmCsPaidSearch() override;

protected:
    void load() override;

private:
    void search();

    std::unique_ptr<Ui::frmCsPaidSearch> ui;
};
