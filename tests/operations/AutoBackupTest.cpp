#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/clsProfile.h"
#include "operations/AutoBackup.h"
#include "operations/BackupFiles.h"

#include <QDir>
#include <QFile>
#include <QTest>

class AutoBackupTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<FixedClock> m_clock;

    QString folder() const { return m_database->folder() + u"/backup"_qs; }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_clock = std::make_unique<FixedClock>(u"2026/11/22 18:00:00"_qs);
    }
    void cleanup() {
        m_clock.reset();
        m_database.reset();
    }

    void withoutAFolderTheOneOfTheProgramIsMadeAndUsed() {
        AutoBackup::run();
        QCOMPARE(BackupFiles::list(folder()), QStringList(u"20261122180000"_qs));
    }

    void itIsDueADayAfterTheLastOne() {
        QVERIFY(AutoBackup::isDue());
        AutoBackup::run();
        QVERIFY(!AutoBackup::isDue());
        m_clock->set(u"2026/11/23 17:59:59"_qs);
        QVERIFY(!AutoBackup::isDue());
        m_clock->set(u"2026/11/23 18:00:01"_qs);
        QVERIFY(AutoBackup::isDue());
    }

    void switchedOffItIsNeverDue() {
        clsProfile().SaveValue(u"Backup"_qs, u"Auto"_qs, u"0"_qs);
        QVERIFY(!AutoBackup::isDue());
    }

    // A clock that was wrong for a day.
    void aBackupOfTheFutureHoldsNothingUp() {
        m_clock->set(u"2030/01/01 9:00:00"_qs);
        AutoBackup::run();
        m_clock->set(u"2026/11/22 18:00:00"_qs);
        QVERIFY(AutoBackup::isDue());
        AutoBackup::run();
        QCOMPARE(BackupFiles::list(folder()).size(), 2);
        QVERIFY(!AutoBackup::isDue());
        QVERIFY(AutoBackup::age().text.contains(u"2026/11/22（今日）"_qs));
    }

    void onlyThoseOfItsKindGo() {
        const ConnectionSettings office = m_database->settings();
        QDir().mkpath(folder());
        Backup::make(office, folder(), u"20261122090000"_qs, Backup::Made::ByOperator);
        Backup::make(office, folder(), u"20261122100000"_qs, Backup::Made::ByItself);
        AutoBackup::run();
        QCOMPARE(BackupFiles::list(folder()), (QStringList{u"20261122090000"_qs, u"20261122180000"_qs}));
    }

    void aFailureIsToldOnceAtTheNextStart() {
        clsProfile().SaveValue(u"Backup"_qs, u"Path"_qs, u"gone"_qs);
        AutoBackup::run();
        const QString told = AutoBackup::takeFailure();
        QVERIFY2(told.contains(QDir::toNativeSeparators(m_database->folder() + u"/gone"_qs)), qPrintable(told));
        QCOMPARE(AutoBackup::takeFailure(), QString());
    }

    void theMenuWarnsAfterAWeek() {
        QVERIFY(AutoBackup::age().isLong);
        AutoBackup::run();
        QCOMPARE(AutoBackup::age().text, u"最後のバックアップ：2026/11/22（今日）"_qs);
        QVERIFY(!AutoBackup::age().isLong);
        m_clock->set(u"2026/11/23 1:00:00"_qs);
        QCOMPARE(AutoBackup::age().text, u"最後のバックアップ：2026/11/22（昨日）"_qs);
        m_clock->set(u"2026/11/29 23:00:00"_qs);
        QVERIFY(!AutoBackup::age().isLong);
        m_clock->set(u"2026/11/30 0:00:00"_qs);
        QVERIFY(AutoBackup::age().isLong);
    }
};

HALVANE_TEST(AutoBackupTest)
#include "AutoBackupTest.moc"
