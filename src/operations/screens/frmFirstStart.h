#pragma once

#include "operations/NewOffice.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmFirstStart;
}

class QAbstractButton;

// What stands before the first start of an office: its name, where its data will be, or a look at the sample. It is no
// screen like the others, as there is no office yet whose INI file could remember anything.
class frmFirstStart : public QDialog {
    Q_OBJECT

public:
    // `sampleFolder` is that of the invented office.
    frmFirstStart(const QString& folder, const QString& sampleFolder, QWidget* parent = nullptr);
    ~frmFirstStart() override;

    // The folder of the office to start; empty when the operator left.
    QString chosenFolder() const { return m_chosen; }

private:
    void onClick(QAbstractButton* button, void (frmFirstStart::*work)());
    void showPlace();
    void chooseFolder();
    void begin();
    void lookAtSample();
    bool settleFields();
    NewOffice entered() const;
    void make(const NewOffice& office);

    const std::unique_ptr<Ui::frmFirstStart> ui;
    QString m_folder, m_sampleFolder, m_chosen;
};
