#include "estimates/EstimateDates.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/Numbers.h"

namespace {

// Earlier than this a date field counts as empty.
const QDate firstDate(100, 1, 1);

bool isDate(const QString& text) {
    const auto date = parseDate(text);
    return date && date->date() >= firstDate;
}

} // namespace

const QList<QString clsCsEstimate::*>& workDates() {
    using Estimate = clsCsEstimate;
    static const QList<QString Estimate::*> dates{
        &Estimate::RecvDate,      &Estimate::EstDate,       &Estimate::TickRsvDate,  &Estimate::PickPtnDate,
        &Estimate::TmpSetPlnDate, &Estimate::TmpSetFinDate, &Estimate::CmpltPlnDate, &Estimate::CmpltFinDate,
        &Estimate::DelvPlnDate,   &Estimate::DelvFinDate,   &Estimate::AskPlnDate,   &Estimate::AskFinDate,
        &Estimate::PayInPlnDate,  &Estimate::PayInFinDate};
    return dates;
}

QString statusOf(const clsCsEstimate& estimate, const QList<clsCsEstAsk>& claims) {
    const QList<std::pair<QString, QString>> stages{
        {estimate.RecvDate, WorkStatus::Reception},    {estimate.EstDate, WorkStatus::Estimate},
        {estimate.TickRsvDate, WorkStatus::Voucher},   {estimate.PickPtnDate, WorkStatus::Casting},
        {estimate.TmpSetFinDate, WorkStatus::Fitting}, {estimate.CmpltFinDate, WorkStatus::Completion},
        {estimate.DelvFinDate, WorkStatus::Delivery},
    };
    QString status = WorkStatus::Nothing;
    for (const auto& [date, number] : stages)
        if (isDate(date)) status = number;
    const bool paid = !claims.isEmpty() && std::all_of(claims.begin(), claims.end(),
                                                       [](const clsCsEstAsk& claim) { return isDate(claim.PayDate); });
    return paid ? WorkStatus::Payment : status;
}

QString latestOfAll(const QStringList& dates) {
    QDate latest = firstDate;
    for (const QString& text : dates) {
        const auto date = parseDate(text);
        if (!date) return {};
        latest = qMax(latest, date->date());
    }
    return latest == firstDate ? QString() : dateText(latest);
}

void completeFromClaims(clsCsEstimate& estimate, const QList<clsCsEstAsk>& claims) {
    QStringList asked, paid;
    for (const clsCsEstAsk& claim : claims) {
        asked << claim.AskPrtDate;
        paid << claim.PayDate;
    }
    if (estimate.AskFinDate.isEmpty()) estimate.AskFinDate = latestOfAll(asked);
    if (estimate.PayInFinDate.isEmpty()) estimate.PayInFinDate = latestOfAll(paid);
}

QString plannedDate(const QString& from, const QString& days) {
    const auto date = parseDate(from);
    if (!date || days.trimmed().isEmpty()) return {};
    return dateText(date->date().addDays(ToInt(days)));
}

QString lifeEndDate(const QString& years) {
    if (years.trimmed().isEmpty()) return {};
    return dateText(gSysDate.addYears(ToInt(Val(years))));
}
