#pragma once

#include <QDate>
#include <QString>

// Process-wide values, set during start-up and kept until shutdown.
extern QDate gSysDate;     // today, or the `Misc`/`SYSDATE` override
extern QString gSysYear;   // four digits
extern QString gSysMonth;  // two digits
extern QString gSysDay;    // two digits
extern qint32 gUserNo;     // the system has no login: always 1
extern QString gPriceYear; // setting No 20, read at start-up

// Takes the override when it is a date, today otherwise, and sets the three texts with it.
void setSystemDate(const QString& sysDateOverride);
// Whether the system date is an override in force, which the operator answers for.
bool isSystemDateGiven();
// Takes the day that the clock has come to since, unless there is an override.
void followClock();
// "2.2.6", and as "020206" for the database's version row.
QString programVersion();
QString programVersionCode();
