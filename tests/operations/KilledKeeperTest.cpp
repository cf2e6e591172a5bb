#include "HalvaneTest.h"
#include "support/Kills.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "operations/BackupFiles.h"
#include "operations/Restore.h"
#include "reference/clsZipManager.h"

#include <QDir>
#include <QTest>

namespace {

int kills() { return Kills::count(8); }

} // namespace

// The power goes, or the program is killed, at any moment of a backup, of a restore, or while the postal book is
// renewed.
class KilledKeeperTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    // Lets the keeper come through a round, and kills it at a random moment of the next ones.
    void workAndKill(const QStringList& words) {
        Kills::startAndKill(QStringLiteral(HALVANE_OFFICE_KEEPER), words, m_database->settings());
    }

    QStringList job(const QString& what, const QString& file) const { return {what, m_database->folder(), file}; }

    void verifyWhole(Connection& office) {
        if (!TestDatabase::isPostgres()) QCOMPARE(office.engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
        QCOMPARE(office.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile(u"ConnectionTimeout=30\r\n"_qs);
    }
    void cleanup() {
        const ConnectionSettings office = m_database->settings();
        m_database.reset();
        if (!TestDatabase::isPostgres()) return;
        for (const QString& left : {Restore::keptName(office), office.database + u"-restore"_qs})
            TestServer::execute(u"DROP DATABASE IF EXISTS \"%1\" WITH (FORCE)"_qs.arg(left));
    }

    void everyBackupUnderItsNameIsWhole() {
        const QString folder = m_database->folder() + u"/backup"_qs;
        QDir().mkpath(folder);
        for (int i = 0; i < kills(); ++i) {
            workAndKill(job(u"backup"_qs, folder));
            if (QTest::currentTestFailed()) return;
            const QStringList stamps = BackupFiles::list(folder);
            QVERIFY(!stamps.isEmpty());
            for (const QString& stamp : stamps) Backup::prove(QDir(folder).filePath(BackupFiles::databaseName(stamp)));
            for (const QString& stamp : stamps) Backup::remove(folder, stamp);
            verifyWhole(*m_database->another());
        }
        qInfo("%d kills", kills());
    }

    void thereIsAWholeOfficeAfterEveryRestore() {
        const QString copy =
            Backup::make(m_database->settings(), m_database->folder(), u"20261121180000"_qs, Backup::Made::ByOperator);
        m_database->connection().close();
        for (int i = 0; i < kills(); ++i) {
            workAndKill(job(u"restore"_qs, copy));
            if (QTest::currentTestFailed()) return;
            verifyWhole(*m_database->another());
        }
        qInfo("%d kills", kills());
    }

    void thePostalBookIsOldOrNew() {
        const QString path = m_database->folder() + u"/KEN_ALL.CSV"_qs;
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 3000; ++i)
            file.write(u"1,\"1\",\"%1\",\"a\",\"a\",\"a\",\"県\",\"市\",\"町%1\",0,0,0,0,0,0\r\n"_qs
                           .arg(i, 7, 10, QLatin1Char('0'))
                           .toUtf8());
        file.close();
        const QString before = m_database->connection().scalar(u"SELECT COUNT(*) FROM [郵便番号簿]"_qs);
        m_database->connection().close();
        for (int i = 0; i < kills(); ++i) {
            workAndKill(job(u"postal"_qs, path));
            if (QTest::currentTestFailed()) return;
            const auto office = m_database->another();
            verifyWhole(*office);
            const QString now = office->scalar(u"SELECT COUNT(*) FROM [郵便番号簿]"_qs);
            QVERIFY2(now == before || now == u"3000", qPrintable(now));
        }
        qInfo("%d kills", kills());
    }
};

HALVANE_TEST(KilledKeeperTest)
#include "KilledKeeperTest.moc"
