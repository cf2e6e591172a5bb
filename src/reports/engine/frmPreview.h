#pragma once

#include "reports/engine/ReportOutput.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPreview;
}

// The modal preview: leaf and zoom through the pages, print them, save them as PDF.
class frmPreview : public QDialog {
    Q_OBJECT
public:
    explicit frmPreview(ReportJob job, QWidget* parent = nullptr);
    ~frmPreview() override;

    int pageNumber() const { return m_page; } // from 1

    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void addShortcuts();
    void showPage(int page);
    void stepZoom(int steps);
    void applyZoom();
    void print();
    void savePdf();

    std::unique_ptr<Ui::frmPreview> ui;
    ReportJob m_job;
    bool m_printing = false;
    int m_page = 1;
};
