#include "HalvaneTest.h"
#include "db/Connection.h"
#include "support/PrivateServer.h"
#include "support/Raised.h"

// The server itself goes, in each of its ways, and comes back.
class ServerRestartTest : public QObject {
    Q_OBJECT

    const QString lost = u"データベースとの接続が切れました。もう一度実行してください。"_qs;
    const QString unreachable = u"データベースに接続できません。"_qs;

    std::unique_ptr<PrivateServer> m_server;
    std::unique_ptr<Connection> m_connection;

    QString count() { return m_connection->engineScalar(u"SELECT COUNT(*) FROM kept"_qs); }

    void write(const std::function<void()>& meanwhile = [] {}) {
        Transaction transaction(*m_connection);
        m_connection->engineExecute(u"INSERT INTO kept VALUES (1)"_qs);
        meanwhile();
        m_connection->engineExecute(u"INSERT INTO kept VALUES (2)"_qs);
        transaction.commit();
    }

    // The server restarts after a kill of one of its processes by itself, and takes its time.
    template <class Work> static void untilItIsBack(Work work) {
        for (int i = 0;; ++i) {
            try {
                return work();
            } catch (const AppError& error) {
                if (i == 1000) throw;
                QTest::qSleep(10);
            }
        }
    }

    std::unique_ptr<Connection> another() {
        auto connection = std::make_unique<Connection>(m_server->database(u"office"_qs));
        connection->open();
        return connection;
    }

private slots:
    void initTestCase() {
        m_server = std::make_unique<PrivateServer>();
        ConnectionSettings settings = m_server->database(u"postgres"_qs);
        settings.administration = true;
        Connection maker(settings);
        maker.open();
        maker.engineExecute(
            u"CREATE DATABASE office TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'"_qs);
    }
    void cleanupTestCase() { m_server.reset(); }

    void init() {
        m_connection = another();
        m_connection->engineExecute(u"DROP TABLE IF EXISTS kept"_qs);
        m_connection->engineExecute(u"CREATE TABLE kept (value integer)"_qs);
    }
    void cleanup() { m_connection.reset(); }

    void startedAnewIsNoMatter_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"stopped", "switched off", "killed"}) QTest::newRow(how) << QString::fromLatin1(how);
    }
    void startedAnewIsNoMatter() {
        QFETCH(QString, how);
        goes(how);
        for (int i = 0; i < 2; ++i) {
            const QString told = raised([&] { count(); });
            QVERIFY2(told.startsWith(unreachable), qPrintable(told));
            QVERIFY2(!told.section(u'\n', 2).trimmed().isEmpty(), qPrintable(told));
        }
        m_server->start();
        QCOMPARE(count(), u"0"_qs);
        write();
        QCOMPARE(count(), u"2"_qs);
    }

    void whileNobodyAskedIsNoMatterEither_data() { startedAnewIsNoMatter_data(); }
    void whileNobodyAskedIsNoMatterEither() {
        QFETCH(QString, how);
        goes(how);
        m_server->start();
        write();
        QCOMPARE(count(), u"2"_qs);
    }

    void underATransactionIsToldAndTheNextWorks_data() { startedAnewIsNoMatter_data(); }
    void underATransactionIsToldAndTheNextWorks() {
        QFETCH(QString, how);
        QCOMPARE(raised([&] {
                     write([&] {
                         goes(how);
                         m_server->start();
                     });
                 }),
                 lost);
        write();
        QCOMPARE(count(), u"2"_qs);
    }

    // All others are thrown out with it, while the server looks after what it has.
    void aProcessOfItKilledIsToldInWords() {
        const qint64 mine = m_connection->engineScalar(u"SELECT pg_backend_pid()"_qs).toLongLong();
        const auto other = another();
        QCOMPARE(raised([&] { write([&] { m_server->killBackEnd(mine); }); }), lost);
        untilItIsBack([&] { write(); });
        QCOMPARE(count(), u"2"_qs);
        QCOMPARE(other->engineScalar(u"SELECT COUNT(*) FROM kept"_qs), u"2"_qs);
    }

    // The pair of servers has changed places, and this one only follows for a while.
    void aStandbyIsReadAndWrittenToOnceItLeads() {
        write();
        m_server->stop(false);
        m_server->becomeStandby();
        m_server->start();
        QCOMPARE(count(), u"2"_qs);
        QCOMPARE(raised([&] { write(); }), lost);
        QCOMPARE(raised([&] { write(); }), lost);
        m_server->promote();
        write();
        QCOMPARE(count(), u"4"_qs);
    }

private:
    void goes(const QString& how) {
        if (how == u"killed")
            m_server->kill();
        else
            m_server->stop(how == u"switched off");
    }
};

HALVANE_TEST(ServerRestartTest)
#include "ServerRestartTest.moc"
