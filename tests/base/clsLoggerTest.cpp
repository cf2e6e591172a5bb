#include "HalvaneTest.h"

#include "base/Text.h"
#include "base/clsLogger.h"
#include "support/MessageQueue.h"
#include "support/ProgramFolder.h"
#include "support/Raised.h"

#include <QDir>

class clsLoggerTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QVERIFY(!gLogger); }

    void logsPrunedAtTheExactDay_data() {
        QTest::addColumn<QByteArray>("profile");
        QTest::addColumn<QStringList>("kept");
        const QStringList all{u"Log20230310.txt"_qs, u"Log20240302.txt"_qs, u"Log20240303.txt"_qs,
                              u"Log20240309.txt"_qs};
        QTest::newRow("seven days") << QByteArray("SaveDays=7") << all.mid(2);
        QTest::newRow("one day") << QByteArray("SaveDays=1") << all.mid(3);
        QTest::newRow("zero keeps all") << QByteArray("SaveDays=0") << all;
        QTest::newRow("below zero keeps all") << QByteArray("SaveDays=-3") << all;
        QTest::newRow("no key keeps all") << QByteArray() << all;
    }
    void logsPrunedAtTheExactDay() {
        QFETCH(QByteArray, profile);
        QFETCH(QStringList, kept);
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10 0:00:00"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n" + profile + "\r\n");
        QDir().mkpath(folder.path(u"log"_qs));
        for (const char* day : {"20230310", "20240302", "20240303", "20240309"})
            folder.write(u"log/Log%1.txt"_qs.arg(QString::fromLatin1(day)), "x");
        const clsLogger logger;
        QCOMPARE(QDir(folder.path(u"log"_qs)).entryList({u"Log*.txt"_qs}, QDir::Files, QDir::Name), kept);
    }

    void namesArePrunedByTheirText() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\nSaveDays=7\r\n");
        QDir().mkpath(folder.path(u"log"_qs));
        for (const char* name : {"LogFoo.txt", "Log.txt", "Log1.txt", "Other20200101.txt", "Log20200101.csv"})
            folder.write(u"log/"_qs + QString::fromLatin1(name), "x");
        const clsLogger logger;
        QCOMPARE(QDir(folder.path(u"log"_qs)).entryList(QDir::Files, QDir::Name),
                 (QStringList{u"Log20200101.csv"_qs, u"LogFoo.txt"_qs, u"Other20200101.txt"_qs}));
    }

    void lineHasTimeAndMessageInQuotes() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10 9:05:07"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        const clsLogger logger;
        QCOMPARE(logger.FileNm(), folder.path(u"log/Log20240310.txt"_qs));
        logger.WriteLog(u"顧客削除 \"x\""_qs);
        logger.WriteLog(u"%1 次"_qs);
        QCOMPARE(
            folder.read(u"log/Log20240310.txt"_qs),
            Text::toCp932(u"\"2024/03/10 09:05:07\",\"顧客削除 \"x\"\"\r\n\"2024/03/10 09:05:07\",\"%1 次\"\r\n"_qs));
    }

    void runPastMidnightWritesOnToItsFile() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10 23:59:59"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        const clsLogger logger;
        clock.set(u"2024/03/11 0:00:01"_qs);
        logger.WriteLog(u"翌日"_qs);
        QVERIFY(folder.read(u"log/Log20240310.txt"_qs).startsWith("\"2024/03/11 00:00:01\""));
        QVERIFY(!folder.has(u"log/Log20240311.txt"_qs));
    }

    void dateOverrideDoesNotMoveTheLog() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Misc]\r\nSYSDATE=2005/04/01\r\n[Log]\r\nPath=log\r\n");
        QCOMPARE(clsLogger().FileNm(), folder.path(u"log/Log20240310.txt"_qs));
    }

    void emptyFolderMeansTheCurrentOne() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=\r\n");
        QCOMPARE(clsLogger().FileNm(), u"Log20240310.txt"_qs);
    }

    void lineThatCannotBeWrittenIsLost() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        const clsLogger logger;
        QDir().mkpath(folder.path(u"log/Log20240310.txt"_qs));
        logger.WriteLog(u"どこへ"_qs);
        QVERIFY(QDir(folder.path(u"log/Log20240310.txt"_qs)).isEmpty());
    }

    void daysThatAreNoNumberRaise_data() {
        QTest::addColumn<QByteArray>("days");
        QTest::addColumn<qint64>("number");
        QTest::newRow("letters") << QByteArray("abc") << qint64(13);
        QTest::newRow("empty") << QByteArray("") << qint64(13);
        QTest::newRow("beyond 16 bits") << QByteArray("40000") << qint64(6);
    }
    void daysThatAreNoNumberRaise() {
        QFETCH(QByteArray, days);
        QFETCH(qint64, number);
        ProgramFolder folder;
        folder.writeProfile("[Log]\r\nPath=log\r\nSaveDays=" + days + "\r\n");
        const auto error = errorOf([] { clsLogger logger; });
        QVERIFY(error);
        QCOMPARE(error->number(), number);
    }

    void closingDeletesNothing() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        const clsLogger logger;
        logger.WriteLog(u"x"_qs);
        logger.RemoveFile();
        QVERIFY(folder.has(u"log/Log20240310.txt"_qs));
    }

    void statementsAreLoggedOnlyWhenSwitchedOn() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        gLogger = std::make_unique<clsLogger>();
        WriteSqlLog(u"SELECT 1"_qs);
        QVERIFY(!folder.has(u"log/Log20240310.txt"_qs));
        gSqlLogEnabled = true;
        WriteSqlLog(u"SELECT 2"_qs);
        gSqlLogEnabled = false;
        gLogger.reset();
        WriteSqlLog(u"SELECT 3"_qs);
        const QByteArray log = folder.read(u"log/Log20240310.txt"_qs);
        QVERIFY(log.contains("SELECT 2"));
        QCOMPARE(log.count('\n'), 1);
    }

    void newLogIsForItsOwnerAlone() {
        ProgramFolder folder;
        FixedClock clock(u"2024/03/10"_qs);
        folder.writeProfile("[Log]\r\nPath=log\r\n");
        const clsLogger logger;
        logger.WriteLog(u"x"_qs);
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(logger.FileNm()) & others));
        QVERIFY(QFile::setPermissions(logger.FileNm(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        logger.WriteLog(u"y"_qs);
        QVERIFY(QFile::permissions(logger.FileNm()) & QFile::ReadGroup); // the office said so
    }

    void daysBeyondTheirLimitsNameTheirKey() {
        ProgramFolder folder;
        folder.writeProfile("[Log]\r\nSaveDays=40000\r\n");
        QVERIFY(raised([] { clsLogger logger; }).contains(u"[Log] の SaveDays（40000）"_qs));
    }
};

HALVANE_TEST(clsLoggerTest)
#include "clsLoggerTest.moc"
