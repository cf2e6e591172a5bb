#pragma once

#include "ui/Screen.h"

namespace Ui {
class frmCsPaySearch;
}

// What is not paid yet, searched by ordering party, completion date and status. The orders found are shown above it.
class frmCsPaySearch : public Screen {
    Q_OBJECT

public:
    explicit frmCsPaySearch(QWidget* parent = nullptr);
    ~frmCsPaySearch() override;

protected:
    void load() override;

private:
    void search();

    std::unique_ptr<Ui::frmCsPaySearch> ui;
};
