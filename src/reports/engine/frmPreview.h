#pragma once

#include "reports/engine/PreviewPapers.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPreview;
}

// The modal preview of all papers of a command: leaf and zoom through the pages, go to a paper, print them, save them
// as one PDF. Its size and zoom are kept for the next one.
class frmPreview : public QDialog {
    Q_OBJECT
public:
    explicit frmPreview(const QList<ReportJob>& jobs, QWidget* parent = nullptr);
    ~frmPreview() override;

    int pageNumber() const { return m_page; } // from 1

    void reject() override;
    void done(int result) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectCommands();
    void addShortcuts();
    void listPapers();
    void showPage(int page);
    void showUnderlay();
    void goToTypedPage();
    void turnView(int views);
    void turnWheel(int angle);
    void stepZoom(int steps);
    void applyZoom();
    void restoreZoom();
    void print(const QList<ReportJob>& jobs);
    void savePdf();

    std::unique_ptr<Ui::frmPreview> ui;
    PreviewPapers m_papers;
    bool m_printing = false;
    int m_page = 1;
    int m_wheel = 0; // what was turned since the last step of the zoom
    QString m_saved; // the PDF that was written last
};
