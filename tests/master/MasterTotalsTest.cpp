#include "HalvaneTest.h"
#include "support/Raised.h"

#include "master/MasterTotals.h"

// Totals are shown with the tax of the 大人 amount.
class MasterTotalsTest : public QObject {
    Q_OBJECT

private slots:
    void everyTierCarriesTheTaxOfTheGrownUps() {
        const MasterTotals totals = masterTotals(8600, 9300, 10000, 6);
        QCOMPARE(totals.tax, 600);
        QCOMPARE(totals.big, 10600);
        QCOMPARE(totals.middle, 9900);
        QCOMPARE(totals.small, 9200);
    }

    void fractionsOfAYenAreCutOff() {
        QCOMPARE(masterTotals(0, 0, 116, 6).tax, 6);   // 6.96
        QCOMPARE(masterTotals(0, 0, 105, 10).tax, 10); // 10.5
        QCOMPARE(masterTotals(0, 0, 100, 0).tax, 0);
    }

    void amountsThatWereNeverSetCountNothing() {
        clsMstEstimate stored;
        stored.PriceBig = u"1000"_qs;
        const MasterTotals totals = masterTotals(stored, 6);
        QCOMPARE(totals.big, 1060);
        QCOMPARE(totals.small, 60);
    }

    void amountsBeyondTheirSizeAreRefused() {
        QVERIFY(errorOf([] { masterTotals(2147483647, 0, 1000, 6); }));
        QVERIFY(errorOf([] { masterTotals(0, 0, 2147483647, 6); }));
        clsMstEstimate stored;
        stored.PriceSmall = u"99999999999"_qs;
        QVERIFY(errorOf([&] { masterTotals(stored, 6); }));
    }
};

HALVANE_TEST(MasterTotalsTest)
#include "MasterTotalsTest.moc"
