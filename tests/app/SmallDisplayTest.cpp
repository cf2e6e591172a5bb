#include "HalvaneTest.h"
#include "support/OpenOffice.h"

#include "app/frmMenu.h"
#include "customers/screens/frmCustomer.h"
#include "customers/screens/frmCustomerChart.h"
#include "customers/screens/frmCustomerList.h"
#include "estimates/screens/frmCsEstimate.h"
#include "estimates/screens/frmCsEstimateList.h"

#include <QAbstractButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>

// Every screen on a display that may be too small for it: the window stands on it, and whatever takes the focus comes
// into view.
class SmallDisplayTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<OpenOffice> m_office;

    static bool isSeen(const QWidget* control, const QWidget* form) {
        QRect seen(control->mapTo(form, QPoint()), control->size());
        for (const QWidget* part = control->parentWidget(); part != form; part = part->parentWidget())
            seen &= QRect(part->mapTo(form, QPoint()), part->size());
        seen &= form->rect();
        return seen.width() >= qMin(control->width(), 40) && seen.height() >= qMin(control->height(), 20);
    }

    static void checkControls(const QWidget* form) {
        for (QWidget* control : form->findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || !(control->focusPolicy() & Qt::TabFocus)) continue;
            if (control->focusProxy()) continue;
            control->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            const QString told = u"%1 %2"_qs.arg(form->objectName(), control->objectName());
            QVERIFY2(isSeen(control, form), qPrintable(told));
        }
    }

    // What has no focus of its own is reached by the wheel: nothing lies outside of what scrolls.
    static void checkNothingIsCut(const QWidget* form) {
        for (const QWidget* control : form->findChildren<QWidget*>()) {
            const QWidget* parent = control->parentWidget();
            const bool scrolls = qobject_cast<const QAbstractScrollArea*>(parent) ||
                                 qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
            if (!control->isVisible() || control->isWindow() || scrolls || control->objectName().startsWith(u"qt_") ||
                control->objectName().isEmpty())
                continue;
            const QString told = u"%1 %2"_qs.arg(form->objectName(), control->objectName());
            QVERIFY2(parent->rect().contains(control->geometry()), qPrintable(told));
        }
    }

    template <class Form> static void checkForm() {
        Form form;
        QVERIFY(form.Load());
        form.show();
        QApplication::setActiveWindow(&form);
        QCoreApplication::processEvents();
        const QSize display = form.screen()->availableSize();
        QVERIFY2(form.width() <= display.width() && form.height() < display.height(),
                 qPrintable(u"%1: %2 x %3"_qs.arg(form.objectName()).arg(form.width()).arg(form.height())));
        auto* pages = form.template findChild<QTabWidget*>();
        for (int page = 0; page < (pages ? pages->count() : 1); ++page) {
            if (pages) pages->setCurrentIndex(page);
            QCoreApplication::processEvents();
            checkControls(&form);
            checkNothingIsCut(&form);
            if (QTest::currentTestFailed()) return;
        }
    }

private slots:
    void init() { m_office = std::make_unique<OpenOffice>(); }
    void cleanup() { m_office.reset(); }

    void theMenu() { checkForm<frmMenu>(); }
    void theEditor() { checkForm<frmCsEstimate>(); }
    void theEstimateList() { checkForm<frmCsEstimateList>(); }
    void theCustomerList() { checkForm<frmCustomerList>(); }
    void theCustomer() { checkForm<frmCustomer>(); }
    void theChart() { checkForm<frmCustomerChart>(); }

    // Commands and header of the editor do not scroll away.
    void theCommandsOfTheEditorStayInView() {
        frmCsEstimate form;
        QVERIFY(form.Load());
        form.show();
        QCoreApplication::processEvents();
        for (const QString& name : {u"cmdExec"_qs, u"cmdClose"_qs, u"txtEstName"_qs, u"cmdEstList"_qs}) {
            const auto* control = form.findChild<QWidget*>(name);
            QVERIFY2(isSeen(control, &form), qPrintable(name));
            for (const QWidget* part = control; part != &form; part = part->parentWidget())
                QVERIFY2(!qobject_cast<const QScrollArea*>(part), qPrintable(name));
        }
    }
};

HALVANE_TEST(SmallDisplayTest)
#include "SmallDisplayTest.moc"
