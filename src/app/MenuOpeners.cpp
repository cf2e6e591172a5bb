#include "app/MenuOpeners.h"

#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "master/screens/frmMsEstimateList.h"
#include "payments/screens/frmCsPaidSearch.h"
#include "payments/screens/frmCsPaySearch.h"
#include "payments/screens/frmCsUrikakeSystem.h"
#include "payments/screens/frmStMoneyEndSearch.h"
#include "payments/screens/frmStOrderSales.h"
#include "payments/screens/frmStWorkPlan.h"

const QHash<QString, MenuOpener>& menuOpeners() {
    static const QHash<QString, MenuOpener> table{
        {u"cbCsEstimate"_qs, [](QWidget* menu) { openScreen<frmCsEstimate>(menu); }},
        {u"cbCsEstimateList"_qs,
         [](QWidget* menu) {
             openScreen<frmCsEstimateList>(
                 menu, [](frmCsEstimateList& list) { list.OpenMode = frmCsEstimateList::fromMenu; },
                 [](frmCsEstimateList&) {});
         }},
        {u"cbMsEstimateList"_qs, [](QWidget* menu) { openScreen<frmMsEstimateList>(menu); }},
        {u"cbCsPayment"_qs, [](QWidget* menu) { openScreen<frmCsPaySearch>(menu); }},
        {u"cbPaidSearch"_qs, [](QWidget* menu) { openScreen<frmCsPaidSearch>(menu); }},
        {u"cbStWorkPlan"_qs, [](QWidget* menu) { openScreen<frmStWorkPlan>(menu); }},
        {u"cbStOrderSales"_qs, [](QWidget* menu) { openScreen<frmStOrderSales>(menu); }},
        {u"cbStNyukin"_qs, [](QWidget* menu) { openScreen<frmStMoneyEndSearch>(menu); }},
        {u"cmdUrikake"_qs, [](QWidget* menu) { openScreen<frmCsUrikakeSystem>(menu); }},
        {u"cbCustomerList"_qs, [](QWidget* menu) { openScreen<frmCustomerList>(menu); }},
    };
    return table;
}
