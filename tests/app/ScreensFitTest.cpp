#include "HalvaneTest.h"
#include "support/OpenOffice.h"

#include "customers/screens/frmCustomer.h"
#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "master/screens/frmMsEstimate.h"
#include "master/screens/frmMsEstimateList.h"
#include "master/screens/frmMstEstimateDialog.h"
#include "operations/screens/frmPrintAdjust.h"
#include "payments/screens/frmCsPaidSearch.h"
#include "payments/screens/frmCsPayList.h"
#include "payments/screens/frmCsPaySearch.h"
#include "payments/screens/frmCsUrikakeList.h"
#include "payments/screens/frmCsUrikakeSystem.h"
#include "payments/screens/frmStMoneyEndList.h"
#include "payments/screens/frmStMoneyEndSearch.h"
#include "payments/screens/frmStOrderSales.h"
#include "payments/screens/frmStWorkPlan.h"
#include "price/screens/frmKakakuChange.h"
#include "price/screens/frmKakakuUpdate.h"
#include "reference/screens/CodeTableScreen.h"
#include "ui/Grid.h"

#include <QTabWidget>

namespace {

// A display of 1280 × 768 with the title of a window and the task bar taken off.
constexpr QSize smallest(1280, 697);

} // namespace

// The main screens on the displays of an office.
class ScreensFitTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<OpenOffice> m_office;

    template <class Form> static void checkFits() {
        Form form;
        QVERIFY(form.Load());
        form.show();
        QCoreApplication::processEvents();
        const QSize least = form.minimumSizeHint();
        const QString told = u"%1 is %2 x %3"_qs.arg(form.objectName()).arg(least.width()).arg(least.height());
        QVERIFY2(least.width() <= smallest.width() && least.height() <= smallest.height(), qPrintable(told));
        QVERIFY2(form.width() <= 1366 && form.height() <= smallest.height(), qPrintable(told));
    }

private slots:
    void init() { m_office = std::make_unique<OpenOffice>(); }
    void cleanup() { m_office.reset(); }

    void theEditorFits() { checkFits<frmCsEstimate>(); }
    void theMasterEditorFits() { checkFits<frmMsEstimate>(); }
    void theEstimateListFits() { checkFits<frmCsEstimateList>(); }
    void theMasterListFits() { checkFits<frmMsEstimateList>(); }
    void theDialogOfANewMasterFits() { checkFits<frmMstEstimateDialog>(); }
    void theCustomerListFits() { checkFits<frmCustomerList>(); }
    void theWidestCodeTableFits() { checkFits<frmClaimData>(); }
    void theRevisionFits() { checkFits<frmKakakuUpdate>(); }
    void theChangesOfPricesFit() { checkFits<frmKakakuChange>(); }
    void theCustomerScreenFits() { checkFits<frmCustomer>(); }
    void thePaymentSearchFits() { checkFits<frmCsPaySearch>(); }
    void thePaymentListFits() { checkFits<frmCsPayList>(); }
    void theLedgerSearchFits() { checkFits<frmCsUrikakeSystem>(); }
    void theLedgerFits() { checkFits<frmCsUrikakeList>(); }
    void thePaidSearchFits() { checkFits<frmCsPaidSearch>(); }
    void thePaidListSearchFits() { checkFits<frmStMoneyEndSearch>(); }
    void thePaidListFits() { checkFits<frmStMoneyEndList>(); }
    void theWorkPlanFits() { checkFits<frmStWorkPlan>(); }
    void theOrderSalesFit() { checkFits<frmStOrderSales>(); }
    void thePrintAdjustmentFits() { checkFits<frmPrintAdjust>(); }

    void theAmountOfAnEstimateIsSeenWithoutScrolling() {
        constexpr int amount = 8;
        frmCsEstimateList list;
        QVERIFY(list.Load());
        list.resize(smallest);
        list.show();
        list.findChild<QTabWidget*>(u"tabEstList"_qs)->setCurrentIndex(2);
        QCoreApplication::processEvents();
        const Grid* grid = list.findChild<Grid*>(u"flxEstList"_qs);
        QCOMPARE(grid->column(amount).title, u"金額"_qs);
        const int end = grid->columnViewportPosition(amount) + grid->columnWidth(amount);
        QVERIFY2(end <= grid->viewport()->width(), qPrintable(QString::number(end)));
    }
};

HALVANE_TEST(ScreensFitTest)
#include "ScreensFitTest.moc"
