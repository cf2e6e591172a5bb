#pragma once

#include "customers/clsChartManager.h"
#include "reference/ReferenceRecords.h"
#include "ui/EditScreen.h"
#include "ui/NewNames.h"

namespace Ui {
class frmCustomerChart;
}

// Edits one chart for its caller, who stores it: nothing is written here. `Chart` goes in and comes back; `Order` and
// `Doctor` are its ordering party and doctor as entered, without a number when they are not registered. The code of an
// `Order` that is not registered yet goes in with its chart. `Updated` tells that the chart was taken over, or in mode
// 2 that it is to be deleted.
class frmCustomerChart : public EditScreen {
    Q_OBJECT

public:
    explicit frmCustomerChart(QWidget* parent = nullptr);
    ~frmCustomerChart() override;

    clsChart Chart;
    clsOrder Order;
    clsDoctor Doctor;

protected:
    void fillLists() override;
    QWidget* firstField() const override;
    void showStored() override;
    bool save() override;

private:
    void fillDoctors();
    void takeOrderOfCode();
    void selectOrder();
    bool isCodeOfAnother();
    clsOrder enteredOrder();
    clsDoctor enteredDoctor(const QString& orderNo);

    std::unique_ptr<Ui::frmCustomerChart> ui;
    NewNames m_newNames;
    bool m_showing = false; // the program fills the fields
};
