#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "estimates/EstimateAmounts.h"

#include <QTest>

class EstimateAmountsTest : public QObject {
    Q_OBJECT

private slots:
    void noLinesGiveFourZeros() {
        const EstimateAmounts amounts = recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"6"_qs}, {}, {});
        QCOMPARE(amounts.makeElements, 0);
        QCOMPARE(amounts.completeParts, 0);
        QCOMPARE(amounts.tax, 0);
        QCOMPARE(amounts.total, 0);
    }

    void clearedDiscountCountsAs100AndIsStoredSo() {
        const EstimateAmounts amounts = recalcAmounts({{}, u"100"_qs, u"100"_qs, u"0"_qs}, {u"1000"_qs}, {});
        QCOMPARE(amounts.makeElements, 1000);
        QCOMPARE(storedDiscount({}), u"100"_qs);
        QCOMPARE(storedDiscount(u"95 "_qs), u"95"_qs);
    }

    void taxThatIsNoNumberCountsAs0AndIsStoredSo() {
        const EstimateAmounts amounts = recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"abc"_qs}, {u"1000"_qs}, {});
        QCOMPARE(amounts.tax, 0);
        QCOMPARE(storedTax(u"abc"_qs), u"0"_qs);
        QCOMPARE(storedTax(u"6"_qs), u"6"_qs);
    }

    void twoDiscountsMultiply_data() {
        QTest::addColumn<QString>("price");
        QTest::addColumn<int>("base");
        QTest::newRow("whole") << u"10000"_qs << 9025;
        QTest::newRow("rounds down") << u"10010"_qs << 9034;
        QTest::newRow("rounds up") << u"1010"_qs << 912;
    }

    void twoDiscountsMultiply() {
        QFETCH(QString, price);
        QFETCH(int, base);
        const EstimateAmounts amounts = recalcAmounts({u"95"_qs, u"95"_qs, u"100"_qs, u"0"_qs}, {price}, {});
        QCOMPARE(amounts.makeElements, base);
    }

    void everyLineIsRoundedAsItIsAdded() {
        const EstimateAmounts amounts =
            recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"0"_qs}, {u"0.5"_qs, u"0.5"_qs}, {u"1.5"_qs, u"1.5"_qs});
        QCOMPARE(amounts.makeElements, 0);
        QCOMPARE(amounts.completeParts, 4);
    }

    void exactHalfGoesToTheEvenNeighbour() {
        QCOMPARE(ToInt(2.5), 2);
        QCOMPARE(ToInt(3.5), 4);
        QCOMPARE(ToInt(-2.5), -2);
    }

    void taxIsCutDownToWholeYen() {
        const EstimateAmounts amounts =
            recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"5"_qs}, {u"1000"_qs}, {u"19"_qs});
        QCOMPARE(amounts.beforeTax(), 1019);
        QCOMPARE(amounts.tax, 50);
        QCOMPARE(amounts.total, 1069);
    }

    void emptyAmountCounts0InASum() { QCOMPARE(sumOfAmounts({u"1,000"_qs, {}, u"500"_qs, {}}).toYen(), 1500); }

    void textThatIsNoNumberCountsWithTheNumberAtItsStart() {
        const EstimateAmounts amounts =
            recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"0"_qs}, {u"1,200円"_qs, u"約300"_qs, u"50"_qs}, {});
        QCOMPARE(amounts.makeElements, 1250);
    }

    void sumBeyond32BitsOverflows() {
        QVERIFY_EXCEPTION_THROWN(
            recalcAmounts({u"100"_qs, u"100"_qs, u"100"_qs, u"0"_qs}, {u"2000000000"_qs, u"2000000000"_qs}, {}),
            AppError);
    }

    void fullWidthPercentagesCount() {
        const EstimateAmounts amounts =
            recalcAmounts({u"９５"_qs, u"100"_qs, u"100"_qs, u"１０"_qs}, {u"１，０００"_qs}, {});
        QCOMPARE(amounts.makeElements, 950);
        QCOMPARE(amounts.tax, 95);
        QCOMPARE(storedTax(u"１０ "_qs), u"10"_qs);
        QCOMPARE(storedDiscount(u"９５"_qs), u"95"_qs);
        for (const QString& none : {u"割"_qs, u"1-2"_qs, u"-"_qs, QString()}) QCOMPARE(storedDiscount(none), u"100"_qs);
        QCOMPARE(storedTax(u"1-2"_qs), u"0"_qs);
    }
};

HALVANE_TEST(EstimateAmountsTest)
#include "EstimateAmountsTest.moc"
