#include "HalvaneTest.h"
#include "support/FileLimit.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "operations/OpenMachines.h"
#include "operations/Restore.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

const QString nameOf = u"SELECT [企業名] FROM [企業情報]"_qs;

} // namespace

// Yesterday comes back when today went wrong.
class RestoreTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    QString m_copy; // of yesterday

    void rename(const QString& name) {
        m_database->another()->execute(u"UPDATE [企業情報] SET [企業名] = '%1'"_qs.arg(name));
    }
    QString name() { return m_database->another()->scalar(nameOf); }
    // The program has closed the office ahead.
    Backup::Proof restore() {
        m_database->connection().close();
        return Restore::run(m_database->settings(), m_copy);
    }
    QString keptNameOfTheOffice() {
        ConnectionSettings kept = m_database->settings();
        (TestDatabase::isPostgres() ? kept.database : kept.path) = Restore::keptName(m_database->settings());
        Connection connection(kept);
        connection.open();
        return connection.scalar(nameOf);
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        rename(u"昨日"_qs);
        m_copy =
            Backup::make(m_database->settings(), m_database->folder(), u"20261121180000"_qs, Backup::Made::ByOperator);
        rename(u"今日"_qs);
    }
    void cleanup() {
        const ConnectionSettings office = m_database->settings();
        m_database.reset();
        if (!TestDatabase::isPostgres()) return;
        for (const QString& left : {Restore::keptName(office), office.database + u"-restore"_qs})
            TestServer::execute(u"DROP DATABASE IF EXISTS \"%1\""_qs.arg(left));
    }

    void yesterdayComesBackAndTodayIsKept() {
        const Backup::Proof proof = restore();
        QCOMPARE(name(), u"昨日"_qs);
        QCOMPARE(keptNameOfTheOffice(), u"今日"_qs);
        const auto now = m_database->another();
        for (qsizetype i = 0; i < proof.tables.size(); ++i)
            QCOMPARE(DatabaseCopy::countOf(*now, proof.tables.at(i)), proof.counts.at(i));
    }

    void issuedKeysGoOnAfterwards() {
        restore();
        const auto now = m_database->another();
        const int highest = now->scalar(u"SELECT MAX([主治医No]) FROM [主治医]"_qs).toInt();
        now->execute(u"INSERT INTO [主治医] ([主治医]) VALUES ('新')"_qs);
        QCOMPARE(now->scalar(u"SELECT MAX([主治医No]) FROM [主治医]"_qs).toInt(), highest + 1);
    }

    void theSettingsStayAsTheyAre() {
        QFile profile(m_database->folder() + u"/Halvane.ini"_qs);
        QVERIFY(profile.open(QIODevice::Append));
        profile.write("[Later]\r\nKey=1\r\n");
        profile.close();
        restore();
        QVERIFY(profile.open(QIODevice::ReadOnly));
        QVERIFY(profile.readAll().contains("[Later]"));
    }

    void aSecondRestoreKeepsWhatItReplaces() {
        restore();
        rename(u"取り直し"_qs);
        restore();
        QCOMPARE(name(), u"昨日"_qs);
        QCOMPARE(keptNameOfTheOffice(), u"取り直し"_qs);
    }

    void whoHasTheOfficeOpenIsNamedAndNothingHappens() {
        OpenMachines machine;
        const auto session = m_database->another();
        if (TestDatabase::isPostgres()) // of another program
            session->engineExecute(u"SET application_name = 'Halvane %1'"_qs.arg(QSysInfo::machineHostName()));
        else
            machine.enter(m_database->settings());
        const QString words = raised([this] { restore(); });
        QVERIFY2(words.contains(u"他の端末で Halvane が開かれているため"_qs), qPrintable(words));
        QVERIFY2(words.contains(QSysInfo::machineHostName()), qPrintable(words));
        QCOMPARE(session->scalar(nameOf), u"今日"_qs);
    }

    void aDamagedCopyLeavesTheOffice() {
        QFile copy(m_copy);
        QVERIFY(copy.resize(copy.size() / 2));
        const QString words = raised([this] { restore(); });
        QVERIFY2(words.contains(QDir::toNativeSeparators(m_copy)), qPrintable(words));
        QCOMPARE(name(), u"今日"_qs);
    }

    void aCopyThatIsGoneIsToldByItsPath() {
        QVERIFY(QFile::remove(m_copy));
        QVERIFY(raised([this] { restore(); }).contains(QDir::toNativeSeparators(m_copy)));
        QCOMPARE(name(), u"今日"_qs);
    }

    void aFullDiskLeavesTheOffice() {
        if (TestDatabase::isPostgres()) QSKIP("The server writes its files itself.");
        {
            const FileLimit limit(200'000);
            QVERIFY(!raised([this] { restore(); }).isEmpty());
        }
        QCOMPARE(name(), u"今日"_qs);
        QVERIFY(!QFile::exists(m_database->settings().path + u"-restore"_qs));
    }

    void aDatabaseThatCannotBeReadAnyMoreIsReplaced() {
        if (TestDatabase::isPostgres()) QSKIP("A server has no file to spoil.");
        m_database->connection().close();
        QFile office(m_database->settings().path);
        QVERIFY(office.open(QIODevice::WriteOnly));
        office.write(QByteArray(10'000, 'x'));
        office.close();
        restore();
        QCOMPARE(name(), u"昨日"_qs);
    }

    // A writer that was killed leaves a journal, which belongs to the database before.
    void aJournalLeftBehindSpoilsNothing() {
        if (TestDatabase::isPostgres()) QSKIP("A server keeps its own.");
        m_database->connection().close();
        QFile journal(m_database->settings().path + u"-journal"_qs);
        QVERIFY(journal.open(QIODevice::WriteOnly));
        journal.write(QByteArray(4096, 'x'));
        journal.close();
        restore();
        QCOMPARE(name(), u"昨日"_qs);
        QCOMPARE(m_database->another()->engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
    }

    void theOfficesFileKeepsItsMode() {
        if (TestDatabase::isPostgres()) QSKIP("A server has no file of ours.");
        const auto mode = QFile::ReadOwner | QFile::WriteOwner;
        QFile::setPermissions(m_database->settings().path, mode);
        restore();
        QCOMPARE(QFile::permissions(m_database->settings().path) &
                     (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
                 QFile::Permissions());
    }
};

HALVANE_TEST(RestoreTest)
#include "RestoreTest.moc"
