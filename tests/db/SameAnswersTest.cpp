#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "db/SqlText.h"

namespace {

// All rows of a query: fields joined by "," and rows by " ".
QString answer(Connection& connection, const QString& statement) {
    Recordset rows = connection.query(statement);
    QStringList lines;
    while (rows.next()) {
        QStringList fields;
        for (int i = 0; i < rows.fields().size(); ++i) fields << (rows.isNull(i) ? u"NULL"_qs : rows.value(i));
        lines << fields.join(u',');
    }
    return lines.join(u' ');
}

} // namespace

// The two engines answer alike; what stands here holds on each of them.
class SameAnswersTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Empty);
        Connection& connection = m_database->connection();
        // Readings, and a number to tell them by.
        const QStringList readings{u"abc"_qs, u"ABD"_qs, u"Z"_qs,  u"_x"_qs, u"ｱｲ"_qs, u"ｶﾞ"_qs,
                                   u"ﾝ"_qs,   u"ﾞ"_qs,   u"あ"_qs, u"ア"_qs, u"山"_qs, u"Ａ"_qs,
                                   u"ａ"_qs,  u"𠮷"_qs,  u"｡"_qs,  u"é"_qs,  u"É"_qs,  u"1"_qs};
        for (qsizetype i = 0; i < readings.size(); ++i)
            connection.execute(
                u"INSERT INTO 装具 ([装具No], [装具]) VALUES (%1, '%2')"_qs.arg(i + 1).arg(readings.at(i)));
        connection.execute(u"INSERT INTO 装具 ([装具No]) VALUES (90)"_qs);
        connection.execute(u"INSERT INTO 装具 ([装具No], [装具]) VALUES (91, '')"_qs);
        connection.execute(
            u"INSERT INTO 顧客見積情報 ([見積ID], [顧客枝番], [合計], [合計加算], [採型日], [登録日], [見積名称]) "
            u"VALUES ('a', 1, 1234.5, 0.1, #2005/03/01#, #2005/03/01 9:05:00#, '50%_[x]-\\')"_qs);
        connection.execute(
            u"INSERT INTO 顧客見積情報 ([見積ID], [顧客枝番], [合計], [合計加算], [採型日], [登録日], [見積名称]) "
            u"VALUES ('b', 2, 1000, 10, #2005/03/02#, #2005/03/01 23:59:59#, '50 x')"_qs);
        connection.execute(u"INSERT INTO 顧客見積情報 ([見積ID], [顧客枝番], [合計]) VALUES ('c', NULL, -0.0001)"_qs);
    }
    void cleanupTestCase() { m_database.reset(); }

    void answersAreTheseOnEachEngine_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const QString& statement, const QString& expected) {
            QTest::newRow(name) << statement << expected;
        };
        const QString names = u"SELECT [装具] FROM [装具] WHERE "_qs;
        row("order of letters, NULL first", u"SELECT [装具] FROM [装具] ORDER BY [装具]"_qs,
            u"NULL  1 _x abc ABD Z É é あ ア 山 Ａ ａ ｡ ｱｲ ｶﾞ ﾝ ﾞ 𠮷"_qs);
        row("order backwards, NULL last",
            u"SELECT [装具No] FROM [装具] WHERE [装具No] IN (1,3,5,90) ORDER BY [装具] DESC"_qs, u"5 3 1 90"_qs);
        row("equal in any case", names + u"[装具] = 'ABC'"_qs, u"abc"_qs);
        row("case of Latin letters alone", names + u"[装具] = 'é' OR [装具] = 'Ａ' ORDER BY [装具]"_qs, u"é Ａ"_qs);
        row("kana are not the same", names + u"[装具] = 'あ'"_qs, u"あ"_qs);
        row("literal on the left", names + u"'ABC' = [装具]"_qs, u"abc"_qs);
        row("IN in any case", names + u"[装具] IN ('ABC','z') ORDER BY [装具]"_qs, u"abc Z"_qs);
        row("greater than", names + u"[装具] > 'ab' AND [装具] < 'b' ORDER BY [装具]"_qs, u"abc ABD"_qs);
        row("reading range of a button", names + kanaRangeFilter(u"[装具]"_qs, u"あ"_qs).text(), u"ｱｲ"_qs);
        row("last reading range", names + kanaRangeFilter(u"[装具]"_qs, u"わ"_qs).text(), u"ﾝ"_qs);
        row("all other readings",
            names + u"("_qs + kanaRangeFilter(u"[装具]"_qs, u"他"_qs).text() + u") AND [装具No] IN (7,8,9,15,14)"_qs +
                u" ORDER BY [装具No]"_qs,
            u"ﾞ あ 𠮷 ｡"_qs);
        row("LIKE in any case", names + u"[装具] LIKE 'AB%' ORDER BY [装具]"_qs, u"abc ABD"_qs);
        row("LIKE one sign", names + u"[装具] LIKE '_' AND [装具No] IN (3,14,5,16) ORDER BY [装具No]"_qs, u"Z 𠮷 é"_qs);
        row("LIKE underscore itself", names + u"[装具] LIKE '[_]%'"_qs, u"_x"_qs);
        row("NOT LIKE leaves NULL out", names + u"[装具] NOT LIKE '%' OR [装具] NOT LIKE '_%'"_qs, u""_qs);
        row("LIKE all escapes",
            u"SELECT [見積ID] FROM [顧客見積情報] WHERE [見積名称] LIKE '"_qs + SqlQuote(u"50%_[x]-\\"_qs, true) +
                u"'"_qs,
            u"a"_qs);
        row("LIKE escaped percent", u"SELECT [見積ID] FROM [顧客見積情報] WHERE [見積名称] LIKE '50[%]%'"_qs, u"a"_qs);
        row("empty text is not NULL", u"SELECT [装具No] FROM [装具] WHERE [装具] IS NULL"_qs, u"90"_qs);
        row("empty text", u"SELECT [装具No] FROM [装具] WHERE [装具] = ''"_qs, u"91"_qs);
        row("compared with NULL", u"SELECT [装具No] FROM [装具] WHERE [装具] = NULL OR [装具] <> NULL"_qs, u""_qs);
        row("ISNULL", u"SELECT [装具No] FROM [装具] WHERE ISNULL([装具])"_qs, u"90"_qs);
        row("IIF",
            u"SELECT IIF(ISNULL([装具]), 'none', [装具]) FROM [装具] WHERE [装具No] IN (1,90) ORDER BY [装具No]"_qs,
            u"abc none"_qs);
        row("IIF in any case", u"SELECT [装具No] FROM [装具] WHERE IIF(ISNULL([装具]), 'none', 'some') = 'NONE'"_qs,
            u"90"_qs);
        row("IIF of an unknown condition",
            u"SELECT IIF([装具] = 'abc', 1, 2) FROM [装具] WHERE [装具No] IN (1,90) ORDER BY [装具No]"_qs, u"1 2"_qs);
        row("condition as a value", u"SELECT ISNULL([装具]) FROM [装具] WHERE [装具No] IN (1,90) ORDER BY [装具No]"_qs,
            u"0 1"_qs);
        row("joined with NULL",
            u"SELECT [装具] & '-' & [順番] FROM [装具] WHERE [装具No] IN (1,90) ORDER BY [装具No]"_qs, u"abc- -"_qs);
        row("joined text in any case", names + u"([装具] & 'x') = 'ABCX'"_qs, u"abc"_qs);
        row("joined text LIKE", names + u"([装具] & 'x') LIKE 'ABC%'"_qs, u"abc"_qs);
        row("joined amounts", u"SELECT [合計] & '円' FROM [顧客見積情報] ORDER BY [見積ID]"_qs,
            u"1234.5円 1000円 -0.0001円"_qs);
        row("joined sums", u"SELECT SUM([合計]) & '円', COUNT(*) & '件' FROM [顧客見積情報] WHERE [見積ID] < 'c'"_qs,
            u"2234.5円,2件"_qs);
        row("joined dates", u"SELECT [採型日] & '/' & [登録日] FROM [顧客見積情報] WHERE [見積ID] = 'a'"_qs,
            u"2005/03/01/2005/03/01 09:05:00"_qs);
        row("amounts", u"SELECT [合計], [合計加算] FROM [顧客見積情報] ORDER BY [見積ID]"_qs,
            u"1234.5,0.1 1000,10 -0.0001,NULL"_qs);
        row("sum, mean, count",
            u"SELECT SUM([合計]), AVG([顧客枝番]), COUNT([顧客枝番]), COUNT(*) FROM [顧客見積情報]"_qs,
            u"2234.4999,1.5,2,3"_qs);
        row("sum of none",
            u"SELECT SUM([合計]), MAX([見積名称]), COUNT(*) FROM [顧客見積情報] WHERE [見積ID] = 'none'"_qs,
            u"NULL,NULL,0"_qs);
        row("decimal sums", u"SELECT SUM([合計加算]) + SUM([合計加算]) * 2 FROM [顧客見積情報]"_qs, u"30.3"_qs);
        row("dates", u"SELECT [採型日], [登録日] FROM [顧客見積情報] ORDER BY [見積ID]"_qs,
            u"2005/03/01,2005/03/01 9:05:00 2005/03/02,2005/03/01 23:59:59 NULL,NULL"_qs);
        row("date ranges",
            u"SELECT [見積ID] FROM [顧客見積情報] WHERE [登録日] >= #2005/03/01# AND [登録日] < #2005/03/01 12:00:00#"_qs,
            u"a"_qs);
        row("date between",
            u"SELECT [見積ID] FROM [顧客見積情報] WHERE [採型日] BETWEEN #2005/3/1# AND '2005-03-01'"_qs, u"a"_qs);
        row("largest date", u"SELECT MAX([登録日]) AS d FROM [顧客見積情報]"_qs, u"2005/03/01 23:59:59"_qs);
        row("NOW", u"SELECT NOW() AS n FROM [顧客見積情報] WHERE [見積ID] = 'a' AND NOW() > [登録日]"_qs,
            u"2024/03/10 9:05:00"_qs);
        row("largest text in any case",
            u"SELECT MAX([装具]) FROM [装具] WHERE [装具] LIKE 'ab%' HAVING MAX([装具]) = 'abd'"_qs, u"ABD"_qs);
        row("order of the largest text",
            u"SELECT [順番] FROM [装具] WHERE [装具No] = 1 GROUP BY [順番] ORDER BY MAX([装具])"_qs, u"NULL"_qs);
        row("select as a value in any case",
            u"SELECT [装具No] FROM [装具] WHERE (SELECT MIN([見積ID]) FROM [顧客見積情報]) = 'A' AND [装具No] = 1"_qs,
            u"1"_qs);
        row("number of a select against a text",
            u"SELECT [装具No] FROM [装具] WHERE (SELECT COUNT(*) FROM [顧客見積情報]) = '3' AND [装具No] = 1"_qs,
            u"1"_qs);
        row("count against a text",
            u"SELECT [見積ID] FROM [顧客見積情報] GROUP BY [見積ID] HAVING COUNT(*) = '1' ORDER BY [見積ID]"_qs,
            u"a b c"_qs);
        row("arithmetic against a text", u"SELECT [見積ID] FROM [顧客見積情報] WHERE ([顧客枝番] + 1) = '2'"_qs,
            u"a"_qs);
        row("sign ahead of a sum in brackets",
            u"SELECT [見積ID] FROM [顧客見積情報] WHERE (-1 * [合計] + 1) < '-1000' ORDER BY [見積ID]"_qs, u"a"_qs);
        row("sign ahead of a column",
            u"SELECT -[合計], +[合計], - (1 + 1) FROM [顧客見積情報] WHERE -[合計] = '-1000'"_qs, u"-1000,1000,-2"_qs);
        row("distinct in any case", u"SELECT COUNT(DISTINCT [見積名称]) FROM [顧客見積情報]"_qs, u"2"_qs);
        row("EXISTS",
            u"SELECT [見積ID] FROM [顧客見積情報] WHERE EXISTS (SELECT [装具] FROM [装具] WHERE [装具] = [見積ID] & 'bc')"_qs,
            u"a"_qs);
        row("union", u"SELECT [装具] FROM [装具] WHERE [装具No] = 1 UNION SELECT 'abc' FROM [装具]"_qs, u"abc"_qs);
    }
    void answersAreTheseOnEachEngine() {
        FixedClock clock(u"2024/03/10 9:05:00"_qs);
        QFETCH(QString, statement);
        QFETCH(QString, expected);
        QCOMPARE(answer(m_database->connection(), statement), expected);
    }

    // Which of two spellings stays is the engine's affair.
    void unionsKeepOneSpellingOfAText() {
        const QStringList statements{
            u"SELECT 'ABC' FROM [装具] UNION SELECT [装具] FROM [装具] WHERE [装具No] = 1"_qs,
            u"SELECT DISTINCTROW 'ABC' FROM [装具] UNION SELECT [装具] FROM [装具] WHERE [装具No] = 1"_qs,
            u"SELECT IIF([装具No] = 1, 'abc', 'ABC') FROM [装具] UNION SELECT 'Abc' FROM [装具]"_qs};
        for (const QString& statement : statements)
            QCOMPARE(answer(m_database->connection(), statement).toLower(), u"abc"_qs);
    }

    void databaseOfTheOtherLettersIsRefused() {
        if (!TestDatabase::isPostgres()) {
            QCOMPARE(m_database->connection().engineScalar(u"PRAGMA journal_mode"_qs), u"delete"_qs);
            QCOMPARE(m_database->connection().engineScalar(u"PRAGMA synchronous"_qs), u"3"_qs);
            return;
        }
        const bool fits =
            TestServer::scalar(u"SELECT datcollate FROM pg_database WHERE datname = 'template1'"_qs) == u"C";
        Connection connection(TestServer::database(u"template1"_qs));
        QCOMPARE(raised([&] { connection.open(); }).isEmpty(), fits);
    }

private:
    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(SameAnswersTest)
#include "SameAnswersTest.moc"
