#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "operations/BackupFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

// The backups of a nightly run: the program without windows.
class KeepingCommandsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    QString m_said;

    // Its exit status.
    int run(const QStringList& words) {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(m_database->folder() + u"/halvane"_qs, words);
        if (!program.waitForFinished(patience)) return -1;
        m_said = QString::fromUtf8(program.readAll());
        return program.exitCode();
    }
    QString backup() const {
        const QString folder = m_database->folder() + u"/backup"_qs;
        return folder + u'/' + BackupFiles::databaseName(BackupFiles::list(folder).value(0));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        QVERIFY(QFile::copy(QStringLiteral(HALVANE_PROGRAM), m_database->folder() + u"/halvane"_qs));
        m_database->connection().close(); // or its session would be another program's
    }
    void cleanup() { m_database.reset(); }

    void aBackupIsMadeProvenAndPutBack() {
        QVERIFY2(run({u"--backup"_qs}) == 0, qPrintable(m_said));
        QVERIFY2(m_said.contains(u"バックアップしました。"_qs), qPrintable(m_said));
        QVERIFY2(run({u"--verify"_qs, backup()}) == 0, qPrintable(m_said));
        QVERIFY2(m_said.contains(u"顧客見積情報"_qs) && m_said.contains(u"このバックアップは使えます。"_qs),
                 qPrintable(m_said));
        {
            const auto office = m_database->another();
            office->execute(u"DELETE FROM [顧客見積情報]"_qs);
            if (TestDatabase::isPostgres()) { // it would be somebody who has the office open
                office->engineExecute(u"SET application_name = 'Halvane x'"_qs);
                QVERIFY(run({u"--restore"_qs, backup()}) != 0);
                QVERIFY2(m_said.contains(u"Halvane x"_qs), qPrintable(m_said));
            }
        }
        QTRY_VERIFY2(run({u"--restore"_qs, backup()}) == 0, qPrintable(m_said));
        QCOMPARE(m_database->another()->scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
    }

    void aDamagedFileIsRefusedWithAFailureStatus() {
        QVERIFY(run({u"--backup"_qs}) == 0);
        QFile copy(backup());
        QVERIFY(copy.resize(copy.size() / 2));
        for (const QString& command : {u"--verify"_qs, u"--restore"_qs}) {
            QCOMPARE(run({command, backup()}), 1);
            QVERIFY2(m_said.contains(backup()), qPrintable(m_said));
        }
        QCOMPARE(m_database->another()->scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
    }

    void wrongWordsAreRefused() {
        QCOMPARE(run({u"--restore"_qs}), 2);
        QCOMPARE(run({u"--backup"_qs, u"here"_qs}), 2);
    }
};

HALVANE_TEST(KeepingCommandsTest)
#include "KeepingCommandsTest.moc"
