#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "db/clsSQLMaker.h"

namespace {

clsSQLMaker sqlOf(TestDatabase& database, const QString& table) {
    clsSQLMaker sql;
    sql.Prepare(database.connection(), table);
    return sql;
}

// The first so many characters, one of two units counting once, without blanks behind.
QString asCut(const QString& value, int size) {
    const std::u32string characters = value.toStdU32String();
    QString cut = size > 0 ? QString::fromStdU32String(characters.substr(0, static_cast<size_t>(size))) : value;
    while (cut.endsWith(u' ')) cut.chop(1);
    return cut;
}

} // namespace

class clsSQLMakerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered); }
    void cleanupTestCase() { m_database.reset(); }

    void insertNamesItsColumnsInOrder() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番  "_qs);
        sql.AddData(u"項目名"_qs, u"O'Neil  "_qs);
        sql.AddData(u"桁"_qs, u" 6 "_qs);
        sql.AddData(u"年度"_qs, u"   "_qs);
        QCOMPARE(sql.GetSqlForInsert(), u"INSERT INTO 採番 ([項目名], [桁], [年度]) VALUES ('O''Neil', 6, NULL)"_qs);
    }

    void insertStampsBothDates() {
        clsSQLMaker sql = sqlOf(*m_database, u"顧客カルテ"_qs);
        sql.AddData(u"顧客ID"_qs, u"1"_qs);
        const QString expected = u"INSERT INTO 顧客カルテ ([顧客ID], [登録日], [更新日]) VALUES ('1', NOW(), NOW())"_qs;
        QCOMPARE(sql.GetSqlForInsert(), expected);
        QCOMPARE(sql.GetSqlForInsert(), expected);
    }

    void givenStampIsKept() {
        clsSQLMaker sql = sqlOf(*m_database, u"顧客カルテ"_qs);
        sql.AddData(u"更新日"_qs, u"2005/03/01"_qs);
        QCOMPARE(sql.GetSqlForInsert(), u"INSERT INTO 顧客カルテ ([更新日], [登録日]) VALUES (#2005/03/01#, NOW())"_qs);
    }

    void updateStampsTheChangeOnly() {
        clsSQLMaker sql = sqlOf(*m_database, u"顧客カルテ"_qs);
        sql.AddData(u"備考"_qs, u""_qs);
        sql.AddKey(u"カルテNo"_qs, u"3"_qs);
        sql.AddKey(u"顧客ID"_qs, u"O'N"_qs);
        const QString expected =
            u"UPDATE 顧客カルテ SET [備考] = NULL, [更新日] = NOW() WHERE [カルテNo] = 3 AND [顧客ID] = 'O''N'"_qs;
        QCOMPARE(sql.GetSqlForUpdate(), expected);
        QCOMPARE(sql.GetSqlForUpdate(), expected);
    }

    void tableWithoutStampsGetsNone() {
        clsSQLMaker sql = sqlOf(*m_database, u"スタッフ"_qs);
        sql.AddData(u"従業員"_qs, u"a"_qs);
        QCOMPARE(sql.GetSqlForInsert(), u"INSERT INTO スタッフ ([従業員]) VALUES ('a')"_qs);
    }

    void selectWithAndWithoutColumnsAndKeys() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番"_qs);
        QCOMPARE(sql.GetSqlForSelect(), u"SELECT * FROM 採番"_qs);
        sql.AddKey(u"年度"_qs, u"  "_qs);
        QCOMPARE(sql.GetSqlForSelect(), u"SELECT * FROM 採番 WHERE [年度] IS NULL"_qs);
        sql.AddData(u"桁"_qs, {});
        sql.AddData(u"項目名"_qs, {});
        QCOMPARE(sql.GetSqlForSelect(), u"SELECT [桁], [項目名] FROM 採番 WHERE [年度] IS NULL"_qs);
        sql.RemoveAll();
        QCOMPARE(sql.GetSqlForSelect(), u"SELECT * FROM 採番"_qs);
    }

    void updateAndDeleteWithoutAKeyAreRefused() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番"_qs);
        sql.AddData(u"桁"_qs, u"1"_qs);
        const auto update = errorOf([&] { sql.GetSqlForUpdate(); });
        const auto removal = errorOf([&] { sql.GetSqlForDelete(); });
        QVERIFY(update && removal);
        QCOMPARE(update->description(), u"安全のため全件の更新には対応していません。"_qs);
        QCOMPARE(removal->description(), u"安全のため全件の削除には対応していません。"_qs);
        QCOMPARE(update->number(), 0x80040201);
        QCOMPARE(removal->number(), 0x80040201);
    }

    void blankKeyIsAKey() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番"_qs);
        sql.AddKey(u"年度"_qs, u" "_qs);
        QCOMPARE(sql.GetSqlForDelete(), u"DELETE FROM 採番 WHERE [年度] IS NULL"_qs);
    }

    void updateWithABlankKeyChangesOnlyRowsWhoseKeyIsNull() {
        TestDatabase database(TestDatabase::Contents::Empty);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO 採番 ([項目名], [年度]) VALUES ('a', NULL)"_qs);
        connection.execute(u"INSERT INTO 採番 ([項目名], [年度]) VALUES ('b', '2024')"_qs);
        connection.execute(u"INSERT INTO 採番 ([項目名], [年度]) VALUES ('c', '')"_qs);
        clsSQLMaker sql = sqlOf(database, u"採番"_qs);
        sql.AddData(u"最終値"_qs, u"x"_qs);
        sql.AddKey(u"年度"_qs, u"   "_qs);
        QCOMPARE(connection.execute(sql.GetSqlForUpdate()), 1);
        QCOMPARE(connection.scalar(u"SELECT [項目名] FROM [採番] WHERE [最終値] = 'x'"_qs), u"a"_qs);
    }

    void valuesAreWrittenAfterTheirColumn_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("data");
        QTest::addColumn<QString>("key");
        const auto row = [](const char* name, const QString& column, const QString& value, const QString& data,
                            const QString& key) { QTest::newRow(name) << column << value << data << key; };
        row("blank text", u"見積名称"_qs, u"  "_qs, u"NULL"_qs, u"IS NULL"_qs);
        row("blank date", u"採型日"_qs, u"  "_qs, u"NULL"_qs, u"IS NULL"_qs);
        row("blank number", u"処理区分"_qs, u"  "_qs, u"NULL"_qs, u"IS NULL"_qs);
        row("null text", u"見積名称"_qs, {}, u"NULL"_qs, u"IS NULL"_qs);
        row("ideographic blank is text", u"見積名称"_qs, u"　"_qs, u"'　'"_qs, u"= '　'"_qs);
        row("leading blanks stay", u"見積名称"_qs, u"  a "_qs, u"'  a'"_qs, u"= '  a'"_qs);
        row("date", u"採型日"_qs, u"2005/3/1 "_qs, u"#2005/3/1#"_qs, u"= #2005/3/1#"_qs);
        row("date with time", u"採型日"_qs, u"2005/03/01 9:05:00"_qs, u"#2005/03/01 9:05:00#"_qs,
            u"= #2005/03/01 9:05:00#"_qs);
        row("whole number", u"処理区分"_qs, u"007"_qs, u"7"_qs, u"= 7"_qs);
        row("number with decimals", u"耐用年数"_qs, u"1.5"_qs, u"1.5"_qs, u"= 1.5"_qs);
        row("plus", u"耐用年数"_qs, u"+2"_qs, u"2"_qs, u"= 2"_qs);
        row("rounded to a whole", u"処理区分"_qs, u"2.5"_qs, u"2"_qs, u"= 2"_qs);
        row("amount", u"合計"_qs, u"-1234.56789"_qs, u"-1234.5679"_qs, u"= -1234.5679"_qs);
        row("memo", u"備考"_qs, u"a'b\nc"_qs, u"'a''b\nc'"_qs, u"= 'a''b\nc'"_qs);
        row("column not in the catalogue", u"無い列"_qs, u"7"_qs, u"'7'"_qs, u"= '7'"_qs);
    }
    void valuesAreWrittenAfterTheirColumn() {
        QFETCH(QString, column);
        QFETCH(QString, value);
        QFETCH(QString, data);
        QFETCH(QString, key);
        clsSQLMaker sql = sqlOf(*m_database, u"顧客見積情報"_qs);
        sql.AddData(column, value);
        sql.AddKey(column, value);
        QCOMPARE(sql.GetSqlForUpdate(),
                 u"UPDATE 顧客見積情報 SET [%1] = %2, [更新日] = NOW() WHERE [%1] %3"_qs.arg(column, data, key));
    }

    void lettersOfNowAnywhereMeanTheCurrentTime_data() {
        QTest::addColumn<QString>("value");
        for (const char* value : {"now", "NOW", "snowfall", " Now() "})
            QTest::newRow(value) << QString::fromUtf8(value);
    }
    void lettersOfNowAnywhereMeanTheCurrentTime() {
        QFETCH(QString, value);
        clsSQLMaker sql = sqlOf(*m_database, u"顧客情報"_qs);
        sql.AddData(u"生年月日"_qs, value);
        QVERIFY(sql.GetSqlForInsert().contains(u"VALUES (NOW(), NOW(), NOW())"_qs));
        sql.AddKey(u"生年月日"_qs, value);
        QVERIFY(errorOf([&] { sql.GetSqlForSelect(); }));
    }

    void valueThatDoesNotFitItsColumnIsRefused_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("value");
        QTest::addColumn<qint64>("number");
        QTest::newRow("letters as a number") << u"処理区分"_qs << u"abc"_qs << qint64(13);
        QTest::newRow("statement as a number") << u"処理区分"_qs << u"1; DROP TABLE 採番"_qs << qint64(13);
        QTest::newRow("separators") << u"合計"_qs << u"1,234"_qs << qint64(13);
        QTest::newRow("letters as a decimal") << u"耐用年数"_qs << u"1e5"_qs << qint64(13);
        QTest::newRow("beyond 32 bits") << u"処理区分"_qs << u"2147483648"_qs << qint64(6);
        QTest::newRow("letters as a date") << u"採型日"_qs << u"abc"_qs << qint64(13);
        QTest::newRow("no such day") << u"採型日"_qs << u"2005/02/29"_qs << qint64(13);
        QTest::newRow("statement as a date") << u"採型日"_qs << u"2005/02/01# OR #2005/02/01"_qs << qint64(13);
    }
    void valueThatDoesNotFitItsColumnIsRefused() {
        QFETCH(QString, column);
        QFETCH(QString, value);
        QFETCH(qint64, number);
        clsSQLMaker sql = sqlOf(*m_database, u"顧客見積情報"_qs);
        sql.AddData(column, value);
        sql.AddKey(column, value);
        for (const auto& make : {std::function([&] { return sql.GetSqlForInsert(); }),
                                 std::function([&] { return sql.GetSqlForUpdate(); }),
                                 std::function([&] { return sql.GetSqlForDelete(); })}) {
            const auto error = errorOf(make);
            QVERIFY(error);
            QCOMPARE(error->number(), number);
        }
    }

    void columnNamesAreFoundInAnyCase() {
        clsSQLMaker sql = sqlOf(*m_database, u"価格種目"_qs);
        sql.AddKey(u"Id"_qs, u"5"_qs);
        QCOMPARE(sql.GetSqlForSelect(), u"SELECT * FROM 価格種目 WHERE [Id] = 5"_qs);
        QCOMPARE(m_database->connection().scalar(sql.GetSqlForSelect()), QString());
    }

    void tableThatIsNotThereIsTold() {
        QCOMPARE(raised([&] { sqlOf(*m_database, u"無い表"_qs); }), u"表 無い表 が見つかりません。"_qs);
    }

    void moreThanAHundredColumnsFit() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番"_qs);
        for (int i = 0; i < 250; ++i) sql.AddData(u"c%1"_qs.arg(i), u"%1"_qs.arg(i));
        QVERIFY(sql.GetSqlForInsert().contains(u"[c249]"_qs));
        QVERIFY(sql.GetSqlForInsert().endsWith(u", '249')"_qs));
    }

    void whatIsTypedComesBackFromEveryTextColumn_data() {
        QTest::addColumn<QString>("value");
        const auto row = [](const char* name, const QString& value) { QTest::newRow(name) << value; };
        row("single quote", u"'"_qs);
        row("quotes", u"O'Neil's \"x\" ''"_qs);
        row("LIKE signs", u"50% _[a] [[] [%]"_qs);
        row("backslash", u"C:\\'a\\\\\""_qs);
        row("statement", u"'; DELETE FROM 採番; --"_qs);
        row("remarks", u"/* -- # */ #2005/03/01#"_qs);
        row("emoji", u"😀👍🏽"_qs);
        row("characters of two units", u"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷"_qs);
        row("two units across the cut", u"a"_qs + u"𠮷"_qs.repeated(120));
        row("control sign", u"a\u0001b"_qs);
        row("line breaks", u"a\r\nb\tc"_qs);
        row("blanks inside and behind", u"a   b      "_qs);
        row("blank at the cut", u"abc 　 x　"_qs + u" x"_qs.repeated(200));
        row("long", u"表示能ソ"_qs.repeated(100));
        row("word NOW", u"now"_qs);
        row("word NULL", u"NULL"_qs);
        row("placeholders", u"%1 %2 ? :a $1"_qs);
        row("date text", u"2005/03/01"_qs);
    }
    void whatIsTypedComesBackFromEveryTextColumn() {
        QFETCH(QString, value);
        Connection& connection = m_database->connection();
        connection.begin();
        for (const Schema::Table& table : Schema::tables()) {
            connection.execute(u"DELETE FROM [%1]"_qs.arg(table.name));
            clsSQLMaker sql = sqlOf(*m_database, table.name);
            for (const Schema::Column& column : table.columns) {
                if (column.isText())
                    sql.AddData(column.name, value);
                else if (table.key.contains(column.name))
                    sql.AddData(column.name, u"1"_qs);
            }
            QCOMPARE(connection.execute(sql.GetSqlForInsert()), 1);
            compareTexts(table, sql, value);
        }
        connection.rollback();
        QVERIFY(connection.scalar(u"SELECT COUNT(*) FROM [採番]"_qs).toInt() > 0);
    }

    void textWithAZeroSignIsRefused() {
        clsSQLMaker sql = sqlOf(*m_database, u"採番"_qs);
        sql.AddData(u"項目名"_qs, u"a"_qs + QChar(u'\0') + u"b"_qs);
        QVERIFY(errorOf([&] { m_database->connection().execute(sql.GetSqlForInsert()); }));
    }

private:
    // The row's texts, and the row found by them.
    void compareTexts(const Schema::Table& table, clsSQLMaker& sql, const QString& value) {
        sql.RemoveAll();
        for (const Schema::Column& column : table.columns)
            if (column.isText()) sql.AddKey(column.name, asCut(value, column.size));
        Recordset rows = m_database->connection().query(sql.GetSqlForSelect());
        QVERIFY2(rows.next(), qUtf8Printable(table.name));
        for (const Schema::Column& column : table.columns)
            if (column.isText()) QCOMPARE(rows.value(column.name), asCut(value, column.size));
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(clsSQLMakerTest)
#include "clsSQLMakerTest.moc"
