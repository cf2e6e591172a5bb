#pragma once

#include "operations/screens/OfficeClosing.h"
#include "ui/Screen.h"

namespace Ui {
class frmCsBackup;
}

// Makes a backup into a folder under the stamp of the moment when the screen was opened, so that it makes one.
class frmCsBackup : public Screen {
    Q_OBJECT

public:
    explicit frmCsBackup(QWidget* parent = nullptr);
    ~frmCsBackup() override;

    OfficeSwitch Office;

protected:
    void load() override;

private:
    void run();

    std::unique_ptr<Ui::frmCsBackup> ui;
    QString m_stamp;
};
