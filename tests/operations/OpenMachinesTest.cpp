#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "operations/OpenMachines.h"

#include <QSysInfo>
#include <QTest>

class OpenMachinesTest : public QObject {
    Q_OBJECT

private slots:
    void nobodyIsInAnOfficeThatNobodyOpened() {
        TestDatabase database;
        QCOMPARE(OpenMachines::others(database.settings()), QStringList());
        QVERIFY(OpenMachines::alone(database.settings()));
    }

    void whoHasItOpenIsNamed() {
        TestDatabase database;
        OpenMachines machine;
        if (TestDatabase::isPostgres()) // a session of another program
            database.connection().engineExecute(
                u"SET application_name = 'Halvane %1'"_qs.arg(QSysInfo::machineHostName()));
        else
            machine.enter(database.settings());
        const QStringList names = OpenMachines::others(database.settings());
        QCOMPARE(names.size(), 1);
        QVERIFY2(names.first().contains(QSysInfo::machineHostName()), qPrintable(names.first()));
        QVERIFY(!OpenMachines::alone(database.settings()));
    }

    void whoLeftIsOutAgain() {
        if (TestDatabase::isPostgres()) QSKIP("A server knows its sessions.");
        TestDatabase database;
        OpenMachines one, two;
        one.enter(database.settings());
        two.enter(database.settings());
        QCOMPARE(OpenMachines::others(database.settings()).size(), 2);
        one.leave();
        QCOMPARE(OpenMachines::others(database.settings()).size(), 1);
        two.leave();
        QVERIFY(OpenMachines::alone(database.settings()));
    }

    void whoIsAloneKeepsTheOthersOut() {
        if (TestDatabase::isPostgres()) QSKIP("A server lets no database be renamed while somebody has it open.");
        TestDatabase database;
        auto alone = OpenMachines::alone(database.settings());
        QVERIFY(alone);
        OpenMachines machine;
        QVERIFY(raised([&] { machine.enter(database.settings()); }).contains(u"他の端末がリストアを行っています。"_qs));
        QVERIFY(!OpenMachines::alone(database.settings()));
        alone.reset();
        machine.enter(database.settings());
        QCOMPARE(OpenMachines::others(database.settings()).size(), 1);
    }
};

HALVANE_TEST(OpenMachinesTest)
#include "OpenMachinesTest.moc"
