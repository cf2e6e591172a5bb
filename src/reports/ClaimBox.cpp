#include "reports/ClaimBox.h"

#include "base/Numbers.h"

#include <algorithm>

namespace {

const QString selfPay = u"自己負担"_qs;

bool isLaw(const clsCsEstAsk& claim, int number) { return ToInt(Val(claim.InsNo)) == number; }

// 児童福祉 and 身体障害者 are shown even where insurers are turned off.
bool isAlwaysShown(const clsCsEstAsk& claim) { return isLaw(claim, 13) || isLaw(claim, 11); }

void add(ClaimBox::Place& place, const QString& name, Money amount) {
    place.name = name;
    place.amount = place.amount.value_or(Money()) + amount;
}

} // namespace

ClaimBox claimBox(const QList<clsCsEstAsk>& claims, const InsNames& names, bool insurersOff) {
    const bool anyAlwaysShown = std::any_of(claims.begin(), claims.end(), isAlwaysShown);
    ClaimBox box;
    box.places.at(3).name = selfPay;
    size_t next = 0;
    for (const clsCsEstAsk& claim : claims) {
        const bool joins = !insurersOff || isAlwaysShown(claim) || (anyAlwaysShown && isLaw(claim, 99));
        if (!joins) continue;
        const QString name = names.value(claim.InsNo);
        if (name == selfPay)
            add(box.places.at(3), name, Money::leadingNumber(claim.AskPrice));
        else if (next < 3)
            add(box.places.at(next++), name, Money::leadingNumber(claim.AskPrice));
    }
    if (insurersOff && box.places.at(3).amount.value_or(Money()) == Money()) box.places.at(3) = {};
    return box;
}

QString receiptNumberSuffix(const clsCsEstAsk& claim, const QList<clsCsEstAsk>& claims, const InsNames& names) {
    const auto paid = std::count_if(claims.begin(), claims.end(), [](const clsCsEstAsk& each) {
        return Money::leadingNumber(each.PayPrice) > Money();
    });
    if (paid < 2) return {};
    const QString name = names.value(claim.InsNo);
    return u'-' + (name == selfPay ? u"自費"_qs : name);
}
