#include "HalvaneTest.h"

#include "operations/BackupFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

void put(const QTemporaryDir& folder, const QString& name, const QByteArray& text = {}) {
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// One a day at noon, the newest first.
QStringList daily(const QDate& last, int count) {
    QStringList stamps;
    for (int i = 0; i < count; ++i) stamps << BackupFiles::stampOf(QDateTime(last.addDays(-i), QTime(12, 0)));
    return stamps;
}

QStringList keptOf(const QStringList& stamps) {
    QStringList kept = stamps;
    for (const QString& gone : BackupFiles::superfluous(stamps)) kept.removeAll(gone);
    return kept;
}

} // namespace

class BackupFilesTest : public QObject {
    Q_OBJECT

private slots:
    void stampsStandInNamesOfBackupsAlone_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("stamp");
        QTest::newRow("a backup") << u"Halvane20260228235959.db"_qs << u"20260228235959"_qs;
        QTest::newRow("suffix in capitals") << u"Halvane20260228235959.DB"_qs << u"20260228235959"_qs;
        QTest::newRow("letters") << u"HalvaneABC.db"_qs << QString();
        QTest::newRow("letters of the length") << u"HalvaneABCDEFGHIJKLMN.db"_qs << QString();
        QTest::newRow("no date") << u"Halvane20260230000000.db"_qs << QString();
        QTest::newRow("no time") << u"Halvane20260228240000.db"_qs << QString();
        QTest::newRow("too long") << u"Halvane202602282359590.db"_qs << QString();
        QTest::newRow("another beginning") << u"halvane20260228235959.db"_qs << QString();
        QTest::newRow("settings") << u"Halvane20260228235959.ini"_qs << QString();
        QTest::newRow("under way") << u"Halvane20260228235959.db.part"_qs << QString();
        QTest::newRow("full-width digits") << u"Halvane２０２６０２２８２３５９５９.db"_qs << QString();
    }
    void stampsStandInNamesOfBackupsAlone() {
        QFETCH(QString, name);
        QTEST(BackupFiles::stampIn(name), "stamp");
    }

    void foldersListTheirBackupsInOrder() {
        QTemporaryDir folder;
        for (const QString& name : {u"Halvane20260301000000.db"_qs, u"Halvane20250301000000.db"_qs, u"Halvane.db"_qs,
                                    u"HalvaneABC.db"_qs, u"Halvane20260301000001.ini"_qs})
            put(folder, name);
        QCOMPARE(BackupFiles::list(folder.path()), (QStringList{u"20250301000000"_qs, u"20260301000000"_qs}));
        QCOMPARE(BackupFiles::list(folder.filePath(u"none"_qs)), QStringList());
    }

    void thoseMadeByThemselvesAreKnownByTheirSettings() {
        QTemporaryDir folder;
        for (const QString& stamp : {u"20260301000000"_qs, u"20260302000000"_qs, u"20260303000000"_qs})
            put(folder, BackupFiles::databaseName(stamp));
        put(folder, BackupFiles::profileName(u"20260301000000"_qs), "[Backup]\r\nPath=x\r\n");
        put(folder, BackupFiles::profileName(u"20260302000000"_qs), "[Backup]\r\nMade=Auto\r\n");
        QCOMPARE(BackupFiles::automatic(folder.path()), QStringList(u"20260302000000"_qs));
    }

    void aStampIsShownAndReadBack() {
        const QString line = BackupFiles::shown(u"20261122014553"_qs);
        QCOMPARE(line, u"2026年11月22日　01時45分53秒"_qs);
        QCOMPARE(BackupFiles::stampOfShown(line), u"20261122014553"_qs);
    }

    void aDailyBackupKeepsDaysWeeksAndMonths() {
        const QStringList kept = keptOf(daily(QDate(2026, 11, 22), 800)); // a Sunday, so that its week is whole
        // 7 days of which one begins its week; 5 weeks, the first of which is among the days; 12 months likewise
        QCOMPARE(kept.mid(0, 7), daily(QDate(2026, 11, 22), 7));
        QVERIFY(kept.contains(u"20261115120000"_qs) && kept.contains(u"20261025120000"_qs));
        QVERIFY(!kept.contains(u"20261018120000"_qs));
        QVERIFY(kept.contains(u"20261031120000"_qs) && kept.contains(u"20251231120000"_qs));
        QVERIFY(!kept.contains(u"20251130120000"_qs));
        QCOMPARE(kept.size(), 7 + 4 + 11);
    }

    void backupsOfOneDayKeepTheLast() {
        QCOMPARE(keptOf({u"20261122080000"_qs, u"20261122180000"_qs, u"20261122120000"_qs}),
                 QStringList(u"20261122180000"_qs));
    }

    void oldOnesStayWhereNoneFollowed() { // an office that was closed for long
        QCOMPARE(BackupFiles::superfluous({u"20200101120000"_qs, u"20200301120000"_qs}), QStringList());
        QCOMPARE(BackupFiles::superfluous({}), QStringList());
    }
};

HALVANE_TEST(BackupFilesTest)
#include "BackupFilesTest.moc"
