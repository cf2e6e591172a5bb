#include "ui/frmCalendar.h"

#include "base/Seams.h"
#include "ui/Style.h"
#include "ui_frmCalendar.h"

#include <QTextCharFormat>

frmCalendar::frmCalendar(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCalendar>()) {
    ui->setupUi(this);
    QTextCharFormat saturday;
    saturday.setForeground(Style::accent);
    ui->calDate->setWeekdayTextFormat(Qt::Saturday, saturday);
    onClick(ui->cbSelect, [this] { take(ui->calDate->selectedDate()); });
    onClick(ui->cbToday, [this] { ui->calDate->setSelectedDate(currentDate()); });
    onClick(ui->cbClose, [this] { close(); });
    connect(ui->calDate, &QCalendarWidget::activated, this, &frmCalendar::take);
}

frmCalendar::~frmCalendar() = default;

void frmCalendar::load() {
    ui->calDate->setSelectedDate(SetDate.isValid() ? SetDate : currentDate());
    ui->calDate->setFocus();
}

void frmCalendar::take(const QDate& day) {
    GetDate = day;
    Selected = true;
    close();
}
