#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "db/SqlText.h"

#include <QElapsedTimer>

#include <functional>
#include <future>
#include <thread>

namespace {

const QString busy = u"データベースは他の端末が使用中です。しばらく待ってから、もう一度実行してください。"_qs;
const QString notBegun = u"トランザクションが開始されていません。"_qs;

QString addSeries(const QString& name) {
    return u"INSERT INTO 採番 ([項目名], [桁], [最終値]) VALUES ('%1', 6, '000000')"_qs.arg(name);
}

QString setSeries(const QString& name, const QString& value) {
    return u"UPDATE [採番] SET [最終値] = '%2' WHERE [項目名] = '%1'"_qs.arg(name, value);
}

QString valueOf(Connection& connection, const QString& name) {
    return connection.scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '%1'"_qs.arg(name));
}

// The names that the tests add.
QString added(Connection& connection) {
    Recordset rows = connection.query(u"SELECT [項目名] FROM [採番] WHERE [項目名] < 'z' ORDER BY [項目名]"_qs);
    QString names;
    while (rows.next()) names += rows.value(0);
    return names;
}

// True while a command stands behind the lock of another one. Only the server tells it.
bool somebodyWaits(const TestDatabase& database) {
    return database.another()->engineScalar(u"SELECT COUNT(*) FROM pg_stat_activity "
                                            u"WHERE datname = current_database() AND wait_event_type = 'Lock'"_qs) !=
           u"0";
}

// A database of another installation, as a file.
QString fileWithPostalCodes(const TestDatabase& database) {
    const QString path = database.folder() + u"/other office.db"_qs;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
    Connection other(ConnectionSettings::sqliteFile(path));
    other.open();
    other.createTable(*Schema::table(u"郵便番号簿"_qs));
    other.createTable(*Schema::table(u"価格部品"_qs));
    other.execute(u"INSERT INTO 郵便番号簿 VALUES ('1000001', '東京都', '千代田区', '千代田')"_qs);
    other.execute(u"INSERT INTO 郵便番号簿 VALUES ('5300001', '大阪府', '大阪市北区', NULL)"_qs);
    other.execute(
        u"INSERT INTO 価格部品 ([ID], [名称], [新価格], [登録日]) VALUES (9000001, '部品''x', 1234.5, #2005/03/01 9:05:00#)"_qs);
    other.execute(u"INSERT INTO 価格部品 ([ID], [名称]) VALUES (1, NULL)"_qs);
    return path;
}

} // namespace

class ConnectionTest : public QObject {
    Q_OBJECT

private slots:
    void readsBackWhatWasWritten() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO 顧客情報 ([顧客ID], [顧客枝番], [名前1], [生年月日], [登録日], [備考]) VALUES "
                           u"('1', 1, '𠮷田''s', #2005/3/1#, #2005/03/01 09:05:00#, NULL)"_qs);
        Recordset rows = connection.query(u"SELECT * FROM [顧客情報]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"名前1"_qs), u"𠮷田's"_qs);
        QCOMPARE(rows.value(u"生年月日"_qs), u"2005/03/01"_qs);
        QCOMPARE(rows.value(u"登録日"_qs), u"2005/03/01 9:05:00"_qs);
        QCOMPARE(rows.value(u"備考"_qs), QString());
        QVERIFY(rows.isNull(u"備考"_qs));
        QVERIFY(!rows.next());
    }

    void sampleOfficeLoads() {
        TestDatabase database(TestDatabase::Contents::Sample);
        Connection& connection = database.connection();
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
        QVERIFY(connection.scalar(u"SELECT SUM([見積総合計]) FROM [顧客見積情報]"_qs).toLongLong() > 0);
        QVERIFY(connection.scalar(u"SELECT COUNT(*) FROM [基本要素選択]"_qs).toInt() > 500);
    }

    void databaseThatIsNotThereIsTold() {
        TestDatabase database(TestDatabase::Contents::Empty);
        ConnectionSettings settings = database.settings();
        settings.path += TestDatabase::isPostgres() ? QString() : u".none"_qs;
        settings.database = u"halvane_none"_qs;
        settings.password = u"secret"_qs;
        Connection connection(settings);
        const QString words = raised([&] { connection.open(); });
        QVERIFY(words.startsWith(u"データベース"_qs));
        QVERIFY(!words.contains(u"secret"_qs));
        QVERIFY(!connection.isOpen());
        QVERIFY(TestDatabase::isPostgres() || !QFile::exists(settings.path));
    }

    void closedConnectionRefusesWork() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.close();
        QCOMPARE(raised([&] { connection.execute(addSeries(u"a"_qs)); }), u"データベースが開かれていません。"_qs);
        connection.open();
        QCOMPARE(connection.execute(addSeries(u"a"_qs)), 1);
    }

    void rowsTouchedAreCounted() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        for (const QString& name : {u"a"_qs, u"b"_qs}) QCOMPARE(connection.execute(addSeries(name)), 1);
        QCOMPARE(connection.execute(u"UPDATE [採番] SET [桁] = 3"_qs), 2);
        QCOMPARE(connection.execute(setSeries(u"none"_qs, u"1"_qs)), 0);
        QCOMPARE(connection.execute(u"DELETE FROM [採番]"_qs), 2);
    }

    void innerRollbackKeepsTheOuterWork() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.begin();
        connection.execute(addSeries(u"a"_qs));
        connection.begin();
        connection.execute(addSeries(u"b"_qs));
        connection.begin();
        connection.execute(addSeries(u"c"_qs));
        QCOMPARE(connection.transactionDepth(), 3);
        connection.commit();
        connection.rollback();
        connection.execute(addSeries(u"d"_qs));
        connection.commit();
        QCOMPARE(connection.transactionDepth(), 0);
        QCOMPARE(added(connection), u"ad"_qs);
    }

    void outerRollbackUndoesInnerCommits() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.begin();
        connection.begin();
        connection.execute(addSeries(u"a"_qs));
        connection.commit();
        QCOMPARE(added(connection), u"a"_qs);
        connection.rollback();
        QCOMPARE(added(connection), QString());
    }

    void guardRollsBackUnlessCommitted() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        QCOMPARE(raised([&] {
                     Transaction outer(connection);
                     connection.execute(addSeries(u"a"_qs));
                     Transaction inner(connection);
                     connection.execute(addSeries(u"b"_qs));
                     throw AppError(u"stop"_qs);
                 }),
                 u"stop"_qs);
        QCOMPARE(connection.transactionDepth(), 0);
        QCOMPARE(added(connection), QString());
    }

    void commitAndRollbackNeedABegin() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        QCOMPARE(raised([&] { connection.commit(); }), notBegun);
        QCOMPARE(raised([&] { connection.rollback(); }), notBegun);
        QCOMPARE(raised([&] { connection.lockForWriting(u"採番"_qs); }), notBegun);
        QCOMPARE(connection.execute(addSeries(u"a"_qs)), 1);
    }

    void afterAFailureATransactionOnlyRollsBack() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.begin();
        connection.execute(addSeries(u"a"_qs));
        QVERIFY(raised([&] { connection.execute(addSeries(u"a"_qs)); }).startsWith(u"同じキーのデータ"_qs));
        const QString words = u"前の処理が失敗したため、続けて実行できません。最初からやり直してください。"_qs;
        QCOMPARE(raised([&] { connection.execute(addSeries(u"b"_qs)); }), words);
        QCOMPARE(raised([&] { connection.query(u"SELECT * FROM [採番]"_qs); }), words);
        QCOMPARE(raised([&] { connection.commit(); }), words);
        connection.rollback();
        QCOMPARE(added(connection), QString());
    }

    void failureInAnInnerLevelEndsWithThatLevel() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        Transaction outer(connection);
        connection.execute(addSeries(u"a"_qs));
        connection.begin();
        connection.execute(addSeries(u"b"_qs));
        QVERIFY(errorOf([&] { connection.execute(addSeries(u"a"_qs)); }));
        connection.rollback();
        connection.execute(addSeries(u"c"_qs));
        outer.commit();
        QCOMPARE(added(connection), u"ac"_qs);
    }

    void refusedStatementLeavesTheTransactionUsable() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        Transaction transaction(connection);
        QVERIFY(errorOf([&] { connection.execute(u"EXPLAIN x"_qs); }));
        connection.execute(addSeries(u"a"_qs));
        transaction.commit();
        QCOMPARE(added(connection), u"a"_qs);
    }

    void onlyADoubledKeyIsToldAsSuch() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.execute(addSeries(u"a"_qs));
        QVERIFY(raised([&] {
                    connection.execute(addSeries(u"A"_qs));
                }).startsWith(u"同じキーのデータが既に登録されています。"_qs));
        QVERIFY(raised([&] {
                    connection.execute(u"INSERT INTO 採番 ([桁]) VALUES (1)"_qs);
                }).startsWith(u"データベースの処理に失敗しました。"_qs));
    }

    void changedTablesComeBackOnRollback() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO 郵便番号簿 VALUES ('1000001', '東京都', '千代田区', '千代田')"_qs);
        connection.begin();
        connection.execute(u"DROP TABLE [郵便番号簿]"_qs);
        QVERIFY(!connection.tableExists(u"郵便番号簿"_qs));
        connection.createTable(*Schema::table(u"郵便番号簿"_qs));
        connection.execute(u"CREATE INDEX IDX_X ON 郵便番号簿 (郵便番号)"_qs);
        connection.execute(u"ALTER TABLE [システム設定] ALTER COLUMN [No] INTEGER NOT NULL"_qs);
        connection.rollback();
        QVERIFY(connection.tableExists(u"郵便番号簿"_qs));
        QCOMPARE(connection.scalar(u"SELECT [町域名] FROM [郵便番号簿]"_qs), u"千代田"_qs);
        connection.execute(u"CREATE INDEX IDX_X ON 郵便番号簿 (郵便番号)"_qs);
    }

    void rowsBeingReadSurviveOtherStatements() {
        TestDatabase database(TestDatabase::Contents::Sample);
        Connection& connection = database.connection();
        const int all = connection.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs).toInt();
        Recordset rows = connection.query(u"SELECT [見積ID] FROM [顧客見積情報] ORDER BY [見積ID]"_qs);
        QVERIFY(rows.next());
        const QString first = rows.value(0);
        Transaction transaction(connection);
        connection.execute(u"DELETE FROM [顧客見積情報]"_qs);
        QCOMPARE(rows.value(0), first);
        Recordset others = connection.query(u"SELECT [見積ID] FROM [顧客見積種目]"_qs);
        QVERIFY(others.next());
        transaction.commit();
        int count = 1;
        while (rows.next()) ++count;
        QCOMPARE(count, all);
        QCOMPARE(rows.position(), qint64(all));
        while (others.next()) ++count;
        QVERIFY(count > all);
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"0"_qs);
    }

    void rowsBeingReadSurviveTheConnection() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        std::unique_ptr<Connection> connection = database.another();
        Recordset rows = connection->query(u"SELECT [処理区分番号] FROM [処理区分] ORDER BY [処理区分番号]"_qs);
        QVERIFY(rows.next());
        connection.reset();
        int more = 0;
        while (rows.next()) ++more;
        QVERIFY(more > 3);
    }

    void unknownFieldIsAnError() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Recordset rows = database.connection().query(u"SELECT [No] FROM [システム設定]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"NO"_qs), rows.value(0));
        QCOMPARE(raised([&] { rows.value(u"設定値"_qs); }), u"項目 設定値 が見つかりません。"_qs);
    }

    void unknownTablesAndColumnsAreErrors() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        QVERIFY(errorOf([&] { connection.query(u"SELECT * FROM [無い表]"_qs); }));
        QVERIFY(errorOf([&] { connection.query(u"SELECT [無い列] FROM [採番]"_qs); }));
        QVERIFY(errorOf([&] { connection.query(u"SELECT 無い列 FROM [採番]"_qs); }));
        QCOMPARE(raised([&] { connection.columns(u"無い表"_qs); }), u"表 無い表 が見つかりません。"_qs);
        QVERIFY(!connection.tableExists(u"無い表"_qs));
    }

    void catalogueIsThatOfTheSchema() {
        TestDatabase database(TestDatabase::Contents::Empty);
        for (const Schema::Table& table : Schema::tables()) {
            const QList<Schema::Column> columns = database.connection().columns(table.name);
            QCOMPARE(columns.size(), table.columns.size());
            for (qsizetype i = 0; i < columns.size(); ++i) {
                QCOMPARE(columns.at(i).name, table.columns.at(i).name);
                QCOMPARE(columns.at(i).type, table.columns.at(i).type);
                QCOMPARE(columns.at(i).size, table.columns.at(i).size);
            }
        }
    }

    void secondWriterWaitsAndIsThenTold() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        ConnectionSettings settings = database.settings();
        ++settings.timeout; // unlike that of others
        Connection second(settings);
        second.open();
        Transaction first(database.connection());
        database.connection().execute(setSeries(u"顧客ID"_qs, u"7"_qs));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(raised([&] {
                     Transaction transaction(second);
                     second.execute(setSeries(u"顧客ID"_qs, u"8"_qs));
                 }),
                 busy);
        QVERIFY(clock.elapsed() >= settings.timeout * 1000);
        first.commit();
        QCOMPARE(second.execute(setSeries(u"顧客ID"_qs, u"9"_qs)), 1);
        QCOMPARE(valueOf(database.connection(), u"顧客ID"_qs), u"9"_qs);
    }

    void secondWriterGoesOnWhenTheFirstIsDone() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Transaction first(database.connection());
        database.connection().execute(setSeries(u"顧客ID"_qs, u"7"_qs));
        QString words;
        std::promise<void> begins;
        std::thread other([&] {
            Connection second(database.settings());
            words = raised([&] { second.open(); });
            begins.set_value();
            words += raised([&] {
                Transaction transaction(second);
                second.execute(setSeries(u"顧客番号"_qs, valueOf(second, u"顧客ID"_qs) + u"1"_qs));
                second.execute(setSeries(u"顧客ID"_qs, u"8"_qs));
                transaction.commit();
            });
        });
        begins.get_future().wait();
        if (TestDatabase::isPostgres()) QTRY_VERIFY_WITH_TIMEOUT(somebodyWaits(database), patience);
        first.commit();
        other.join();
        QCOMPARE(words, QString());
        QCOMPARE(valueOf(database.connection(), u"顧客ID"_qs), u"8"_qs);
    }

    void lockedTableIsWrittenByNobodyElse() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        ConnectionSettings settings = database.settings();
        settings.timeout = 1;
        Connection second(settings);
        second.open();
        Transaction first(database.connection());
        database.connection().lockForWriting(u"採番"_qs);
        QCOMPARE(raised([&] { second.execute(setSeries(u"顧客ID"_qs, u"8"_qs)); }), busy);
        QVERIFY(!valueOf(second, u"顧客ID"_qs).isEmpty());
    }

    void noTimeOutWaitsForNobody() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        ConnectionSettings settings = database.settings();
        settings.timeout = 0;
        Connection second(settings);
        second.open();
        Transaction first(database.connection());
        database.connection().lockForWriting(u"採番"_qs);
        QCOMPARE(raised([&] { second.execute(setSeries(u"顧客ID"_qs, u"8"_qs)); }), busy);
    }

    void failuresOfTheEngineAreToldInOurWords() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        const auto told = [&] {
            return raised([&] {
                Transaction transaction(connection);
                for (int i = 0; i < 4000; ++i)
                    connection.execute(u"INSERT INTO [装具] ([装具No], [装具]) VALUES (%1, '%2')"_qs.arg(i + 1000).arg(
                        QString(100, u'長')));
            });
        };
        const QString head = u"データベースの処理に失敗しました。\n"_qs;
        if (TestDatabase::isPostgres()) {
            const auto raisedBy = [&](const QString& state) {
                return raised([&] {
                    connection.engineExecute(
                        u"DO $$ BEGIN RAISE EXCEPTION 'x' USING ERRCODE = '%1', DETAIL = 'Row (山田)'; END $$"_qs.arg(
                            state));
                });
            };
            QCOMPARE(raisedBy(u"53100"_qs), head + u"ディスクの空き容量がありません。"_qs);
            QCOMPARE(raisedBy(u"58P01"_qs),
                     head + u"データベースのファイルがなくなったか、別のファイルに置き換えられました。"_qs);
            QVERIFY(!raisedBy(u"22000"_qs).contains(u"山田"_qs)); // the log is given this text
            return;
        }
        connection.engineExecute(u"PRAGMA max_page_count = 1"_qs); // no more than it has
        QCOMPARE(told(), head + u"ディスクの空き容量がありません。"_qs);
        connection.engineExecute(u"PRAGMA max_page_count = 1000000"_qs);
        connection.engineExecute(u"PRAGMA query_only = ON"_qs);
        QCOMPARE(told(), head + u"データベースが読み取り専用になっています。"_qs);
        connection.engineExecute(u"PRAGMA query_only = OFF"_qs);
        QVERIFY(QFile::remove(database.settings().path));
        QCOMPARE(told(), head + u"データベースのファイルがなくなったか、別のファイルに置き換えられました。"_qs);
    }

    void textsWithHalvesOfSignsAreStoredAlike() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        const QString text = u"𠮷"_qs + QChar(0xD842) + u"'田"_qs;
        connection.execute(u"INSERT INTO [装具] ([装具No], [装具]) VALUES (1, %1)"_qs.arg(sqlText(text)));
        QCOMPARE(connection.scalar(u"SELECT [装具] FROM [装具]"_qs), u"𠮷\uFFFD'田"_qs);
        QVERIFY(raised([&] {
                    connection.execute(u"UPDATE [装具] SET [装具] = '"_qs + QChar(0xD842) + u"' WHERE [装具No] = 1"_qs);
                }).startsWith(u"SQL文を解釈できません。使えない文字があります。"_qs));
    }

    void copyMakesTheTableOfAnotherFile() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        const QString path = fileWithPostalCodes(database);
        connection.execute(u"DROP TABLE [郵便番号簿]"_qs);
        QCOMPARE(connection.execute(u"SELECT * INTO [郵便番号簿] FROM [;database=%1].[郵便番号簿]"_qs.arg(path)), 2);
        Recordset rows = connection.query(u"SELECT * FROM [郵便番号簿] ORDER BY [郵便番号]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"町域名"_qs), u"千代田"_qs);
        QVERIFY(rows.next());
        QVERIFY(rows.isNull(u"町域名"_qs));
        QVERIFY(!rows.next());
    }

    void copyTakesTheFilteredRowsWithTheirValues() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        const QString path = fileWithPostalCodes(database);
        QCOMPARE(connection.execute(
                     u"SELECT * INTO [価格部品_個別] FROM [;database=%1].[価格部品] where ID >9000000"_qs.arg(path)),
                 1);
        Recordset rows = connection.query(u"SELECT * FROM [価格部品_個別]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"名称"_qs), u"部品'x"_qs);
        QCOMPARE(rows.value(u"新価格"_qs), u"1234.5"_qs);
        QCOMPARE(rows.value(u"登録日"_qs), u"2005/03/01 9:05:00"_qs);
        QVERIFY(rows.isNull(u"旧価格"_qs));
    }

    // Otherwise a text "9:05" would stand behind every later hour.
    void aTimeBeforeTenIsCopiedWithItsZero() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        const QString path = fileWithPostalCodes(database);
        connection.execute(u"SELECT * INTO [価格部品_個別] FROM [;database=%1].[価格部品]"_qs.arg(path));
        const QString found = u"SELECT COUNT(*) FROM [価格部品_個別] WHERE [登録日] "_qs;
        QCOMPARE(connection.scalar(found + u"= #2005/03/01 9:05:00#"_qs), u"1"_qs);
        QCOMPARE(connection.scalar(found + u"> #2005/03/01 10:00:00#"_qs), u"0"_qs);
    }

    void failedCopyLeavesNothing_data() {
        QTest::addColumn<QString>("statement");
        QTest::newRow("no file") << u"SELECT * INTO [価格部品_個別] FROM [;database=%1.none].[価格部品]"_qs;
        QTest::newRow("no such table") << u"SELECT * INTO [価格部品_個別] FROM [;database=%1].[価格加算]"_qs;
        QTest::newRow("bad filter")
            << u"SELECT * INTO [価格部品_個別] FROM [;database=%1].[価格部品] WHERE [無い列] = 1"_qs;
        QTest::newRow("unknown target") << u"SELECT * INTO [無い表] FROM [;database=%1].[価格部品]"_qs;
        QTest::newRow("target stands already") << u"SELECT * INTO [価格部品] FROM [;database=%1].[価格部品]"_qs;
    }
    void failedCopyLeavesNothing() {
        QFETCH(QString, statement);
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        const QString path = fileWithPostalCodes(database);
        QVERIFY(errorOf([&] { connection.execute(statement.arg(path)); }));
        QCOMPARE(connection.transactionDepth(), 0);
        QVERIFY(!connection.tableExists(u"価格部品_個別"_qs));
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [価格部品]"_qs), u"0"_qs);
    }

    void issuedKeysRunOnBehindGivenOnes() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO 主治医 ([主治医No], [主治医コード]) VALUES (41, 'a')"_qs);
        connection.advanceAutoKeys();
        connection.execute(u"INSERT INTO 主治医 ([主治医コード]) VALUES ('b')"_qs);
        QCOMPARE(connection.scalar(u"SELECT [主治医No] FROM [主治医] WHERE [主治医コード] = 'b'"_qs), u"42"_qs);
    }

    void issuedKeysAreNotUsedAgain() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO スタッフ ([従業員]) VALUES ('a')"_qs);
        connection.execute(u"DELETE FROM [スタッフ]"_qs);
        connection.execute(u"INSERT INTO スタッフ ([従業員]) VALUES ('b')"_qs);
        QCOMPARE(connection.scalar(u"SELECT [スタッフNo] FROM [スタッフ]"_qs), u"2"_qs);
    }

    // On the server the connection is cut; on a file, which has no such thing, the file is damaged under the
    // connection.
    void brokenDatabaseIsTold() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        const std::unique_ptr<Connection> connection = database.another();
        const auto breakOff = breaker(database, *connection);
        breakOff();
        const QString words = raised([&] { connection->scalar(u"SELECT COUNT(*) FROM [採番]"_qs); });
        if (!TestDatabase::isPostgres()) {
            QVERIFY(words.startsWith(u"データベースの処理に失敗しました。"_qs));
            return;
        }
        QCOMPARE(words, QString()); // a reading finds the server again by itself
    }

    void transactionOfABrokenDatabaseLeavesNothing() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        const std::unique_ptr<Connection> connection = database.another();
        const auto breakOff = breaker(database, *connection);
        connection->begin();
        connection->execute(addSeries(u"a"_qs));
        if (TestDatabase::isPostgres()) {
            breakOff();
            QCOMPARE(raised([&] { connection->execute(addSeries(u"b"_qs)); }), lost);
            QCOMPARE(raised([&] { connection->execute(addSeries(u"c"_qs)); }), lost);
            QCOMPARE(raised([&] { connection->commit(); }), lost);
            connection->rollback();
        } else {
            connection->close(); // as the end of the program would
            connection->open();
        }
        QCOMPARE(connection->transactionDepth(), 0);
        QCOMPARE(added(*connection), QString());
        QCOMPARE(connection->execute(addSeries(u"d"_qs)), 1);
    }

    void rowsCutOffInTheMiddleAreAnErrorAndNotTheEnd() {
        TestDatabase database(TestDatabase::Contents::Sample);
        const std::unique_ptr<Connection> connection = database.another();
        const auto breakOff = breaker(database, *connection);
        // Far more rows than any buffer on the way holds.
        Recordset rows = connection->query(u"SELECT [顧客見積種目].*, [価格部品].* FROM [顧客見積種目], [価格部品]"_qs);
        for (int i = 0; i < 10; ++i) QVERIFY(rows.next());
        breakOff();
        QVERIFY(!raised([&] {
                     while (rows.next()) {
                     }
                 }).isEmpty());
    }

    // --- what became of a commit ---

    void signOfATransactionTellsWhatBecameOfIt() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        const auto leaveSign = [&] {
            if (TestDatabase::isPostgres()) return connection.engineScalar(u"SELECT pg_current_xact_id()"_qs);
            connection.engineExecute(u"PRAGMA user_version = 4711"_qs);
            return u"4711"_qs;
        };
        connection.begin();
        const QString undone = leaveSign();
        connection.rollback();
        QVERIFY(!connection.wasCommitted(undone));
        connection.begin();
        const QString done = leaveSign();
        if (TestDatabase::isPostgres())
            connection.commit();
        else
            connection.engineExecute(u"COMMIT"_qs); // the commit of the class would leave another sign
        connection.close();
        connection.open();
        QVERIFY(connection.wasCommitted(done));
    }

    void commandTriesAgainWhenComingBackFailed() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        const std::unique_ptr<Connection> connection = database.another();
        if (!TestDatabase::isPostgres()) {
            const QString path = database.settings().path;
            connection->close();
            QVERIFY(QFile::rename(path, path + u".away"_qs));
            QVERIFY(raised([&] { connection->open(); }).startsWith(u"データベースが見つかりません。"_qs));
            QVERIFY(QFile::rename(path + u".away"_qs, path));
            connection->open();
        } else {
            const QString name = database.settings().database;
            const auto breakOff = breaker(database, *connection);
            breakOff();
            TestServer::execute(u"ALTER DATABASE %1 ALLOW_CONNECTIONS false"_qs.arg(name));
            for (int i = 0; i < 2; ++i)
                QVERIFY(raised([&] {
                            connection->scalar(u"SELECT COUNT(*) FROM [採番]"_qs);
                        }).startsWith(u"データベースに接続できません。"_qs));
            TestServer::execute(u"ALTER DATABASE %1 ALLOW_CONNECTIONS true"_qs.arg(name));
        }
        QVERIFY(connection->scalar(u"SELECT COUNT(*) FROM [採番]"_qs).toInt() > 0);
    }

private:
    const QString lost = u"データベースとの接続が切れました。もう一度実行してください。"_qs;

    static std::function<void()> breaker(TestDatabase& database, Connection& connection) {
        if (TestDatabase::isPostgres()) {
            const QString id = connection.engineScalar(u"SELECT pg_backend_pid()"_qs);
            return [&database, id] {
                database.connection().engineExecute(u"SELECT pg_terminate_backend(%1, %2)"_qs.arg(id).arg(patience));
            };
        }
        return [path = database.settings().path] {
            QFile file(path);
            if (!file.open(QIODevice::ReadWrite)) qFatal("no file");
            const qint64 size = file.size();
            file.write(QByteArray(size, '\xee'));
        };
    }
};

HALVANE_TEST(ConnectionTest)
#include "ConnectionTest.moc"
