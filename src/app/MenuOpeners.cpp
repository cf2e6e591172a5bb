#include "app/MenuOpeners.h"

#include "app/basMain.h"
#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "master/screens/frmMsEstimateList.h"
#include "operations/screens/AmountCheck.h"
#include "operations/screens/frmCsBackup.h"
#include "operations/screens/frmCsRestore.h"
#include "operations/screens/frmPrintAdjust.h"
#include "operations/screens/frmSystem.h"
#include "payments/screens/frmCsPaidSearch.h"
#include "payments/screens/frmCsPaySearch.h"
#include "payments/screens/frmCsUrikakeSystem.h"
#include "payments/screens/frmStMoneyEndSearch.h"
#include "payments/screens/frmStOrderSales.h"
#include "payments/screens/frmStWorkPlan.h"
#include "price/screens/frmKakakuList.h"
#include "price/screens/frmKakakuUpdate.h"
#include "reference/screens/CodeTableScreen.h"
#include "reference/screens/frmZipUpdate.h"

namespace {

// What a button without further words does.
template <class S> MenuOpener opener() {
    return [](QWidget* menu) { openScreen<S>(menu); };
}

// A screen that closes the office for its work and opens it again.
template <class S> MenuOpener officeOpener() {
    return [](QWidget* menu) {
        openScreen<S>(
            menu,
            [](S& screen) {
                screen.Office = {TerminateApp, InitializeApp};
            },
            [](S&) {});
    };
}

} // namespace

const QHash<QString, MenuOpener>& menuOpeners() {
    static const QHash<QString, MenuOpener> table{
        {u"cbCsEstimate"_qs, opener<frmCsEstimate>()},
        {u"cbCsEstimateList"_qs,
         [](QWidget* menu) {
             openScreen<frmCsEstimateList>(
                 menu, [](frmCsEstimateList& list) { list.OpenMode = frmCsEstimateList::fromMenu; },
                 [](frmCsEstimateList&) {});
         }},
        {u"cbMsEstimateList"_qs, opener<frmMsEstimateList>()},
        {u"cbCsPayment"_qs, opener<frmCsPaySearch>()},
        {u"cbPaidSearch"_qs, opener<frmCsPaidSearch>()},
        {u"cbStWorkPlan"_qs, opener<frmStWorkPlan>()},
        {u"cbStOrderSales"_qs, opener<frmStOrderSales>()},
        {u"cbStNyukin"_qs, opener<frmStMoneyEndSearch>()},
        {u"cmdUrikake"_qs, opener<frmCsUrikakeSystem>()},
        {u"cbCustomerList"_qs, opener<frmCustomerList>()},
        {u"cbInsurance"_qs, opener<frmInsuranceData>()},
        {u"cbOrder"_qs, opener<frmOrderData>()},
        {u"cbClaim"_qs, opener<frmClaimData>()},
        {u"cbPrefecture"_qs, opener<frmPrefectureData>()},
        {u"cbDoctor"_qs, opener<frmDoctorData>()},
        {u"cbCharge"_qs, opener<frmChargeData>()},
        {u"cbIns"_qs, opener<frmIns>()},
        {u"cbSystem"_qs, opener<frmSystem>()},
        {u"cbZipUpdate"_qs, opener<frmZipUpdate>()},
        {u"cbBackup"_qs, officeOpener<frmCsBackup>()},
        {u"cbRestore"_qs, officeOpener<frmCsRestore>()},
        {u"cbSearchAbnormal"_qs, AmountCheck::run},
        {u"cmdEquip"_qs, opener<frmCsEquipment>()},
        {u"cbPrintAdjust"_qs, opener<frmPrintAdjust>()},
        {u"cbKakaku"_qs, opener<frmKakakuList>()},
        {u"cbMsKakaku"_qs, opener<frmKakakuUpdate>()},
    };
    return table;
}

void openEstimate(QWidget* menu, const QString& EstId) {
    openScreen<frmCsEstimate>(
        menu,
        [&](frmCsEstimate& editor) {
            editor.EstId = EstId;
            editor.EditMode = frmCsEstimate::Edit;
        },
        [](frmCsEstimate&) {});
}
