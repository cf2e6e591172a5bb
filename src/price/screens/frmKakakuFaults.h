#pragma once

#include "price/PriceFiles.h"
#include "ui/Screen.h"

namespace Ui {
class frmKakakuFaults;
}

// Shows what is wrong in the files of a revision before anything starts, and asks whether to go on all the same.
class frmKakakuFaults : public Screen {
    Q_OBJECT

public:
    explicit frmKakakuFaults(QWidget* parent = nullptr);
    ~frmKakakuFaults() override;

    // Looks through the files of a folder. True when there is nothing wrong in them, or the operator goes on. `pause`
    // is called after each line.
    static bool mayTake(QWidget* parent, const QString& folder, const std::function<void()>& pause = {});

    QList<PriceFiles::Fault> Faults;
    bool GoOn = false;

protected:
    void load() override;

private:
    std::unique_ptr<Ui::frmKakakuFaults> ui;
};
