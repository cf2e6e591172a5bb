#pragma once

#include "reports/basReportUtil.h"
#include "reports/engine/ReportOutput.h"
#include "ui/Screen.h"

#include <memory>

namespace Ui {
class frmPrintAdjust;
}

// Where each report stands on its paper: an offset for every printer, tried on a ruler page, and a scan of the paper
// form behind the sample. What is entered counts from the next print on; there is nothing to save.
class frmPrintAdjust : public Screen {
    Q_OBJECT

public:
    explicit frmPrintAdjust(QWidget* parent = nullptr);
    ~frmPrintAdjust() override;

protected:
    void load() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString reportName() const;
    QString printer() const; // empty: any
    ReportOffset offset() const;
    void fillReports();
    void showRow(int row);
    void showReport();
    void showSample();
    void applyZoom();
    void takeOffset();
    void chooseUnderlay();
    void takeUnderlay(const QString& path);
    void printRuler();

    const std::unique_ptr<Ui::frmPrintAdjust> ui;
    ReportJob m_sample;     // of the report that is shown
    bool m_showing = false; // while the program fills the fields
};
