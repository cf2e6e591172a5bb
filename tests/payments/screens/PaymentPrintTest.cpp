#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/PaymentSamples.h"
#include "support/TestDatabase.h"

#include "base/Seams.h"
#include "db/clsDbManager.h"
#include "payments/screens/frmCsPayList.h"
#include "reports/engine/ReportRecorder.h"
#include "ui/BusyPanel.h"

#include <QLabel>
#include <QPushButton>

// Six thousand unpaid orders on their way to paper.
class PaymentPrintTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<frmCsPayList> m_list;
    std::function<void()> m_before;

    void press(const QString& name) { m_list->findChild<QPushButton*>(name)->click(); }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        gDbManager.DBOpen();
        m_database->prepareManagers();
        PaymentSamples::addOrders(m_database->connection(), 6000);
        PaymentSamples::makeAllUnpaid(m_database->connection());
    }
    void cleanupTestCase() {
        gDbManager.DBClose();
        m_database.reset();
    }
    void init() {
        m_before = seams().letEventsRun;
        m_list = std::make_unique<frmCsPayList>();
        QVERIFY(m_list->Load());
        m_list->show();
    }
    void cleanup() {
        seams().letEventsRun = m_before;
        m_list.reset();
    }

    void itShowsHowFarItIs() {
        CapturedMessages messages({AnswerYes});
        ReportRecorder recorder;
        QStringList told;
        bool locked = true, closes = false;
        seams().letEventsRun = [&] {
            const auto* panel = m_list->findChild<BusyPanel*>();
            if (panel->isVisible()) told << panel->findChild<QLabel*>(u"lblBusy"_qs)->text();
            locked = locked && !m_list->findChild<QPushButton*>(u"cmdExec"_qs)->isEnabled();
            closes = closes || m_list->close();
        };
        press(u"cmdPrint_0"_qs);
        QCOMPARE(recorder.documents(), QStringList{u"repStNoPayment"_qs});
        QVERIFY(recorder.pages().size() > 500);
        QVERIFY(told.size() > 20);
        QVERIFY(told.first().startsWith(u"印刷準備中…"));
        QVERIFY(told.last().startsWith(u"印刷中…"));
        QVERIFY(locked && !closes);
        QVERIFY(m_list->findChild<QPushButton*>(u"cmdExec"_qs)->isEnabled());
        QVERIFY(!m_list->findChild<BusyPanel*>());
    }

    // While the rows are gathered, and while the pages are made.
    void itIsStoppedAtAnyMoment_data() {
        QTest::addColumn<int>("turn");
        QTest::newRow("gathering") << 3;
        QTest::newRow("making pages") << 30;
    }
    void itIsStoppedAtAnyMoment() {
        QFETCH(int, turn);
        CapturedMessages messages({AnswerYes});
        ReportRecorder recorder;
        int turns = 0;
        seams().letEventsRun = [&] {
            if (++turns == turn) press(u"cmdStop"_qs);
        };
        press(u"cmdPrint_0"_qs);
        QCOMPARE(turns, turn);
        QCOMPARE(recorder.documents(), QStringList());
        QCOMPARE(messages.texts.size(), 1); // the question alone
        QVERIFY(m_list->findChild<QPushButton*>(u"cmdPrint_0"_qs)->isEnabled());
    }

    void aStoppedFileLeavesNothingBehind() {
        const QString path = m_database->folder() + u"/out.csv"_qs;
        seams().saveFile = [path](FileDialogRequest&) { return path; };
        seams().letEventsRun = [this] {
            if (auto* stops = m_list->findChild<QPushButton*>(u"cmdStop"_qs)) stops->click();
        };
        CapturedMessages messages;
        press(u"cmdCsv"_qs);
        seams().saveFile = defaultSeams().saveFile;
        QVERIFY(!QFile::exists(path));
        QCOMPARE(messages.texts, QStringList());
    }
};

HALVANE_TEST(PaymentPrintTest)
#include "PaymentPrintTest.moc"
