#include "HalvaneTest.h"

#include "ui/Style.h"
#include "ui/frmCalendar.h"

#include <QToolButton>

class frmCalendarTest : public QObject {
    Q_OBJECT

private slots:
    void theYearStandsBeforeTheMonth() {
        Style::apply(*qApp);
        frmCalendar calendar;
        calendar.show();
        QCoreApplication::processEvents();
        const auto* year = calendar.findChild<QToolButton*>(u"qt_calendar_yearbutton"_qs);
        const auto* month = calendar.findChild<QToolButton*>(u"qt_calendar_monthbutton"_qs);
        QVERIFY(year && month);
        QVERIFY(year->isVisible() && month->isVisible());
        QVERIFY(year->geometry().right() < month->geometry().left());
    }
};

HALVANE_TEST(frmCalendarTest)
#include "frmCalendarTest.moc"
