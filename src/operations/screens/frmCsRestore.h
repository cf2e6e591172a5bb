#pragma once

#include "operations/screens/OfficeClosing.h"
#include "ui/Screen.h"

namespace Ui {
class frmCsRestore;
}

// Lists the backups of a folder, puts a chosen one back, or deletes it.
class frmCsRestore : public Screen {
    Q_OBJECT

public:
    explicit frmCsRestore(QWidget* parent = nullptr);
    ~frmCsRestore() override;

    OfficeSwitch Office;

protected:
    void load() override;

private:
    void fillList();
    // The stamp of the chosen backup; empty when there is none, which was told.
    QString chosenStamp() const;
    void restore();
    void remove();

    std::unique_ptr<Ui::frmCsRestore> ui;
};
