#include "HalvaneTest.h"
#include "support/Raised.h"

#include "base/Text.h"
#include "db/SqlKeys.h"
#include "db/SqlTokens.h"

#include <random>

namespace {

const SqlColumn name{u"顧客情報"_qs, u"名前1"_qs};
const SqlColumn estimateNumber{u"顧客見積情報"_qs, u"見積番号"_qs};

} // namespace

class SqlTextTest : public QObject {
    Q_OBJECT

private slots:
    void quotesAreDoubled() { QCOMPARE(SqlQuote(u"O'Neil ''"_qs), u"O''Neil ''''"_qs); }

    void likeSignsAreBracketedInOrder() {
        QCOMPARE(SqlQuote(u"50%_[a]-'b"_qs, true), u"50[%][_][[]a][-]''b"_qs);
        QCOMPARE(SqlQuote(u"50%_[a]-'b"_qs, false), u"50%_[a]-''b"_qs);
    }

    void conditionsOfAText() {
        QCOMPARE(SqlStartsWith(u"[名前1]"_qs, u"50%"_qs), u"[名前1] LIKE '50[%]%'"_qs);
        QCOMPARE(SqlContains(u"[名前1]"_qs, u"O'N"_qs), u"[名前1] LIKE '%O''N%'"_qs);
        QCOMPARE(SqlStartsWith(u"[名前1]"_qs, {}), QString());
        QCOMPARE(SqlContains(u"[名前1]"_qs, {}), QString());
    }

    void conditionsThatAskForNothingAreLeftOut() {
        QCOMPARE(SqlAllOf({{}, u"[a] = 1"_qs, {}, u"[b] = 2"_qs}), u"[a] = 1 AND [b] = 2"_qs);
        QCOMPARE(SqlAllOf({{}, {}}), QString());
        QCOMPARE(SqlAnyOf({{}, u"[a] = 1"_qs, u"[b] = 2"_qs}), u"([a] = 1 OR [b] = 2)"_qs);
        QCOMPARE(SqlAnyOf({}), QString());
        QCOMPARE(SqlSelect(u"SELECT 1"_qs, {}), u"SELECT 1"_qs);
        QCOMPARE(SqlSelect(u"SELECT 1"_qs, u"a  "_qs, u"b"_qs), u"SELECT 1 WHERE a ORDER BY b"_qs);
    }

    void readingRangesOfTheKanaButtons_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("filter");
        const auto row = [](const QString& button, const QString& filter) {
            QTest::newRow(qUtf8Printable(button)) << button << filter;
        };
        row(u"あ"_qs, u"[k] >= 'ｱ' AND [k] < 'ｶ'"_qs);
        row(u"か"_qs, u"[k] >= 'ｶ' AND [k] < 'ｻ'"_qs);
        row(u"さ"_qs, u"[k] >= 'ｻ' AND [k] < 'ﾀ'"_qs);
        row(u"た"_qs, u"[k] >= 'ﾀ' AND [k] < 'ﾅ'"_qs);
        row(u"な"_qs, u"[k] >= 'ﾅ' AND [k] < 'ﾊ'"_qs);
        row(u"は"_qs, u"[k] >= 'ﾊ' AND [k] < 'ﾏ'"_qs);
        row(u"ま"_qs, u"[k] >= 'ﾏ' AND [k] < 'ﾔ'"_qs);
        row(u"や"_qs, u"[k] >= 'ﾔ' AND [k] < 'ﾗ'"_qs);
        row(u"ら"_qs, u"[k] >= 'ﾗ' AND [k] < 'ﾜ'"_qs);
        row(u"わ"_qs, u"[k] >= 'ﾜ' AND [k] <= 'ﾝ'"_qs);
        row(u"他"_qs, u"[k] < 'ｱ' OR [k] > 'ﾝ'"_qs);
        row(u"全"_qs, {});
    }
    void readingRangesOfTheKanaButtons() {
        QFETCH(QString, button);
        QTEST(kanaRangeFilter(u"[k]"_qs, button).text(), "filter");
    }

    void termsKnowTheirColumns() {
        const SqlTerm term = SqlAllOf({SqlContains(name, u"山"_qs), SqlStartsWith(estimateNumber, u"2024"_qs)});
        QCOMPARE(term, u"[顧客情報].[名前1] LIKE '%山%' AND [顧客見積情報].[見積番号] LIKE '2024%'"_qs);
        QVERIFY(term.names(name));
        QVERIFY(term.names(estimateNumber));
        QVERIFY(term.names(u"顧客見積情報"_qs));
        QVERIFY(!term.names(u"顧客カルテ"_qs));
        QVERIFY(!term.names({u"顧客情報"_qs, u"名前2"_qs}));
        QVERIFY(!term.namesOnly(u"顧客情報"_qs));
        QVERIFY(SqlContains(name, u"山"_qs).namesOnly(u"顧客情報"_qs));
    }

    void aConditionThatAsksForNothingNamesNothing() {
        QVERIFY(!SqlStartsWith(name, {}).names(name));
        QVERIFY(!SqlTerm(QString()).names(name));
        QVERIFY(!SqlTerm().names(u"顧客情報"_qs));
    }

    void ofATextAloneAnythingMayBeNamed() {
        const SqlTerm term = SqlAllOf({SqlContains(name, u"山"_qs), u"[x] = 1"_qs});
        QVERIFY(term.names(estimateNumber));
        QVERIFY(term.names(u"顧客カルテ"_qs));
        QVERIFY(!term.namesOnly(u"顧客情報"_qs));
    }

    void aSortOrderCountsAColumnOnce() {
        QCOMPARE(SqlSorted({name, estimateNumber, name}, false),
                 u"[顧客情報].[名前1] DESC, [顧客見積情報].[見積番号] DESC"_qs);
        QCOMPARE(SqlSorted({name}, true), u"[顧客情報].[名前1] ASC"_qs);
        QVERIFY(SqlSorted({name}, true).names(name));
    }

    void valuesTakeTheKindOfTheirColumn() {
        QCOMPARE(SqlEqual(name, u"O'N  "_qs), u"[顧客情報].[名前1] = 'O''N'"_qs);
        QCOMPARE(SqlEqual({u"顧客情報"_qs, u"顧客枝番"_qs}, u" 2 "_qs), u"[顧客情報].[顧客枝番] = 2"_qs);
        QCOMPARE(SqlEqual({u"顧客情報"_qs, u"生年月日"_qs}, u"1948/2/11"_qs),
                 u"[顧客情報].[生年月日] = #1948/02/11#"_qs);
        QCOMPARE(SqlOneOf({u"システム設定"_qs, u"No"_qs}, {u"2"_qs, u" 3"_qs}), u"[システム設定].[No] IN (2,3)"_qs);
        for (const auto& [column, value] :
             {std::pair{u"顧客枝番"_qs, u"1 OR 1=1"_qs}, std::pair{u"顧客枝番"_qs, QString()},
              std::pair{u"生年月日"_qs, u"1948/13/01"_qs}})
            QCOMPARE(errorOf([&] { SqlEqual({u"顧客情報"_qs, column}, value); })->number(), 13);
    }

    void aKeyIsThatOfTheSchema() {
        QCOMPARE(SqlKey(u"顧客カルテ"_qs, {u"A1"_qs, u"2"_qs, u"3"_qs}),
                 u"[顧客カルテ].[顧客ID] = 'A1' AND [顧客カルテ].[顧客枝番] = 2 AND [顧客カルテ].[カルテNo] = 3"_qs);
        QCOMPARE(SqlKey(u"顧客カルテ"_qs, {u"A1"_qs}), u"[顧客カルテ].[顧客ID] = 'A1'"_qs);
    }

    void aKeyThatWouldMeanEveryRowIsRefused() {
        QCOMPARE(raised([] { SqlKey(u"顧客情報"_qs, {}); }), u"顧客情報 のキーの値が違います。"_qs);
        QCOMPARE(raised([] {
                     SqlKey(u"顧客情報"_qs, {u"A"_qs, u"1"_qs, u"1"_qs});
                 }),
                 u"顧客情報 のキーの値が違います。"_qs);
        QCOMPARE(raised([] { SqlKey(u"郵便番号簿"_qs, {u"100"_qs}); }), u"郵便番号簿 にはキーがありません。"_qs);
    }

    void tablesAreJoinedByTheKeyOfTheOther() {
        const SqlReference chart{u"顧客見積情報"_qs, u"顧客カルテ"_qs};
        QCOMPARE(chart.leftJoin(u"[顧客見積情報]"_qs),
                 u"([顧客見積情報] LEFT JOIN [顧客カルテ] ON ([顧客見積情報].[顧客ID] = [顧客カルテ].[顧客ID])"
                 u" AND ([顧客見積情報].[顧客枝番] = [顧客カルテ].[顧客枝番])"
                 u" AND ([顧客見積情報].[カルテNo] = [顧客カルテ].[カルテNo]))"_qs);
    }

    // Half of a sign would be read together with the quote behind it.
    void halvesOfSignsBecomeSignsOfTheirOwn() {
        const QString half(QChar(0xD842));
        QCOMPARE(sqlText(u"田"_qs + half), u"'田\uFFFD'"_qs);
        QCOMPARE(SqlStartsWith(u"[名前1]"_qs, half), u"[名前1] LIKE '\uFFFD%'"_qs);
        QCOMPARE(sqlText(u"𠮷"_qs), u"'𠮷'"_qs);
    }

    void fullWidthNumbersAreNumbers() { QCOMPARE(sqlNumber(u"－１２"_qs), u"-12"_qs); }

    // No text, whatever its signs, ends before its quote or takes what stands behind it.
    void anyTextIsOneWordOfAStatement() {
        std::mt19937 random(11);
        for (int round = 0; round < 3000; ++round) {
            QString text;
            for (auto n = random() % 8; n > 0; --n) {
                const bool half = random() % 4 == 0;
                text += random() % 4 == 0
                            ? QChar(u'\'')
                            : QChar(static_cast<char16_t>(half ? 0xD800 + random() % 0x800 : 1 + random() % 0xFFFE));
            }
            const QList<SqlToken> tokens = tokenizeSql(u"a = "_qs + sqlText(text) + u" AND b"_qs);
            QCOMPARE(tokens.size(), 6);
            QCOMPARE(tokens.at(2).kind, SqlToken::String);
            QCOMPARE(tokens.at(2).text, Text::wholeSigns(text));
        }
    }
};

HALVANE_TEST(SqlTextTest)
#include "SqlTextTest.moc"
