#pragma once

#include "operations/PriceRevision.h"
#include "ui/Screen.h"

#include <QElapsedTimer>

#include <optional>

namespace Ui {
class frmKakakuUpdate;
}

class QLabel;
class QProgressBar;

// Takes over the price list of a new year, or goes back to one that was kept. While it runs the screen shows how far
// it is, and does not close.
class frmKakakuUpdate : public Screen {
    Q_OBJECT

public:
    explicit frmKakakuUpdate(QWidget* parent = nullptr);
    ~frmKakakuUpdate() override;

protected:
    void load() override;
    bool queryUnload() override { return !m_busy; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Choice { Floppy, CdRom, Folder, Download, KeptYear };

    struct Progress {
        QProgressBar* bar;
        QLabel* count;
    };

    int choice() const;
    void showChoice();
    void fillYears();
    void chooseFolder();
    std::optional<QString> source();
    std::optional<PriceRevision::Request> request();
    void showChanges();
    void revise();
    void run();
    void setBusy(bool busy);
    void clearProgress();
    void tell(PriceRevision::Part part, qint64 count, qint64 all);
    void pause();

    std::unique_ptr<Ui::frmKakakuUpdate> ui;
    QList<Progress> m_progress; // one for each part
    bool m_busy = false;
    QElapsedTimer m_sincePause;
};
