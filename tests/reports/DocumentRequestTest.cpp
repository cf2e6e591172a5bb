#include "HalvaneTest.h"

#include "reports/DocumentRequest.h"

using Outcome = DocumentRequest::Outcome;

namespace {

PrintGridRow row(int askNo, const std::array<bool, 5>& ticked, qint64 ask = 0, qint64 pay = 0) {
    return {askNo, ticked, true, Money::yen(ask), Money::yen(pay)};
}

const std::array<bool, 5> nothing{};

} // namespace

class DocumentRequestTest : public QObject {
    Q_OBJECT

private slots:
    void twoClaimsWithoutATickAreRefused() {
        const DocumentRequest request = requestDocuments({row(1, nothing), row(2, nothing)});
        QCOMPARE(request.outcome, Outcome::Refused);
        QCOMPARE(request.message, u"帳票を選択して下さい。"_qs);
    }

    void noClaimAndNoTickMakesAllFiveDocumentsForOneClaim() {
        PrintGridRow empty;
        for (const QList<PrintGridRow>& rows : {QList<PrintGridRow>{}, QList<PrintGridRow>{empty}}) {
            const DocumentRequest request = requestDocuments(rows);
            QCOMPARE(request.outcome, Outcome::WithoutClaim);
            for (const QList<int>& claims : request.claims) QCOMPARE(claims, QList<int>{1});
            QCOMPARE(request.askPrice, Money());
        }
    }

    void aFirstRowWithoutClaimPrintsTheWholeEvenWhenALaterOneHasOne() {
        const DocumentRequest request = requestDocuments({PrintGridRow(), row(1, nothing, 500)});
        QCOMPARE(request.outcome, Outcome::WithoutClaim);
        for (const QList<int>& claims : request.claims) QCOMPARE(claims, QList<int>{1});
        QCOMPARE(request.askPrice, Money());
    }

    void ticksWithoutAnyClaimPrintTheirKindsAlone() {
        PrintGridRow second;
        second.ticked = {true, false, false, true, false};
        second.askPrice = Money::yen(700);
        const DocumentRequest request = requestDocuments({PrintGridRow(), second});
        QCOMPARE(request.outcome, Outcome::WithoutClaim);
        QCOMPARE(request.claimsOf(DocumentKind::Estimate), QList<int>{1});
        QCOMPARE(request.claimsOf(DocumentKind::Breakdown), QList<int>());
        QCOMPARE(request.claimsOf(DocumentKind::Invoice), QList<int>{1});
        QCOMPARE(request.askPrice, Money::yen(700));
        QCOMPARE(request.payPrice, Money());
        second.askPrice = Money();
        QCOMPARE(requestDocuments({second}).message, u"請求金額を入力して下さい。"_qs);
    }

    void aTickBesideTheClaimsNeedsItsLaw() {
        PrintGridRow second;
        second.ticked = {true, false, false, false, false};
        const DocumentRequest request = requestDocuments({row(1, {true, false, false, false, false}), second});
        QCOMPARE(request.outcome, Outcome::Refused);
        QCOMPARE(request.message, u"法別を選択して下さい。"_qs);
        QCOMPARE(request.row, 1);
    }

    void everyKindTakesTheClaimsTickedForIt() {
        const DocumentRequest request = requestDocuments(
            {row(1, {true, false, false, true, false}, 100), row(2, {true, false, true, false, true}, 0, 100)});
        QCOMPARE(request.outcome, Outcome::Print);
        QCOMPARE(request.claimsOf(DocumentKind::Estimate), (QList<int>{1, 2}));
        QCOMPARE(request.claimsOf(DocumentKind::Breakdown), QList<int>());
        QCOMPARE(request.claimsOf(DocumentKind::Detail), QList<int>{2});
        QCOMPARE(request.claimsOf(DocumentKind::Invoice), QList<int>{1});
        QCOMPARE(request.claimsOf(DocumentKind::Receipt), QList<int>{2});
    }

    void anInvoiceNeedsItsAmount() {
        const DocumentRequest request = requestDocuments(
            {row(1, {false, false, false, true, false}, 5), row(2, {false, false, false, true, false}, 0)});
        QCOMPARE(request.outcome, Outcome::Refused);
        QCOMPARE(request.message, u"請求金額を入力して下さい。"_qs);
        QCOMPARE(request.row, 1);
    }

    void aReceiptNeedsItsAmount() {
        const DocumentRequest request = requestDocuments({row(1, {true, false, false, false, true}, 5)});
        QCOMPARE(request.message, u"領収金額を入力して下さい。"_qs);
        QCOMPARE(request.row, 0);
    }
};

HALVANE_TEST(DocumentRequestTest)
#include "DocumentRequestTest.moc"
