#include "base/Application.h"

#include "base/Dates.h"
#include "base/Seams.h"

QDate gSysDate;
QString gSysYear;
QString gSysMonth;
QString gSysDay;
qint32 gUserNo = 1;
QString gPriceYear;

namespace {

bool overridden = false;

void setDay(const QDate& day) {
    gSysDate = day;
    gSysYear = gSysDate.toString(u"yyyy"_qs);
    gSysMonth = gSysDate.toString(u"MM"_qs);
    gSysDay = gSysDate.toString(u"dd"_qs);
}

} // namespace

void setSystemDate(const QString& sysDateOverride) {
    const auto configured = parseDate(sysDateOverride);
    overridden = configured.has_value();
    setDay(configured ? configured->date() : currentDate());
}

bool isSystemDateGiven() { return overridden; }

void followClock() {
    if (!overridden && currentDate() != gSysDate) setDay(currentDate());
}

QString programVersion() { return u"%1.%2.%3"_qs.arg(HALVANE_MAJOR).arg(HALVANE_MINOR).arg(HALVANE_REVISION); }

QString programVersionCode() {
    const auto part = [](int number) { return QString::number(number).rightJustified(2, u'0'); };
    return part(HALVANE_MAJOR) + part(HALVANE_MINOR) + part(HALVANE_REVISION);
}
