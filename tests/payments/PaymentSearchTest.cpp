#include "HalvaneTest.h"

#include "payments/PaymentRows.h"
#include "payments/PaymentSearch.h"
#include "payments/PaymentWords.h"

class PaymentSearchTest : public QObject {
    Q_OBJECT

private:
    static QList<clsProcKbn> statuses(const QStringList& numbers) {
        QList<clsProcKbn> all;
        for (const QString& number : numbers) all << clsProcKbn{number, {}, {}};
        return all;
    }

private slots:
    void allFourExclusionsAreJoinedByOrInTheirOrder() {
        QCOMPARE(withoutLaws(excludedLaws(u"1111"_qs)).text(),
                 u"[顧客見積情報].[顧客ID] NOT IN (SELECT [顧客保険].[顧客ID] FROM [顧客保険] WHERE "
                 u"[顧客保険].[法別No] = 14 OR [顧客保険].[法別No] = 10 OR [顧客保険].[法別No] = 9 OR "
                 u"[顧客保険].[法別No] = 11)"_qs);
    }

    void theBoxesStandForTheirLaws_data() {
        QTest::addColumn<QString>("ticks");
        QTest::addColumn<QStringList>("laws");
        QTest::newRow("none") << u"0000"_qs << QStringList();
        QTest::newRow("never kept") << QString() << QStringList();
        QTest::newRow("労災") << u"1000"_qs << QStringList{u"14"_qs};
        QTest::newRow("生保 and 身障") << u"0101"_qs << QStringList{u"10"_qs, u"11"_qs};
        QTest::newRow("more than the boxes") << u"00101"_qs << QStringList{u"9"_qs};
        QTest::newRow("no ticks at all") << u"xyz"_qs << QStringList();
    }
    void theBoxesStandForTheirLaws() {
        QFETCH(QString, ticks);
        QTEST(excludedLaws(ticks), "laws");
    }

    void nothingAskedLeavesOutWhatIsPaid() {
        QCOMPARE(noPayCondition({}).text(), u"[顧客見積情報].[処理区分] <> 1"_qs);
        QCOMPARE(paidCondition({}).text(), u"[顧客見積情報].[処理区分] = 1"_qs);
    }

    void theEntryForAllStatusesLeavesOutWhatNeverComes() {
        PaymentSearch search;
        search.Status = u"9"_qs;
        search.allStatuses = true;
        QCOMPARE(noPayCondition(search).text(),
                 u"[顧客見積情報].[処理区分] <> 1 AND [顧客見積情報].[処理区分] <> 99 AND "
                 u"[顧客見積情報].[処理区分] <= 9"_qs);
        search.allStatuses = false;
        QCOMPARE(noPayCondition(search).text(), u"[顧客見積情報].[処理区分] <> 1 AND [顧客見積情報].[処理区分] = 9"_qs);
    }

    void allStatusesIsTheLargestNumberBelowTheUncollected() {
        const QList<clsProcKbn> known = statuses({u"2"_qs, u"9"_qs, u"99"_qs});
        QVERIFY(meansAllStatuses(u"9"_qs, known));
        QVERIFY(!meansAllStatuses(u"99"_qs, known));
        QVERIFY(!meansAllStatuses(u"2"_qs, known));
        QVERIFY(meansAllStatuses(u"10"_qs, statuses({u"9"_qs, u"10"_qs})));
        QVERIFY(!meansAllStatuses({}, {}));
    }

    void everyFieldNarrows() {
        const PaymentSearch search{u"10'"_qs, u"50%"_qs, u"2026/04/01"_qs, u"2026/04/30"_qs, {}, false, u"1000"_qs};
        QCOMPARE(paidCondition(search).text(),
                 u"[顧客見積情報].[処理区分] = 1 AND [顧客見積情報].[入金完了日] >= #2026/04/01# AND "
                 u"[顧客見積情報].[入金完了日] <= #2026/04/30# AND [受注先].[受注先コード] LIKE '10''%' AND "
                 u"[顧客カルテ].[受注先] LIKE '%50[%]%' AND [顧客見積情報].[顧客ID] NOT IN (SELECT "
                 u"[顧客保険].[顧客ID] FROM [顧客保険] WHERE [顧客保険].[法別No] = 14)"_qs);
    }

    void thePaidFileWithoutStatusTakesAllThatIsPaid() {
        PaymentSearch search;
        QCOMPARE(paidCondition(search).text(), u"[顧客見積情報].[処理区分] = 1"_qs);
        search.Status = u"1"_qs;
        QCOMPARE(paidCondition(search).text(), u"[顧客見積情報].[処理区分] = 1"_qs);
    }

    void withoutAnOrderTheListHasItsOwn() {
        QCOMPARE(paymentOrder().text(),
                 u"[顧客見積情報].[完成実績日], [顧客見積情報].[処理区分] DESC, [顧客情報].[顧客番号], "
                 u"[顧客見積情報].[顧客ID] DESC, [顧客見積情報].[顧客枝番] DESC, [顧客見積情報].[見積ID]"_qs);
        QCOMPARE(paymentOrder(SqlColumn{u"処理区分"_qs, u"処理区分"_qs}).text(),
                 u"[処理区分].[処理区分], [顧客見積情報].[見積ID]"_qs);
    }

    void withoutAnyConditionThereIsNoWhere() {
        QVERIFY(!PaymentRows::keys({}, {}).contains(u"WHERE"));
        QVERIFY(PaymentRows::keys(paidCondition({}), {}).contains(u" WHERE [顧客見積情報].[処理区分] = 1"));
    }

    void aPeriodIsToldWithItsEnds() {
        QCOMPARE(periodOnPaper(u"2026/04/01"_qs, u"2026/04/30"_qs), u"2026年04月01日から2026年04月30日まで"_qs);
        QCOMPARE(periodOnPaper({}, u"2026/04/30"_qs), u"2026年04月30日まで"_qs);
        QCOMPARE(periodOnPaper(u"2026/04/01"_qs, {}), u"2026年04月01日から"_qs);
        QCOMPARE(periodOnPaper({}, {}), QString());
        QCOMPARE(periodInEra(u"2019/04/30"_qs, u"2019/05/01"_qs), u"平成31年04月30日から令和1年05月01日まで"_qs);
    }
};

HALVANE_TEST(PaymentSearchTest)
#include "PaymentSearchTest.moc"
