#include "HalvaneTest.h"
#include "support/Raised.h"

#include "base/Application.h"
#include "estimates/EstimateDates.h"

#include <QTest>

namespace {

clsCsEstAsk paidOn(const QString& date) {
    clsCsEstAsk claim;
    claim.PayDate = date;
    return claim;
}

} // namespace

class EstimateDatesTest : public QObject {
    Q_OBJECT

private slots:
    void nothingYetIs9() { QCOMPARE(statusOf({}, {}), u"9"_qs); }

    void lastStageWithADateWins_data() {
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString clsCsEstimate::*>("member");
        QTest::newRow("reception") << u"8"_qs << &clsCsEstimate::RecvDate;
        QTest::newRow("estimate") << u"7"_qs << &clsCsEstimate::EstDate;
        QTest::newRow("voucher") << u"6"_qs << &clsCsEstimate::TickRsvDate;
        QTest::newRow("casting") << u"5"_qs << &clsCsEstimate::PickPtnDate;
        QTest::newRow("fitting") << u"4"_qs << &clsCsEstimate::TmpSetFinDate;
        QTest::newRow("completion") << u"3"_qs << &clsCsEstimate::CmpltFinDate;
        QTest::newRow("delivery") << u"2"_qs << &clsCsEstimate::DelvFinDate;
    }

    void lastStageWithADateWins() {
        QFETCH(QString, status);
        QFETCH(QString clsCsEstimate::*, member);
        clsCsEstimate estimate;
        estimate.RecvDate = u"2026/01/05"_qs;
        estimate.*member = u"2026/02/01"_qs;
        QCOMPARE(statusOf(estimate, {}), status);
    }

    void deliveryAloneGives2() {
        clsCsEstimate estimate;
        estimate.DelvFinDate = u"2026/02/01"_qs;
        QCOMPARE(statusOf(estimate, {}), u"2"_qs);
    }

    void plannedDatesPlayNoPart() {
        clsCsEstimate estimate;
        estimate.DelvPlnDate = u"2026/02/01"_qs;
        QCOMPARE(statusOf(estimate, {}), u"9"_qs);
    }

    void paymentNeedsADateOnEveryClaim() {
        QCOMPARE(statusOf({}, {paidOn(u"2026/03/01"_qs), paidOn({})}), u"9"_qs);
        QCOMPARE(statusOf({}, {paidOn(u"2026/03/01"_qs), paidOn(u"2026/03/02"_qs)}), u"1"_qs);
    }

    void dateBeforeTheYear100IsNone() {
        clsCsEstimate estimate;
        estimate.RecvDate = u"0099/12/31"_qs;
        QCOMPARE(statusOf(estimate, {}), u"9"_qs);
        QCOMPARE(plannedDate(u"0099/12/31"_qs, u"7"_qs), QString());
        QCOMPARE(latestOfAll({u"2026/03/05"_qs, u"0099/12/31"_qs}), QString());
        estimate.PayInFinDate = u"0099/12/31"_qs;
        completeFromClaims(estimate, {paidOn(u"2026/03/05"_qs)});
        QCOMPARE(estimate.PayInFinDate, u"2026/03/05"_qs);
    }

    void completionTakesTheLatestDateOfAllClaims() {
        clsCsEstimate estimate;
        completeFromClaims(estimate, {paidOn(u"2026/03/05"_qs), paidOn(u"2026/03/02 9:05:00"_qs)});
        QCOMPARE(estimate.PayInFinDate, u"2026/03/05"_qs);
        QCOMPARE(estimate.AskFinDate, QString());
    }

    void claimWithoutAPaymentDateLeavesTheCompletionEmpty() {
        clsCsEstimate estimate;
        completeFromClaims(estimate, {paidOn(u"2026/03/05"_qs), paidOn({})});
        QCOMPARE(estimate.PayInFinDate, QString());
    }

    void completionTypedByHandStays() {
        clsCsEstimate estimate;
        estimate.PayInFinDate = u"2026/04/01"_qs;
        completeFromClaims(estimate, {paidOn(u"2026/03/05"_qs)});
        QCOMPARE(estimate.PayInFinDate, u"2026/04/01"_qs);
    }

    void plannedDateIsSoManyDaysOn() {
        QCOMPARE(plannedDate(u"2026/02/25"_qs, u"7"_qs), u"2026/03/04"_qs);
        QCOMPARE(plannedDate(u"2026/02/25"_qs, {}), QString());
        QCOMPARE(plannedDate({}, u"7"_qs), QString());
    }

    void lifeEndsSoManyYearsAfterTheApplicationDate() {
        setSystemDate(u"2005/03/01"_qs);
        QCOMPARE(lifeEndDate(u"5"_qs), u"2010/03/01"_qs);
        QCOMPARE(lifeEndDate({}), QString());
    }

    void aLifeBeyondTheCalendarNamesTheField() {
        setSystemDate(u"2005/03/01"_qs);
        for (const QString& years : {u"9000"_qs, u"2000000000"_qs, u"-3000"_qs})
            QCOMPARE(raised([&] { lifeEndDate(years); }), u"耐用年数がオーバーフローします。"_qs);
        QCOMPARE(lifeEndDate(u"7994"_qs), u"9999/03/01"_qs);
    }
};

HALVANE_TEST(EstimateDatesTest)
#include "EstimateDatesTest.moc"
