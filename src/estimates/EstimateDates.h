#pragma once

#include "estimates/EstimateRecords.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

// What follows from the work dates of an estimate.

namespace WorkStatus {
inline const QString Nothing = u"9"_qs;
inline const QString Reception = u"8"_qs;
inline const QString Estimate = u"7"_qs;
inline const QString Voucher = u"6"_qs;
inline const QString Casting = u"5"_qs;
inline const QString Fitting = u"4"_qs;
inline const QString Completion = u"3"_qs;
inline const QString Delivery = u"2"_qs;
inline const QString Payment = u"1"_qs;
inline const QString Uncollected = u"99"_qs;
} // namespace WorkStatus

// Whether a text holds a date that counts; one before the year 100 is none.
bool isDate(const QString& text);

// The members of the planned and the actual dates of the work.
const QList<QString clsCsEstimate::*>& workDates();

// The number of the last stage that has its date; a gap before it does not matter. Payment needs at least one claim
// line, and a payment date on every one.
QString statusOf(const clsCsEstimate& estimate, const QList<clsCsEstAsk>& claims);

// The latest of the dates when each one is there, as "yyyy/mm/dd"; else empty.
QString latestOfAll(const QStringList& dates);

// Completes 請求完了日 and 入金完了日 from the claim lines where they are empty.
void completeFromClaims(clsCsEstimate& estimate, const QList<clsCsEstAsk>& claims);

// A date so many days on; empty when the date is none or the days are empty.
QString plannedDate(const QString& from, const QString& days);

// The date so many years after the application date, as "yyyy/mm/dd"; empty for an empty number. Raises an error that
// names the field when there is no such date.
QString lifeEndDate(const QString& years);
