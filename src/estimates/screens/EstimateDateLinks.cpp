#include "estimates/screens/EstimateDateLinks.h"

#include "base/basMessage.h"
#include "estimates/screens/CsEstimatePrintPage.h"
#include "estimates/screens/CsEstimateSchedulePage.h"
#include "estimates/screens/DateMirrors.h"
#include "ui/DateField.h"

void EstimateDateLinks::connect(const CsEstimateBasicPage::QuickDates& quick, CsEstimateSchedulePage& schedule,
                                CsEstimatePrintPage& print, const std::function<bool()>& isRefilling) {
    const auto date = [&](QString clsCsEstimate::*member) { return schedule.dateField(member); };
    auto* mirrors = new DateMirrors({{quick.pickPtn, date(&clsCsEstimate::PickPtnDate)},
                                     {quick.delvFin, date(&clsCsEstimate::DelvFinDate)},
                                     {quick.payPrt, print.receiptDate(0)}},
                                    &schedule);
    // A delivery date typed beside the customer fills the others as well.
    const QList<DateField*> filled{date(&clsCsEstimate::DelvPlnDate), date(&clsCsEstimate::CmpltFinDate)};
    QObject::connect(mirrors, &DateMirrors::typed, &schedule, [=](const DateField* field) {
        if (isRefilling() || field != quick.delvFin) return;
        for (DateField* other : filled)
            if (other->value().isEmpty()) other->setValue(field->value());
    });
    DateField* const casting = date(&clsCsEstimate::PickPtnDate);
    QObject::connect(casting, &DateField::valueSettled, &schedule, [=, &schedule] {
        if (!isRefilling()) guarded([&] { schedule.planFromCasting(); });
    });
    DateField* const delivered = date(&clsCsEstimate::DelvFinDate);
    DateField* const planned = date(&clsCsEstimate::DelvPlnDate);
    for (DateField* field : {casting, delivered, planned})
        QObject::connect(field, &DateField::valueSettled, &print, [=, &print] {
            const QString delivery = delivered->value();
            print.showOpinionDates(casting->value(), delivery.isEmpty() ? planned->value() : delivery);
        });
}
