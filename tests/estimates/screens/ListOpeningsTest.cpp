#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "base/Seams.h"
#include "base/clsProfile.h"
#include "customers/screens/frmCustomerList.h"
#include "db/clsDbManager.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "operations/Managers.h"
#include "ui/EntryField.h"
#include "ui/Grid.h"

#include <QDir>
#include <QTabBar>
#include <QTabWidget>

namespace {

constexpr int fewRounds = 6;
constexpr int giveUpEach = 3; // every third list is closed while its rows are on their way

int rounds() {
    const int asked = qEnvironmentVariableIntValue("HALVANE_TEST_OPENINGS");
    return asked > 0 ? asked : fewRounds;
}

int entriesOf(const QString& folder) {
    return static_cast<int>(QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

int threads() { return entriesOf(u"/proc/self/task"_qs); }
int openFiles() { return entriesOf(u"/proc/self/fd"_qs); }

} // namespace

// Lists that are opened, filtered and closed all day leave no thread, no file and, seen by a sanitizer, no memory
// behind. HALVANE_TEST_OPENINGS=1000 is the long form.
class ListOpeningsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static void setText(Screen& screen, const QString& field, const QString& text) {
        screen.findChild<EntryField*>(field)->setValue(text);
    }

    static int rowsOf(Screen& screen, const QString& name) {
        auto* grid = screen.findChild<Grid*>(name);
        return QTest::qWaitFor([grid] { return !grid->isFilling(); }, patience) ? grid->rows() : -1;
    }

    static void openEstimates(bool giveUp) {
        frmCsEstimateList list;
        list.OpenMode = frmCsEstimateList::fromMenu;
        QVERIFY(list.Load());
        list.show();
        auto* pages = list.findChild<QTabWidget*>(u"tabEstList"_qs);
        setText(list, u"txtKana1"_qs, u"ｲ"_qs);
        pages->setCurrentIndex(1);
        if (!giveUp) QVERIFY(rowsOf(list, u"flxCustList"_qs) > 0);
        pages->setCurrentIndex(2);
        if (!giveUp) {
            const int found = rowsOf(list, u"flxEstList"_qs);
            QVERIFY(found > 0);
            pages->setCurrentIndex(0);
            setText(list, u"txtKana1"_qs, {});
            pages->setCurrentIndex(2);
            QVERIFY(rowsOf(list, u"flxEstList"_qs) > found);
        }
        emit list.findChild<Grid*>(u"flxEstList"_qs)->headingClicked(2);
        list.close();
    }

    static void openCustomers(bool giveUp) {
        frmCustomerList list;
        QVERIFY(list.Load());
        list.show();
        auto* tabs = list.findChild<QTabBar*>(u"stKana"_qs);
        const int all = giveUp ? 0 : rowsOf(list, u"flxData"_qs);
        tabs->setCurrentIndex(1);
        if (!giveUp) {
            const int found = rowsOf(list, u"flxData"_qs);
            QVERIFY(found > 0);
            QVERIFY(found < all);
        }
        setText(list, u"txtKana1"_qs, u"ｶ"_qs);
        emit list.findChild<Grid*>(u"flxData"_qs)->headingClicked(3);
        list.close();
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        gDbManager.DBOpen();
        Managers::prepare(gDbManager.Connection());
    }
    void cleanup() {
        Managers::release();
        gDbManager.DBClose();
        m_database.reset();
        seams() = defaultSeams();
    }

    void listsLeaveNothingBehind() {
        openEstimates(false); // what is made once stays
        openCustomers(false);
        const int threadsBefore = threads(), filesBefore = openFiles();
        for (int round = 1; round <= rounds(); ++round) {
            openEstimates(round % giveUpEach == 0);
            openCustomers(round % giveUpEach == 0);
            if (QTest::currentTestFailed()) return;
        }
        // The thread of a list that was given up ends by itself.
        QTRY_VERIFY_WITH_TIMEOUT(threads() <= threadsBefore, patience);
        QTRY_VERIFY_WITH_TIMEOUT(openFiles() <= filesBefore, patience);
    }
};

HALVANE_TEST(ListOpeningsTest)
#include "ListOpeningsTest.moc"
