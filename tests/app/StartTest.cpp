#include "HalvaneTest.h"
#include "support/CapturedMessages.h"
#include "support/TestDatabase.h"

#include "app/InstanceLock.h"
#include "app/basMain.h"
#include "base/Application.h"
#include "base/clsLogger.h"
#include "db/clsAutoIdsManager.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QWidget>

class StartTest : public QObject {
    Q_OBJECT

private:
    static QWidget* menu() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmMenu" && window->isVisible()) return window;
        return nullptr;
    }

    static QStringList log(const TestDatabase& database) {
        const QDir folder(database.folder());
        QFile file(folder.filePath(folder.entryList({u"Log*.txt"_qs}).value(0)));
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromLatin1(file.readAll()).trimmed().split(u"\r\n"_qs);
    }

    const QString logHere = u"[Log]\r\nPath=.\r\n"_qs;

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

    void lastLineOfANormalDayIsTheEnd() {
        TestDatabase database;
        database.writeProfile(logHere);
        QVERIFY(Main());
        QVERIFY(menu());
        menu()->close();
        QVERIFY(!menu());
        QVERIFY(!gLogger);
        const QStringList lines = log(database);
        QVERIFY(lines.size() >= 5);
        QVERIFY(lines.at(3).contains(u"Version:2.2.6"_qs));
        QVERIFY(lines.last().endsWith(u"\"HALVANE normal ENDED\""_qs));
    }

    void systemDateOverrideSteersTheNumberingYear() {
        TestDatabase database;
        database.writeProfile(logHere + u"[Misc]\r\nSYSDATE=2005/04/01\r\n"_qs);
        QVERIFY(Main());
        QCOMPARE(gSysDate, QDate(2005, 4, 1));
        QCOMPARE(gSysYear, u"2005"_qs);
        QVERIFY(!gAutoIdsManager.GetNewId(u"顧客番号"_qs).isEmpty());
        QCOMPARE(database.connection().scalar(u"SELECT [年度] FROM [採番] WHERE [項目名] = '顧客番号'"_qs), u"2005"_qs);
        // log files keep the real date
        QVERIFY(gLogger->FileNm().endsWith(QDate::currentDate().toString(u"'Log'yyyyMMdd'.txt'"_qs)));
        menu()->close();
    }

    void malformedSystemDateIsIgnored() {
        const CapturedMessages messages;
        TestDatabase database;
        database.writeProfile(logHere + u"[Misc]\r\nSYSDATE=2005/02/30\r\n"_qs);
        QVERIFY(Main());
        QCOMPARE(gSysDate, QDate::currentDate());
        QVERIFY(messages.texts.isEmpty());
        menu()->close();
    }

    void withoutAnIniFileTheOnlyOutputIsTheMessage() {
        const CapturedMessages messages;
        TestDatabase database;
        database.writeProfile();
        QFile::remove(QDir(database.folder()).filePath(u"Halvane.ini"_qs));
        const QStringList before = QDir(database.folder()).entryList(QDir::Files);
        QVERIFY(!Main());
        QCOMPARE(messages.texts, QStringList{u"INIﾌｧｲﾙが見つかりません。"_qs});
        QVERIFY(!menu());
        QCOMPARE(QDir(database.folder()).entryList(QDir::Files), before);
    }

    void databaseThatCannotBeOpenedEndsTheStart() {
        const CapturedMessages messages;
        TestDatabase database;
        database.writeProfile(logHere);
        QFile ini(QDir(database.folder()).filePath(u"Halvane.ini"_qs));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write("[DB]\r\nProvider=SQLite\r\nDatabase=nothing.db\r\n[Log]\r\nPath=.\r\n");
        ini.close();
        QVERIFY(!Main());
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(!gLogger);
        QVERIFY(log(database).last().contains(u"HALVANE normal ENDED"_qs));
    }

    // Neither of a day that goes well nor of a server that is not there, however the password reads.
    void passwordReachesNeitherLogNorScreen() {
        for (const QString& password : {u"hidden-4711"_qs, u"it's hidden-4711"_qs, u"a=hidden-4711 host=b"_qs}) {
            const CapturedMessages messages;
            TestDatabase database;
            const QString line = u"PassWd="_qs + password + u"\r\n"_qs;
            gSqlLogEnabled = true;
            database.writeProfile(line + logHere);
            const bool opens = Main();
            if (opens) menu()->close();
            QVERIFY(opens || TestDatabase::isPostgres());
            QVERIFY(!log(database).join(u'\n').contains(u"4711"_qs));
            QVERIFY(!messages.texts.join(u'\n').contains(u"4711"_qs));

            QFile ini(QDir(database.folder()).filePath(u"Halvane.ini"_qs));
            QVERIFY(ini.open(QIODevice::WriteOnly));
            ini.write(
                (u"[DB]\r\nProvider=PostgreSQL\r\nPath=/nowhere\r\nDatabase=none\r\nUserId=a\r\n"_qs + line + logHere)
                    .toUtf8());
            ini.close();
            QVERIFY(!Main());
            gSqlLogEnabled = false;
            QVERIFY(log(database).join(u'\n').contains(u"HALVANE normal ENDED"_qs));
            QVERIFY(!log(database).join(u'\n').contains(u"4711"_qs));
            QVERIFY(!messages.texts.isEmpty());
            QVERIFY(!messages.texts.join(u'\n').contains(u"4711"_qs));
        }
    }

    void failedMaintenanceUnloadsTheMenuAndEnds() {
        const CapturedMessages messages;
        TestDatabase database;
        database.writeProfile(logHere);
        database.connection().execute(u"DELETE FROM [システム設定] WHERE [No] = 99"_qs);
        database.connection().execute(u"DROP TABLE [価格部品]"_qs);
        QVERIFY(!Main());
        QVERIFY(!messages.texts.isEmpty());
        QVERIFY(!menu());
        QVERIFY(!gLogger);
    }

    void secondInstanceIsRefusedAndTheFirstIsUntouched() {
        const CapturedMessages messages;
        TestDatabase database;
        database.writeProfile(logHere);
        InstanceLock first;
        QVERIFY(first.take());
        QVERIFY(!Main());
        QCOMPARE(messages.texts, QStringList{u"Halvaneは既に起動されています！"_qs});
        QVERIFY(log(database).isEmpty());
        first.release();
        QVERIFY(Main());
        menu()->close();
    }

    void tracesOfACrashedInstanceDoNotHinder() {
        TestDatabase database;
        database.writeProfile(logHere);
        QProcess dead;
        dead.start(u"true"_qs, {});
        const qint64 pid = dead.processId();
        QVERIFY(dead.waitForFinished());
        QFile trace(InstanceLock::path());
        QVERIFY(trace.open(QIODevice::WriteOnly));
        trace.write(QByteArray::number(pid) + "\nhalvane\n" + QSysInfo::machineHostName().toLocal8Bit() + '\n');
        trace.close();
        QVERIFY(Main());
        menu()->close();
    }

    void startsAndStopsManyTimesInOneProcess() {
        TestDatabase database;
        database.writeProfile(logHere);
        for (int round = 0; round < 5; ++round) {
            QVERIFY(Main());
            menu()->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
};

HALVANE_TEST(StartTest)
#include "StartTest.moc"
