#include "HalvaneTest.h"
#include "db/Connection.h"
#include "support/FileLimit.h"
#include "support/Raised.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// A commit into the file that fails at its last moment.
class FileCommitTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Connection> m_connection;

    ConnectionSettings settings() const { return ConnectionSettings::sqliteFile(m_folder->filePath(u"file.db"_qs)); }

    static QString series(int number) {
        const QString name = QString::number(number).rightJustified(20, u'x');
        return u"INSERT INTO [採番] ([項目名], [最終値]) VALUES ('%1', '1')"_qs.arg(name);
    }
    QString count() { return m_connection->scalar(u"SELECT COUNT(*) FROM [採番]"_qs); }

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile(settings().path).open(QIODevice::WriteOnly));
        m_connection = std::make_unique<Connection>(settings());
        m_connection->open();
        m_connection->createTable(*Schema::table(u"採番"_qs));
    }
    void cleanup() {
        m_connection.reset();
        m_folder.reset();
    }

    // As on a full disk, when the pages go from the memory into the file.
    void withoutRoomLeavesNothingAndCanBeTriedAgain() {
        const qint64 size = QFileInfo(settings().path).size();
        m_connection->begin();
        for (int i = 0; i < 1000; ++i) m_connection->execute(series(i));
        {
            const FileLimit full(static_cast<rlim_t>(size));
            QVERIFY(raised([&] { m_connection->commit(); }).startsWith(u"データベースの処理に失敗しました。"_qs));
            m_connection->rollback();
        }
        QCOMPARE(m_connection->transactionDepth(), 0);
        QCOMPARE(count(), u"0"_qs);
        QCOMPARE(m_connection->execute(series(1)), 1);
        QCOMPARE(m_connection->engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
    }

    void ofAFileThatOthersReadIsToldAndCanBeTriedAgain() {
        m_connection->execute(series(1));
        ConnectionSettings impatient = settings();
        impatient.timeout = 0;
        Connection connection(impatient);
        connection.open();
        Recordset rows = m_connection->query(u"SELECT * FROM [採番]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(raised([&] { connection.execute(series(2)); }),
                 u"データベースは他の端末が使用中です。しばらく待ってから、もう一度実行してください。"_qs);
        QCOMPARE(connection.transactionDepth(), 0);
        rows = Recordset();
        QCOMPARE(count(), u"1"_qs);
        QCOMPARE(connection.execute(series(2)), 1);
    }
};

HALVANE_TEST(FileCommitTest)
#include "FileCommitTest.moc"
