#include "app/MenuOpeners.h"

#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "master/screens/frmMsEstimateList.h"

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
        {u"cbCustomerList"_qs, [](QWidget* menu) { openScreen<frmCustomerList>(menu); }},
    };
    return table;
}
