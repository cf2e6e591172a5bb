#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/OpenOffice.h"

#include "app/frmMenu.h"
#include "customers/screens/frmCsUpdConf.h"
#include "customers/screens/frmCustomer.h"
#include "customers/screens/frmCustomerChart.h"
#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "master/screens/frmMsEstimate.h"
#include "master/screens/frmMsEstimateList.h"
#include "master/screens/frmMstEstimateDialog.h"
#include "operations/screens/frmCsBackup.h"
#include "operations/screens/frmCsRestore.h"
#include "operations/screens/frmFirstStart.h"
#include "operations/screens/frmPrintAdjust.h"
#include "operations/screens/frmSystem.h"
#include "payments/screens/frmCsPaidSearch.h"
#include "payments/screens/frmCsPayList.h"
#include "payments/screens/frmCsPaySearch.h"
#include "payments/screens/frmCsUrikakeList.h"
#include "payments/screens/frmCsUrikakeSystem.h"
#include "payments/screens/frmStMoneyEndList.h"
#include "payments/screens/frmStMoneyEndSearch.h"
#include "payments/screens/frmStOrderSales.h"
#include "payments/screens/frmStWorkPlan.h"
#include "price/screens/frmCalcPrice.h"
#include "price/screens/frmKakaku.h"
#include "price/screens/frmKakakuChange.h"
#include "price/screens/frmKakakuFaults.h"
#include "price/screens/frmKakakuList.h"
#include "price/screens/frmKakakuUpdate.h"
#include "reference/screens/CodeTableScreen.h"
#include "reference/screens/frmZipUpdate.h"
#include "reports/engine/frmPreview.h"
#include "ui/frmCalendar.h"
#include "ui/frmSelectList.h"

#include <QAbstractButton>
#include <QDirIterator>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

namespace {

// The list that drops down is a window of its own.
bool isPartOfAControl(const QWidget* part) {
    if (part->inherits("QComboBoxListView")) return true;
    return part->focusProxy() || part->objectName().startsWith(u"qt_") ||
           qobject_cast<const QComboBox*>(part->parent()) || qobject_cast<const QAbstractItemView*>(part->parent());
}

bool isFrame(const QWidget* part) {
    return qobject_cast<const QTabWidget*>(part) || qobject_cast<const QTabBar*>(part) ||
           qobject_cast<const QScrollArea*>(part) || qobject_cast<const QGroupBox*>(part);
}

// What a reader of the screen says of a control.
QString spoken(const QWidget* part) {
    const auto* button = qobject_cast<const QAbstractButton*>(part);
    return part->accessibleName().isEmpty() && button ? button->text() : part->accessibleName();
}

QStringList namelessOf(const QWidget* form) {
    QStringList nameless;
    for (const QWidget* part : form->findChildren<QWidget*>()) {
        const bool reached = part->focusPolicy() & Qt::TabFocus && !isPartOfAControl(part) && !isFrame(part);
        if (reached && spoken(part).trimmed().isEmpty())
            nameless << form->objectName() + u'.' + part->objectName() + u' ' +
                            QString::fromLatin1(part->metaObject()->className());
    }
    return nameless;
}

// Labels that stand before a field, and lead to none.
QStringList strayLabelsOf(const QWidget* form) {
    QStringList stray;
    const auto fields = form->findChildren<QWidget*>();
    for (const QLabel* label : form->findChildren<QLabel*>()) {
        const bool names = std::any_of(fields.begin(), fields.end(), [&](const QWidget* field) {
            return field->focusPolicy() & Qt::TabFocus && field->parentWidget() == label->parentWidget() &&
                   field->accessibleName() + u'：' == label->text();
        });
        if (names && !label->buddy()) stray << form->objectName() + u'.' + label->objectName();
    }
    return stray;
}

} // namespace

// Every field of every screen has a name that can be spoken, and the label before it leads to it.
class SpokenNamesTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<OpenOffice> m_office;
    QStringList m_seen;

    void look(const QWidget* form) {
        m_seen << form->objectName();
        const QStringList faults = namelessOf(form) + strayLabelsOf(form);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    // Some want to be told what to show before they load; what they are called stands there all the same.
    template <class Form> void walk() {
        const CapturedMessages messages;
        Form form;
        form.Load();
        look(&form);
    }
    template <class... Forms> void walkAll() { (walk<Forms>(), ...); }

private slots:
    void init() { m_office = std::make_unique<OpenOffice>(); }
    void cleanup() { m_office.reset(); }

    void everyFieldOfEveryScreenHasItsName() {
        walkAll<frmMenu, frmCsUpdConf, frmCustomer, frmCustomerChart, frmCustomerList, frmCsEstimate, frmCsEstimateList,
                frmMsEstimate, frmMsEstimateList, frmMstEstimateDialog, frmCsBackup, frmCsRestore, frmPrintAdjust,
                frmSystem, frmCsPaidSearch, frmCsPayList, frmCsPaySearch, frmCsUrikakeList, frmCsUrikakeSystem,
                frmStMoneyEndList, frmStMoneyEndSearch, frmStOrderSales, frmStWorkPlan, frmCalcPrice, frmKakakuSYU,
                frmKakakuKI, frmKakakuADD, frmKakakuSEI, frmKakakuKAN, frmKakakuChange, frmKakakuFaults, frmKakakuList,
                frmKakakuUpdate, frmInsuranceData, frmOrderData, frmClaimData, frmPrefectureData, frmDoctorData,
                frmChargeData, frmIns, frmCsEquipment, frmZipUpdate, frmCalendar, frmSelectList>();
        frmPreview preview{QList<ReportJob>()};
        look(&preview);
        const frmFirstStart first{{}, {}};
        look(&first);
        QDirIterator forms(QStringLiteral(HALVANE_SOURCE_DIR "/src"), {u"frm*.ui"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (forms.hasNext()) {
            const QString name = QFileInfo(forms.next()).completeBaseName();
            QVERIFY2(m_seen.contains(name), qPrintable(name));
        }
    }
};

HALVANE_TEST(SpokenNamesTest)
#include "SpokenNamesTest.moc"
