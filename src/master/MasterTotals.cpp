#include "master/MasterTotals.h"

#include "base/Numbers.h"
#include "db/clsSysSettingManager.h"
#include "price/basPriceLookup.h"

double masterTaxRate() { return Val(gSysSettingManager.value(Setting::Tax)); }

MasterTotals masterTotals(qint32 small, qint32 middle, qint32 big, double rate) {
    qint32 make = 0, parts = 0;
    MasterTotals totals;
    CalcAmounts(big, 0, 100, 100, 100, rate, make, parts, totals.tax, totals.big);
    totals.small = ToInt(double(small) + totals.tax);
    totals.middle = ToInt(double(middle) + totals.tax);
    return totals;
}

MasterTotals masterTotals(const clsMstEstimate& stored, double rate) {
    return masterTotals(ToInt(Val(stored.PriceSmall)), ToInt(Val(stored.PriceMiddle)), ToInt(Val(stored.PriceBig)),
                        rate);
}
