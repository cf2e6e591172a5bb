#include "HalvaneTest.h"

#include "reports/DocumentOrder.h"

using Outcome = DocumentOrder::Outcome;

namespace {

PrintGridRow row(int askNo, const std::array<bool, 5>& ticked, qint64 ask = 0, qint64 pay = 0) {
    return {askNo, ticked, true, Money::yen(ask), Money::yen(pay)};
}

const std::array<bool, 5> nothing{};

} // namespace

class DocumentOrderTest : public QObject {
    Q_OBJECT

private slots:
    void twoClaimsWithoutATickAreRefused() {
        const DocumentOrder order = orderDocuments({row(1, nothing), row(2, nothing)});
        QCOMPARE(order.outcome, Outcome::Refused);
        QCOMPARE(order.message, u"帳票を選択して下さい。"_qs);
    }

    void noClaimAndNoTickMakesAllFiveDocumentsForOneClaim() {
        PrintGridRow empty;
        for (const QList<PrintGridRow>& rows : {QList<PrintGridRow>{}, QList<PrintGridRow>{empty}}) {
            const DocumentOrder order = orderDocuments(rows);
            QCOMPARE(order.outcome, Outcome::WithoutClaim);
            for (const QList<int>& claims : order.claims) QCOMPARE(claims, QList<int>{1});
            QCOMPARE(order.askPrice, Money());
        }
    }

    void aFirstRowWithoutClaimPrintsTheWholeEvenWhenALaterOneHasOne() {
        const DocumentOrder order = orderDocuments({PrintGridRow(), row(1, nothing, 500)});
        QCOMPARE(order.outcome, Outcome::WithoutClaim);
        for (const QList<int>& claims : order.claims) QCOMPARE(claims, QList<int>{1});
        QCOMPARE(order.askPrice, Money());
    }

    void ticksWithoutAnyClaimPrintTheirKindsAlone() {
        PrintGridRow second;
        second.ticked = {true, false, false, true, false};
        second.askPrice = Money::yen(700);
        const DocumentOrder order = orderDocuments({PrintGridRow(), second});
        QCOMPARE(order.outcome, Outcome::WithoutClaim);
        QCOMPARE(order.claimsOf(DocumentKind::Estimate), QList<int>{1});
        QCOMPARE(order.claimsOf(DocumentKind::Breakdown), QList<int>());
        QCOMPARE(order.claimsOf(DocumentKind::Invoice), QList<int>{1});
        QCOMPARE(order.askPrice, Money::yen(700));
        QCOMPARE(order.payPrice, Money());
        second.askPrice = Money();
        QCOMPARE(orderDocuments({second}).message, u"請求金額を入力して下さい。"_qs);
    }

    void aTickBesideTheClaimsNeedsItsLaw() {
        PrintGridRow second;
        second.ticked = {true, false, false, false, false};
        const DocumentOrder order = orderDocuments({row(1, {true, false, false, false, false}), second});
        QCOMPARE(order.outcome, Outcome::Refused);
        QCOMPARE(order.message, u"法別を選択して下さい。"_qs);
        QCOMPARE(order.row, 1);
    }

    void everyKindTakesTheClaimsTickedForIt() {
        const DocumentOrder order = orderDocuments(
            {row(1, {true, false, false, true, false}, 100), row(2, {true, false, true, false, true}, 0, 100)});
        QCOMPARE(order.outcome, Outcome::Print);
        QCOMPARE(order.claimsOf(DocumentKind::Estimate), (QList<int>{1, 2}));
        QCOMPARE(order.claimsOf(DocumentKind::Breakdown), QList<int>());
        QCOMPARE(order.claimsOf(DocumentKind::Detail), QList<int>{2});
        QCOMPARE(order.claimsOf(DocumentKind::Invoice), QList<int>{1});
        QCOMPARE(order.claimsOf(DocumentKind::Receipt), QList<int>{2});
    }

    void anInvoiceNeedsItsAmount() {
        const DocumentOrder order = orderDocuments(
            {row(1, {false, false, false, true, false}, 5), row(2, {false, false, false, true, false}, 0)});
        QCOMPARE(order.outcome, Outcome::Refused);
        QCOMPARE(order.message, u"請求金額を入力して下さい。"_qs);
        QCOMPARE(order.row, 1);
    }

    void aReceiptNeedsItsAmount() {
        const DocumentOrder order = orderDocuments({row(1, {true, false, false, false, true}, 5)});
        QCOMPARE(order.message, u"領収金額を入力して下さい。"_qs);
        QCOMPARE(order.row, 0);
    }
};

HALVANE_TEST(DocumentOrderTest)
#include "DocumentOrderTest.moc"
