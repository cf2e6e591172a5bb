#include "HalvaneTest.h"
#include "db/Connection.h"
#include "support/CutLine.h"
#include "support/Raised.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QDir>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

// A server that goes away in each of its ways, and comes back.
class LostServerTest : public QObject {
    Q_OBJECT

    const QString lost = u"データベースとの接続が切れました。もう一度実行してください。"_qs;
    const QString unreachable = u"データベースに接続できません。"_qs;

    QString m_name;
    std::unique_ptr<CutLine> m_line;
    std::unique_ptr<Connection> m_connection;

    static void cuts() {
        QTest::addColumn<CutLine::Cut>("cut");
        QTest::newRow("closed") << CutLine::Cut::Closed;
        QTest::newRow("reset") << CutLine::Cut::Reset;
        QTest::newRow("answers") << CutLine::Cut::Answers;
    }

    QString count() { return m_connection->engineScalar(u"SELECT COUNT(*) FROM kept"_qs); }

    // What the program's socket of the line is set to.
    int option(int level, int name) const {
        const quint16 port = m_line->address().section(u':', 1).toUShort();
        const QStringList descriptors = QDir(u"/proc/self/fd"_qs).entryList(QDir::Files | QDir::System);
        for (const QString& descriptor : descriptors) {
            sockaddr_in peer{};
            socklen_t size = sizeof peer;
            if (getpeername(descriptor.toInt(), reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
            if (peer.sin_family != AF_INET || ntohs(peer.sin_port) != port) continue;
            int value = 0;
            size = sizeof value;
            if (getsockopt(descriptor.toInt(), level, name, &value, &size) == 0) return value;
        }
        return -1;
    }

private slots:
    void init() {
        m_name = u"lost_server_%1"_qs.arg(QCoreApplication::applicationPid());
        TestServer::create(m_name);
        ConnectionSettings settings = TestServer::database(m_name);
        m_line = std::make_unique<CutLine>(settings.path + u"/.s.PGSQL.5432"_qs);
        settings.path = m_line->address();
        m_connection = std::make_unique<Connection>(settings);
        m_connection->open();
        m_connection->engineExecute(u"CREATE TABLE kept (value integer)"_qs);
    }

    void cleanup() {
        m_connection.reset();
        m_line.reset();
        TestServer::drop(m_name);
    }

    void aReadingIsToldAndTheNextWorks_data() { cuts(); }
    void aReadingIsToldAndTheNextWorks() {
        QFETCH(CutLine::Cut, cut);
        m_line->cut(cut);
        QCOMPARE(raised([&] { count(); }), lost);
        QCOMPARE(count(), u"0"_qs);
    }

    void aTransactionIsUndoneWholeAndTheNextWorks_data() { cuts(); }
    void aTransactionIsUndoneWholeAndTheNextWorks() {
        QFETCH(CutLine::Cut, cut);
        const auto write = [&](const std::function<void()>& meanwhile) {
            Transaction transaction(*m_connection);
            m_connection->engineExecute(u"INSERT INTO kept VALUES (1)"_qs);
            meanwhile();
            m_connection->engineExecute(u"INSERT INTO kept VALUES (2)"_qs);
            transaction.commit();
        };
        QCOMPARE(raised([&] { write([&] { m_line->cut(cut); }); }), lost);
        QCOMPARE(count(), u"0"_qs);
        write([] {});
        QCOMPARE(count(), u"2"_qs);
    }

    void aTransactionThatCannotBeginIsTold_data() { cuts(); }
    void aTransactionThatCannotBeginIsTold() {
        QFETCH(CutLine::Cut, cut);
        m_line->cut(cut);
        QCOMPARE(raised([&] { m_connection->begin(); }), lost);
        QCOMPARE(m_connection->transactionDepth(), 0);
        m_connection->begin();
        m_connection->rollback();
    }

    void whileTheServerIsAwayEachCommandSaysSo() {
        m_line->take(false);
        m_line->cut(CutLine::Cut::Closed);
        QCOMPARE(raised([&] { count(); }), lost);
        for (int i = 0; i < 3; ++i) {
            const QString told = raised([&] { count(); });
            QVERIFY2(told.startsWith(unreachable), qPrintable(told));
            QVERIFY2(!told.section(u'\n', 2).trimmed().isEmpty(), qPrintable(told)); // and why
        }
        m_line->take(true);
        QCOMPARE(count(), u"0"_qs);
    }

    // A server that became the reading side of a pair refuses what is written; its successor stands at the address.
    void aServerThatOnlyReadsIsLeft() {
        m_connection->engineExecute(u"SET default_transaction_read_only = on"_qs);
        const auto write = [&] { m_connection->engineExecute(u"INSERT INTO kept VALUES (1)"_qs); };
        QCOMPARE(raised(write), lost);
        write();
        QCOMPARE(count(), u"1"_qs);
    }

    void aNetworkThatFallsSilentCountsAsCut() {
        QCOMPARE(option(SOL_SOCKET, SO_KEEPALIVE), 1);
        QCOMPARE(option(IPPROTO_TCP, TCP_KEEPIDLE), 5);
        QCOMPARE(option(IPPROTO_TCP, TCP_KEEPINTVL), 3);
        QCOMPARE(option(IPPROTO_TCP, TCP_KEEPCNT), 3);
        QCOMPARE(option(IPPROTO_TCP, TCP_USER_TIMEOUT), 15000);
    }
};

HALVANE_TEST(LostServerTest)
#include "LostServerTest.moc"
