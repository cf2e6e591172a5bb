#include "HalvaneTest.h"
#include "db/Connection.h"
#include "support/CutLine.h"
#include "support/Raised.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

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

    static constexpr int patienceWithSilence = 120'000; // milliseconds

    static QString serverSocket() { return TestServer::database({}).path + u"/.s.PGSQL.5432"_qs; }

    QString count() { return m_connection->engineScalar(u"SELECT COUNT(*) FROM kept"_qs); }

    void insertOne() {
        Transaction transaction(*m_connection);
        m_connection->engineExecute(u"INSERT INTO kept VALUES (1)"_qs);
        transaction.commit();
    }

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
        m_line = std::make_unique<CutLine>(serverSocket());
        settings.path = m_line->address();
        settings.timeout = 1;
        m_connection = std::make_unique<Connection>(settings);
        m_connection->open();
        m_connection->prepareNewDatabase();
        m_connection->engineExecute(u"CREATE TABLE kept (value integer)"_qs);
    }

    void cleanup() {
        m_connection.reset();
        m_line.reset();
        TestServer::drop(m_name);
    }

    void aReadingFindsTheServerAgain_data() { cuts(); }
    void aReadingFindsTheServerAgain() {
        QFETCH(CutLine::Cut, cut);
        m_line->cut(cut);
        QCOMPARE(count(), u"0"_qs);
        m_line->cut(cut);
        Recordset rows = m_connection->query(u"SELECT [value] FROM [kept]"_qs);
        QVERIFY(!rows.next());
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

    void aTransactionBeginsWhereTheServerIsFoundAgain_data() { cuts(); }
    void aTransactionBeginsWhereTheServerIsFoundAgain() {
        QFETCH(CutLine::Cut, cut);
        m_line->cut(cut);
        insertOne();
        QCOMPARE(m_connection->transactionDepth(), 0);
        QCOMPARE(count(), u"1"_qs);
    }

    void aTransactionThatCannotBeginIsTold() {
        m_line->take(false);
        m_line->cut(CutLine::Cut::Closed);
        for (int i = 0; i < 2; ++i) {
            QVERIFY(raised([&] { m_connection->begin(); }).startsWith(unreachable));
            QCOMPARE(m_connection->transactionDepth(), 0);
        }
        m_line->take(true);
        insertOne();
        QCOMPARE(count(), u"1"_qs);
    }

    // --- the commit ---

    void aCommitThatArrivedIsDoneThoughItsAnswerIsLost() {
        m_line->cut(CutLine::Cut::CommitAnswer);
        insertOne();
        QCOMPARE(m_connection->transactionDepth(), 0);
        QCOMPARE(count(), u"1"_qs);
    }

    void aCommitThatNeverArrivedIsUndoneAndCanBeTriedAgain_data() {
        QTest::addColumn<CutLine::Cut>("cut");
        QTest::newRow("the server knows") << CutLine::Cut::Commit;
        QTest::newRow("the server still waits for it") << CutLine::Cut::CommitSilently;
    }
    void aCommitThatNeverArrivedIsUndoneAndCanBeTriedAgain() {
        QFETCH(CutLine::Cut, cut);
        m_line->cut(cut);
        QCOMPARE(raised([&] { insertOne(); }), lost);
        QCOMPARE(m_connection->transactionDepth(), 0);
        QCOMPARE(count(), u"0"_qs);
        insertOne(); // behind no lock of the try before
        QCOMPARE(count(), u"1"_qs);
    }

    void aCommitThatCannotBeLookedUpIsInDoubtUntilItCan_data() {
        QTest::addColumn<CutLine::Cut>("cut");
        QTest::addColumn<bool>("stored");
        QTest::newRow("stored") << CutLine::Cut::CommitAnswer << true;
        QTest::newRow("undone") << CutLine::Cut::Commit << false;
    }
    void aCommitThatCannotBeLookedUpIsInDoubtUntilItCan() {
        QFETCH(CutLine::Cut, cut);
        QFETCH(bool, stored);
        m_line->cut(cut);
        m_line->take(false);
        QString sign;
        try {
            insertOne();
        } catch (const CommitInDoubt& doubt) {
            sign = doubt.sign();
        }
        QVERIFY(!sign.isEmpty());
        QCOMPARE(m_connection->transactionDepth(), 0);
        QVERIFY_EXCEPTION_THROWN(m_connection->wasCommitted(sign), CommitInDoubt);
        m_line->take(true);
        QCOMPARE(m_connection->wasCommitted(sign), stored);
        QCOMPARE(count(), stored ? u"1"_qs : u"0"_qs);
    }

    // A statement on its own is a commit, too.
    void aSingleStatementIsLookedUpAsWell() {
        m_connection->createTable(*Schema::table(u"採番"_qs));
        m_line->cut(CutLine::Cut::CommitAnswer);
        QCOMPARE(m_connection->execute(u"INSERT INTO [採番] ([項目名]) VALUES ('a')"_qs), 1);
        QCOMPARE(m_connection->scalar(u"SELECT COUNT(*) FROM [採番]"_qs), u"1"_qs);
    }

    void whileTheServerIsAwayEachCommandSaysSo() {
        m_line->take(false);
        m_line->cut(CutLine::Cut::Closed);
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

    // In a network of the test's own, which is taken away under a transaction for as long as it takes to be noticed.
    void aNetworkThatFellSilentIsToldAndTheNextPressWorks() {
        if (QProcess::execute(u"unshare"_qs, {u"-rn"_qs, u"true"_qs}) != 0)
            QSKIP("this machine gives no network of its own to a test");
        QProcess child;
        child.start(u"unshare"_qs, {u"-rn"_qs, QStringLiteral(HALVANE_SILENT_NETWORK), serverSocket(), m_name});
        QVERIFY(child.waitForFinished(patienceWithSilence));
        QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()), lost + u"\n0\n"_qs);
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
