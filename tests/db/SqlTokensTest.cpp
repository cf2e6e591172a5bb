#include "HalvaneTest.h"

#include "db/SelectInto.h"
#include "db/SqlTokens.h"
#include "support/Raised.h"

namespace {

// The words of a statement with a letter for their kind: "w:SELECT n:顧客ID".
QString described(const QString& statement) {
    static const QString kinds = u"wnsd#."_qs;
    QStringList words;
    for (const SqlToken& token : tokenizeSql(statement)) {
        if (token.kind == SqlToken::End) break;
        words << QString(kinds.at(token.kind)) + u':' + token.text;
    }
    return words.join(u' ');
}

} // namespace

class SqlTokensTest : public QObject {
    Q_OBJECT

private slots:
    void statementsAreReadAsWords_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("words");
        const auto row = [](const QString& statement, const QString& words) {
            QTest::newRow(qUtf8Printable(statement)) << statement << words;
        };
        row(u"SELECT * FROM [採番]"_qs, u"w:SELECT .:* w:FROM n:採番"_qs);
        row(u"a<>b<=c>=d"_qs, u"w:a .:<> w:b .:<= w:c .:>= w:d"_qs);
        row(u"'it''s'"_qs, u"s:it's"_qs);
        row(u"''"_qs, u"s:"_qs);
        row(u"''''"_qs, u"s:'"_qs);
        row(u"1 1.5 .5 1."_qs, u"d:1 d:1.5 d:.5 d:1."_qs);
        row(u"#2005/03/01#"_qs, u"#:2005/03/01"_qs);
        row(u"[a b]"_qs, u"n:a b"_qs);
        row(u"顧客ID"_qs, u"w:顧客ID"_qs);
        row(u"\tx\r\n y ;"_qs, u"w:x w:y .:;"_qs);
        row(u"'\"%[];--/*'"_qs, u"s:\"%[];--/*"_qs);
        row(QString(), QString());
    }
    void statementsAreReadAsWords() {
        QFETCH(QString, statement);
        QTEST(described(statement), "words");
    }

    void wordsKnowTheirPlace() {
        const QList<SqlToken> tokens = tokenizeSql(u" SELECT  [a]"_qs);
        QCOMPARE(tokens.size(), 3);
        QCOMPARE(tokens.at(0).position, 1);
        QCOMPARE(tokens.at(1).position, 9);
        QCOMPARE(tokens.at(2).position, 12);
        QVERIFY(tokens.at(0).is(u"select"));
        QVERIFY(!tokens.at(1).is(u"a"));
    }

    void unreadableStatementsAreRefusedWithTheirPlace_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("position");
        const auto row = [](const QString& statement, int position) {
            QTest::newRow(qUtf8Printable(statement)) << statement << position;
        };
        row(u"a 'b"_qs, 3);
        row(u"a [b"_qs, 3);
        row(u"a #2005/03/01"_qs, 3);
        row(u"[]"_qs, 1);
        row(u"[a[b]"_qs, 1);
        row(u"[a\"b]"_qs, 1);
        row(u"a \"b\""_qs, 3);
        row(u"a /* b"_qs, 3);
        row(u"a ? b"_qs, 3);
        row(u"a : b"_qs, 3);
        row(u"a \\ b"_qs, 3);
        row(u"a @ b"_qs, 3);
        row(u"a $1"_qs, 3);
        row(u"'a"_qs + QChar(0xD842) + u"'"_qs, 3);
        row(u"a "_qs + QChar(0xDFB7), 3);
        row(u"[𠮷"_qs + QChar(0xD842) + u"]"_qs, 4);
        row(u"12a"_qs, 1);
        row(u"1.2.3"_qs, 1);
        row(u"a　b"_qs, 2);
        row(u"'a"_qs + QChar(u'\0') + u"'"_qs, 3);
        row(u"[a"_qs + QChar(u'\0') + u"]"_qs, 1);
    }
    void unreadableStatementsAreRefusedWithTheirPlace() {
        QFETCH(QString, statement);
        QFETCH(int, position);
        QVERIFY(raised([&] { tokenizeSql(statement); }).endsWith(u"（位置 %1）"_qs.arg(position)));
    }

    void copyStatementIsUnderstood_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("where");
        const QString head = u"SELECT * INTO [a] FROM [;database=/tmp/x y.db].[b]"_qs;
        QTest::newRow("all rows") << head << QString();
        QTest::newRow("semicolon") << head + u';' << QString();
        QTest::newRow("filter") << head + u" WHERE [ID] >9000000"_qs << u"[ID] >9000000"_qs;
        QTest::newRow("filter and semicolon") << head + u" where a = 'b;' ;"_qs << u"a = 'b;' "_qs;
        QTest::newRow("case") << u"select * into a from [;DATABASE=/tmp/x y.db].b"_qs << QString();
    }
    void copyStatementIsUnderstood() {
        QFETCH(QString, statement);
        const auto copy = SelectInto::parse(statement);
        QVERIFY(copy);
        QCOMPARE(copy->target, u"a"_qs);
        QCOMPARE(copy->source, u"b"_qs);
        QCOMPARE(copy->file, u"/tmp/x y.db"_qs);
        QTEST(copy->where, "where");
    }

    void otherStatementsAreNoCopy_data() {
        QTest::addColumn<QString>("statement");
        QTest::newRow("insert") << u"INSERT INTO a (b) VALUES (1)"_qs;
        QTest::newRow("text") << u"SELECT * FROM a WHERE b = 'INTO'"_qs;
        QTest::newRow("columns") << u"SELECT a INTO b FROM c"_qs;
    }
    void otherStatementsAreNoCopy() {
        QFETCH(QString, statement);
        QVERIFY(!SelectInto::parse(statement));
    }

    void copyThatCannotBeReadIsRefused_data() {
        QTest::addColumn<QString>("statement");
        QTest::newRow("no target") << u"SELECT * INTO FROM [;database=x].b"_qs;
        QTest::newRow("no file") << u"SELECT * INTO a FROM b"_qs;
        QTest::newRow("no source") << u"SELECT * INTO a FROM [;database=x]"_qs;
        QTest::newRow("other sign") << u"SELECT * INTO a FROM [database=x].b"_qs;
        QTest::newRow("more words") << u"SELECT * INTO a FROM [;database=x].b c"_qs;
    }
    void copyThatCannotBeReadIsRefused() {
        QFETCH(QString, statement);
        QVERIFY(!raised([&] { SelectInto::parse(statement); }).isEmpty());
    }
};

HALVANE_TEST(SqlTokensTest)
#include "SqlTokensTest.moc"
