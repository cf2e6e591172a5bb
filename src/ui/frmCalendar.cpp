#include "ui/frmCalendar.h"

#include "base/Seams.h"
#include "ui/Style.h"
#include "ui_frmCalendar.h"

#include <QBoxLayout>
#include <QTextCharFormat>

namespace {

// The year comes first in Japanese; the calendar has it behind the month.
void putYearFirst(const QCalendarWidget& calendar) {
    auto* bar = calendar.findChild<QWidget*>(u"qt_calendar_navigationbar"_qs);
    auto* month = calendar.findChild<QWidget*>(u"qt_calendar_monthbutton"_qs);
    auto* year = calendar.findChild<QWidget*>(u"qt_calendar_yearbutton"_qs);
    auto* line = bar ? qobject_cast<QBoxLayout*>(bar->layout()) : nullptr;
    if (!line || !month || !year) return;
    line->removeWidget(month);
    line->insertWidget(line->indexOf(year) + 1, month);
}

} // namespace

frmCalendar::frmCalendar(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCalendar>()) {
    ui->setupUi(this);
    putYearFirst(*ui->calDate);
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
