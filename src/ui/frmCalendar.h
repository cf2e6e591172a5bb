#pragma once

#include "ui/Screen.h"

#include <QDate>

namespace Ui {
class frmCalendar;
}

// A month to pick a day from. `SetDate` is the day it opens at; with `Selected` the day taken is in `GetDate`.
class frmCalendar : public Screen {
    Q_OBJECT

public:
    explicit frmCalendar(QWidget* parent = nullptr);
    ~frmCalendar() override;

    QDate SetDate;
    QDate GetDate;
    bool Selected = false;

protected:
    void load() override;

private:
    void take(const QDate& day);

    std::unique_ptr<Ui::frmCalendar> ui;
};
