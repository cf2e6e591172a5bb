#include "HalvaneTest.h"

#include "base/AppError.h"
#include "db/SqlDialect.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"

// The words of both engines, without a database.
class SqlDialectTest : public QObject {
    Q_OBJECT

private:
    SqliteDialect m_file;
    PostgresDialect m_server;

private slots:
    void eachConstructHasItsWords_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("server");
        const auto row = [](const char* name, const QString& statement, const QString& file, const QString& server) {
            QTest::newRow(name) << statement << file << server;
        };
        row("names", u"SELECT * FROM [採番]"_qs, u"SELECT * FROM [採番]"_qs, u"SELECT * FROM \"採番\""_qs);
        row("bare names", u"select 項目名 from 採番"_qs, u"SELECT [項目名] FROM [採番]"_qs,
            u"SELECT \"項目名\" FROM \"採番\""_qs);
        row("one spelling of a name", u"SELECT Id FROM 価格種目"_qs, u"SELECT [ID] FROM [価格種目]"_qs,
            u"SELECT \"ID\" FROM \"価格種目\""_qs);
        row("table and column", u"SELECT 装具.装具No, [装具].* FROM 装具"_qs,
            u"SELECT [装具].[装具No], [装具].* FROM [装具]"_qs,
            u"SELECT \"装具\".\"装具No\", \"装具\".* FROM \"装具\""_qs);
        row("semicolon at the end", u"SELECT * FROM [採番] ;"_qs, u"SELECT * FROM [採番]"_qs,
            u"SELECT * FROM \"採番\""_qs);
        row("alias", u"SELECT count(*) AS CNT FROM [採番]"_qs, u"SELECT COUNT(*) AS [CNT] FROM [採番]"_qs,
            u"SELECT COUNT(*) AS \"CNT\" FROM \"採番\""_qs);
        row("DISTINCTROW", u"SELECT DISTINCTROW [種目] FROM [価格基本]"_qs,
            u"SELECT DISTINCT [種目] FROM [価格基本]"_qs, u"SELECT DISTINCT \"種目\" FROM \"価格基本\""_qs);
        row("order", u"SELECT * FROM [法別] ORDER BY [有効Flg],[順番] DESC ;"_qs,
            u"SELECT * FROM [法別] ORDER BY [有効Flg] ASC, [順番] DESC"_qs,
            u"SELECT * FROM \"法別\" ORDER BY \"有効Flg\" ASC NULLS FIRST, \"順番\" DESC NULLS LAST"_qs);
        row("date", u"SELECT * FROM [顧客情報] WHERE [生年月日] >= #2005/3/1#"_qs,
            u"SELECT * FROM [顧客情報] WHERE [生年月日] >= '2005/03/01'"_qs,
            u"SELECT * FROM \"顧客情報\" WHERE \"生年月日\" >= TIMESTAMP '2005-03-01 00:00:00'"_qs);
        row("date with time", u"SELECT * FROM [顧客情報] WHERE [登録日] = #2005/03/01 9:05:00#"_qs,
            u"SELECT * FROM [顧客情報] WHERE [登録日] = '2005/03/01 09:05:00'"_qs,
            u"SELECT * FROM \"顧客情報\" WHERE \"登録日\" = TIMESTAMP '2005-03-01 09:05:00'"_qs);
        row("text as a date", u"SELECT * FROM [顧客情報] WHERE [生年月日] = '2005/3/1'"_qs,
            u"SELECT * FROM [顧客情報] WHERE [生年月日] = '2005/03/01'"_qs,
            u"SELECT * FROM \"顧客情報\" WHERE \"生年月日\" = TIMESTAMP '2005-03-01 00:00:00'"_qs);
        row("text as a number", u"SELECT * FROM [価格基本] WHERE [ID] = '5'"_qs,
            u"SELECT * FROM [価格基本] WHERE [ID] = 5"_qs, u"SELECT * FROM \"価格基本\" WHERE \"ID\" = 5"_qs);
        row("number as a text", u"SELECT * FROM [採番] WHERE [年度] = 2024"_qs,
            u"SELECT * FROM [採番] WHERE [年度] = '2024'"_qs, u"SELECT * FROM \"採番\" WHERE \"年度\" = '2024'"_qs);
        row("literal ahead of the column", u"SELECT * FROM [採番] WHERE 2024 = [年度] AND '5' < [桁]"_qs,
            u"SELECT * FROM [採番] WHERE '2024' = [年度] AND 5 < [桁]"_qs,
            u"SELECT * FROM \"採番\" WHERE '2024' = \"年度\" AND 5 < \"桁\""_qs);
        row("text against a count", u"SELECT [種目] FROM [価格基本] GROUP BY [種目] HAVING COUNT(*) = '2'"_qs,
            u"SELECT [種目] FROM [価格基本] GROUP BY [種目] HAVING COUNT(*) = 2"_qs,
            u"SELECT \"種目\" FROM \"価格基本\" GROUP BY \"種目\" HAVING COUNT(*) = 2"_qs);
        row("quote in a text", u"SELECT * FROM [採番] WHERE [項目名] = 'O''Neil'"_qs,
            u"SELECT * FROM [採番] WHERE [項目名] = 'O''Neil'"_qs,
            u"SELECT * FROM \"採番\" WHERE \"項目名\" = 'O''Neil'"_qs);
        row("joined texts", u"SELECT [項目名] & '-' & [桁] FROM [採番]"_qs,
            u"SELECT ((COALESCE([項目名], '') || COALESCE('-', '') || (CASE typeof([桁]) WHEN 'real' THEN "
            u"RTRIM(RTRIM(PRINTF('%.10f', [桁]), '0'), '.') ELSE COALESCE([桁], '') END)) COLLATE NOCASE) FROM [採番]"_qs,
            u"SELECT (halvane_text(\"項目名\") || halvane_text('-') || halvane_text(\"桁\"))::citext FROM \"採番\""_qs);
        row("ISNULL and IIF", u"SELECT * FROM [価格部品] WHERE IIF(ISNULL([部品コード]), '', [部品コード]) = 'x'"_qs,
            u"SELECT * FROM [価格部品] WHERE ((CASE WHEN ([部品コード] IS NULL) THEN '' ELSE [部品コード] END) COLLATE NOCASE) = 'x'"_qs,
            u"SELECT * FROM \"価格部品\" WHERE (CASE WHEN (\"部品コード\" IS NULL) THEN '' ELSE \"部品コード\" END)::citext = 'x'"_qs);
        row("largest text", u"SELECT MAX([順番]) FROM [法別]"_qs, u"SELECT (MAX([順番]) COLLATE NOCASE) FROM [法別]"_qs,
            u"SELECT MAX(\"順番\")::citext FROM \"法別\""_qs);
        row("joins in brackets",
            u"SELECT * FROM ([法別請求対応] LEFT JOIN [法別] ON [法別請求対応].[法別No] = [法別].[法別No])"_qs,
            u"SELECT * FROM ([法別請求対応] LEFT JOIN [法別] ON [法別請求対応].[法別No] = [法別].[法別No])"_qs,
            u"SELECT * FROM (\"法別請求対応\" LEFT JOIN \"法別\" ON \"法別請求対応\".\"法別No\" = \"法別\".\"法別No\")"_qs);
        row("IN and BETWEEN", u"SELECT * FROM [法別] WHERE [法別No] IN (2,'3') AND [法別No] NOT BETWEEN 5 AND '7'"_qs,
            u"SELECT * FROM [法別] WHERE [法別No] IN (2, 3) AND [法別No] NOT BETWEEN 5 AND 7"_qs,
            u"SELECT * FROM \"法別\" WHERE \"法別No\" IN (2, 3) AND \"法別No\" NOT BETWEEN 5 AND 7"_qs);
        row("IS NULL", u"SELECT * FROM [法別] WHERE [順番] IS NOT NULL"_qs,
            u"SELECT * FROM [法別] WHERE [順番] IS NOT NULL"_qs,
            u"SELECT * FROM \"法別\" WHERE \"順番\" IS NOT NULL"_qs);
        row("insert", u"INSERT INTO 採番 ([項目名], [桁], [年度]) VALUES ('a', 6, NULL)"_qs,
            u"INSERT INTO [採番] ([項目名], [桁], [年度]) VALUES ('a', 6, NULL)"_qs,
            u"INSERT INTO \"採番\" (\"項目名\", \"桁\", \"年度\") VALUES ('a', 6, NULL)"_qs);
        row("update", u" UPDATE [採番] SET [最終値] = '7' , [年度] = NULL WHERE [項目名] = 'a'"_qs,
            u"UPDATE [採番] SET [最終値] = '7', [年度] = NULL WHERE [項目名] = 'a'"_qs,
            u"UPDATE \"採番\" SET \"最終値\" = '7', \"年度\" = NULL WHERE \"項目名\" = 'a'"_qs);
        row("delete", u"DELETE FROM [採番] WHERE [桁] < -1"_qs, u"DELETE FROM [採番] WHERE [桁] < -1"_qs,
            u"DELETE FROM \"採番\" WHERE \"桁\" < -1"_qs);
        row("drop", u"DROP TABLE [郵便番号簿]"_qs, u"DROP TABLE [郵便番号簿]"_qs, u"DROP TABLE \"郵便番号簿\""_qs);
        row("index", u"CREATE INDEX IDX_PREF  ON 郵便番号簿 (都道府県名)"_qs,
            u"CREATE INDEX [IDX_PREF] ON [郵便番号簿] ([都道府県名] ASC)"_qs,
            u"CREATE INDEX \"IDX_PREF\" ON \"郵便番号簿\" (\"都道府県名\" ASC NULLS FIRST)"_qs);
        row("alter", u" ALTER TABLE [システム設定] ALTER COLUMN [No] INTEGER NOT NULL"_qs, QString(),
            u"ALTER TABLE \"システム設定\" ALTER COLUMN \"No\" TYPE integer USING \"No\"::text::integer, "
            u"ALTER COLUMN \"No\" SET NOT NULL"_qs);
        row("column with the name of another table",
            u"SELECT [処理区分] FROM [顧客見積情報] WHERE [処理区分] = [顧客枝番]"_qs,
            u"SELECT [処理区分] FROM [顧客見積情報] WHERE [処理区分] = [顧客枝番]"_qs,
            u"SELECT \"処理区分\" FROM \"顧客見積情報\" WHERE \"処理区分\" = \"顧客枝番\""_qs);
        row("tables in a list", u"SELECT * FROM [法別] AS a, [採番] WHERE [桁] = '3'"_qs,
            u"SELECT * FROM [法別] AS [a], [採番] WHERE [桁] = 3"_qs,
            u"SELECT * FROM \"法別\" AS \"a\", \"採番\" WHERE \"桁\" = 3"_qs);
        row("arithmetic", u"SELECT [桁] * 2 + '3' FROM [採番]"_qs, u"SELECT [桁] * 2 + 3 FROM [採番]"_qs,
            u"SELECT \"桁\" * 2 + 3 FROM \"採番\""_qs);
    }
    void eachConstructHasItsWords() {
        QFETCH(QString, statement);
        const auto narrow = [](const QString& text) { return text.simplified().replace(u" ,"_qs, u","_qs); };
        QTEST(narrow(m_file.translate(statement)), "file");
        QTEST(narrow(m_server.translate(statement)), "server");
    }

    void likeEscapes_data() {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("server");
        QTest::newRow("plain") << u"%a_%"_qs << u"'%a_%'"_qs << u"'%a_%'"_qs;
        QTest::newRow("percent") << u"50[%]%"_qs << u"'50\\%%' ESCAPE '\\'"_qs << u"'50\\%%'"_qs;
        QTest::newRow("underscore") << u"a[_]"_qs << u"'a\\_' ESCAPE '\\'"_qs << u"'a\\_'"_qs;
        QTest::newRow("bracket") << u"[[]a]"_qs << u"'[a]'"_qs << u"'[a]'"_qs;
        QTest::newRow("sign of two units") << u"[𠮷]%"_qs << u"'𠮷%'"_qs << u"'𠮷%'"_qs;
        QTest::newRow("hyphen") << u"a[-]b"_qs << u"'a-b'"_qs << u"'a-b'"_qs;
        QTest::newRow("backslash") << u"a\\b"_qs << u"'a\\\\b' ESCAPE '\\'"_qs << u"'a\\\\b'"_qs;
        QTest::newRow("quote") << u"a''b"_qs << u"'a''b'"_qs << u"'a''b'"_qs;
    }
    void likeEscapes() {
        QFETCH(QString, pattern);
        const QString statement = u"SELECT * FROM [採番] WHERE [項目名] LIKE '"_qs + pattern + u'\'';
        const auto behindLike = [](const QString& text) { return text.mid(text.indexOf(u"LIKE ") + 5); };
        QTEST(behindLike(m_file.translate(statement)), "file");
        QTEST(behindLike(m_server.translate(statement)), "server");
    }

    void nowIsTheMomentOfEachRun() {
        const QString statement = u"UPDATE [採番] SET [年度] = '1' WHERE NOW() > #2005/01/01#"_qs;
        FixedClock clock(u"2024/03/10 9:05:00"_qs);
        QVERIFY(m_file.translate(statement).contains(u"'2024/03/10 09:05:00' >"));
        QVERIFY(m_server.translate(statement).contains(u"TIMESTAMP '2024-03-10 09:05:00' >"));
        clock.set(u"2024/03/11 0:00:00"_qs);
        QVERIFY(m_file.translate(statement).contains(u"'2024/03/11' >"));
        QVERIFY(m_server.translate(statement).contains(u"TIMESTAMP '2024-03-11 00:00:00' >"));
    }

    void whatCannotBeMeantIsRefusedWithItsPlace_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("position");
        const auto row = [](const QString& statement) {
            QTest::newRow(qUtf8Printable(statement))
                << QString(statement).remove(QChar(u'^')) << int(statement.indexOf(u'^')) + 1;
        };
        row(u"^EXPLAIN SELECT * FROM [採番]"_qs);
        row(u"^"_qs);
        row(u"SELECT * FROM [採番]; ^DROP TABLE [採番]"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = ^'abc'"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = ^#2005/03/01#"_qs);
        row(u"SELECT * FROM [採番] WHERE [年度] = ^#2005/03/01#"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE [生年月日] = ^#2005/02/30#"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE [生年月日] = ^20050301"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE [生年月日] = ^'abc'"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE [名前1] ^= [顧客枝番]"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE [名前1] ^= [生年月日]"_qs);
        row(u"SELECT * FROM [顧客情報] WHERE ^[生年月日] - [登録日] > 3"_qs);
        row(u"SELECT ^[名前1] + 1 FROM [顧客情報]"_qs);
        row(u"SELECT SUM(^[名前1]) FROM [顧客情報]"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] ^LIKE '1%'"_qs);
        row(u"SELECT * FROM [採番] WHERE 'a' ^LIKE 'A%'"_qs);
        row(u"SELECT * FROM [採番] WHERE ('a') ^LIKE 'A%'"_qs);
        row(u"SELECT [桁] ^[年度] FROM [採番]"_qs);
        row(u"SELECT * FROM [採番] WHERE 'a' ^IN (SELECT [項目名] FROM [採番])"_qs);
        row(u"SELECT * FROM [採番] WHERE [項目名] LIKE ^[年度]"_qs);
        row(u"SELECT * FROM [採番] WHERE [項目名] LIKE ^'[a'"_qs);
        row(u"SELECT * FROM [採番] WHERE [項目名] LIKE ^'[a-z]'"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = ^1234567890123456"_qs);
        row(u"SELECT * FROM [採番] ORDER BY ^1"_qs);
        row(u"SELECT * FROM [採番] ORDER BY ^'a'"_qs);
        row(u"SELECT ^SLEEP(5) FROM [採番]"_qs);
        row(u"SELECT MAX(^*) FROM [採番]"_qs);
        row(u"SELECT IIF(^, 1, 2) FROM [採番]"_qs);
        row(u"SELECT * ^INTO"_qs);
        row(u"INSERT INTO 採番 ([項目名]) VALUES ^('a', 'b')"_qs);
        row(u"INSERT INTO 採番 ([年度]) VALUES (^NOW())"_qs);
        row(u"UPDATE [採番] ^WHERE [桁] = 1"_qs);
        row(u"SELECT [桁] & [項目名] ^+ 1 FROM [採番]"_qs);
        row(u"SELECT ^([桁] = 3) & [項目名] FROM [採番]"_qs);
        row(u"SELECT ^[項目名] & ([桁] = 3) FROM [採番]"_qs);
        row(u"SELECT ^ISNULL([桁]) & [項目名] FROM [採番]"_qs);
        row(u"SELECT * FROM [採番] WHERE ^([桁] = 3) & 'x' = '1x'"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = ^0001234567890123456"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = ^0.1234567890123456"_qs);
        row(u"SELECT (^) FROM [採番]"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] =^"_qs);
        row(u"SELECT * FROM [採番] WHERE ([桁] = 1^"_qs);
        row(u"SELECT * FROM [採番] WHERE [桁] = 1^)"_qs);
        row(u"SELECT * FROM [採番] WHERE -1 BETWEEN ^1000 AND (1 & 5)"_qs);
        row(u"SELECT '1' FROM [採番] UNION SELECT [桁] FROM [採番]^"_qs);
        row(u"SELECT [桁], 1 FROM [採番] UNION SELECT [桁], 1 FROM [採番] UNION ALL SELECT [桁], #2005/03/01# FROM [採番]^"_qs);
    }
    void whatCannotBeMeantIsRefusedWithItsPlace() {
        QFETCH(QString, statement);
        QFETCH(int, position);
        for (SqlDialect* dialect : {static_cast<SqlDialect*>(&m_file), static_cast<SqlDialect*>(&m_server)}) {
            const QString words = raised([&] { dialect->translate(statement); });
            QVERIFY2(words.endsWith(u"（位置 %1）"_qs.arg(position)), qUtf8Printable(statement + u" -> "_qs + words));
        }
    }

    // Zeros ahead count for nothing: both engines keep the fifteen digits behind them.
    void numbersKeepTheirFifteenDigitsBehindZeros() {
        for (const QString& number :
             {u"000000123456789012345"_qs, u"0.00123456789012345"_qs, u"-0123456789012345"_qs}) {
            const QString statement = u"SELECT * FROM [採番] WHERE [桁] = "_qs + number;
            for (SqlDialect* dialect : {static_cast<SqlDialect*>(&m_file), static_cast<SqlDialect*>(&m_server)})
                QVERIFY2(dialect->translate(statement).endsWith(u"= "_qs + number), qPrintable(number));
        }
    }

    void deepNestingIsRefusedBeforeItHurts_data() {
        QTest::addColumn<QString>("open");
        QTest::newRow("brackets") << u"("_qs;
        QTest::newRow("selects") << u"(SELECT "_qs;
        QTest::newRow("choices") << u"IIF("_qs;
        QTest::newRow("ISNULL") << u"ISNULL("_qs;
        QTest::newRow("IN") << u"[桁] IN (SELECT "_qs;
        QTest::newRow("sums") << u"SUM("_qs;
    }
    void deepNestingIsRefusedBeforeItHurts() {
        QFETCH(QString, open);
        QVERIFY(!raised([&] { m_file.translate(u"SELECT "_qs + open.repeated(100000)); }).isEmpty());
    }

    void textNeverLeavesItsQuotes_data() {
        QTest::addColumn<QString>("value");
        for (const QString& value :
             {u"'"_qs, u"''"_qs, u"\\'"_qs, u"'; DROP TABLE 採番; --"_qs, u"\"; --"_qs, u"/* */"_qs, u"]"_qs, u"$$"_qs,
              u"%1 %2"_qs, u"NOW()"_qs, u"?"_qs, u":a"_qs, u"#2005/03/01#"_qs, u"\u0001"_qs, u"😀𠮷"_qs})
            QTest::newRow(qUtf8Printable(value)) << value;
    }
    void textNeverLeavesItsQuotes() {
        QFETCH(QString, value);
        const QString quoted = u'\'' + QString(value).replace(u"'"_qs, u"''"_qs) + u'\'';
        const QString statement = u"UPDATE [採番] SET [最終値] = %1"_qs.arg(quoted);
        QCOMPARE(m_file.translate(statement).simplified(), u"UPDATE [採番] SET [最終値] = "_qs + quoted.simplified());
        QCOMPARE(m_server.translate(statement).simplified(),
                 u"UPDATE \"採番\" SET \"最終値\" = "_qs + quoted.simplified());
    }
};

HALVANE_TEST(SqlDialectTest)
#include "SqlDialectTest.moc"
