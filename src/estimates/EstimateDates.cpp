#include "estimates/EstimateDates.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basMessage.h"

namespace {

// Earlier than this a date field counts as empty.
const QDate firstDate(100, 1, 1);

constexpr int lastYear = 9999;

} // namespace

bool isDate(const QString& text) {
    const auto date = parseDate(text);
    return date && date->date() >= firstDate;
}

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
        if (!isDate(text)) return {};
        latest = qMax(latest, parseDate(text)->date());
    }
    return latest == firstDate ? QString() : dateText(latest);
}

void completeFromClaims(clsCsEstimate& estimate, const QList<clsCsEstAsk>& claims) {
    QStringList asked, paid;
    for (const clsCsEstAsk& claim : claims) {
        asked << claim.AskPrtDate;
        paid << claim.PayDate;
    }
    if (!isDate(estimate.AskFinDate)) estimate.AskFinDate = latestOfAll(asked);
    if (!isDate(estimate.PayInFinDate)) estimate.PayInFinDate = latestOfAll(paid);
}

QString plannedDate(const QString& from, const QString& days) {
    if (!isDate(from) || days.trimmed().isEmpty()) return {};
    return dateText(parseDate(from)->date().addDays(ToInt(days)));
}

QString lifeEndDate(const QString& years) {
    if (years.trimmed().isEmpty()) return {};
    const QDate end = gSysDate.addYears(ToInt(Val(years)));
    if (!end.isValid() || end.year() < 1 || end.year() > lastYear)
        throw AppError(GetMessageText(Message::Overflow, u"耐用年数"_qs), u"lifeEndDate"_qs);
    return dateText(end);
}
