#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "composition/LineRules.h"
#include "customers/clsCsInsManager.h"
#include "estimates/EstimateDraft.h"
#include "estimates/EstimateManagers.h"

#include <QScopedValueRollback>
#include <QTest>

namespace {

Cells makeLine(const QString& element, const QString& price) {
    return EstimateSamples::makeLine(element, u"＊"_qs, price);
}

ClaimRow claimRow(const QString& insNo, const QString& price = {}) {
    ClaimRow row;
    row.InsNo = insNo;
    row.ask.AskPrice = price;
    return row;
}

EstimateDraft braceOrder() {
    EstimateDraft draft;
    draft.customer.CustNm1 = u"見本"_qs;
    draft.customer.CustNm2 = u"花子"_qs;
    draft.customer.CustNo = automaticNumber;
    draft.customer.Birth = u"1960/04/01"_qs;
    draft.chart.DiseaseNm = u"変形性膝関節症"_qs;
    ComposedItem brace = EstimateSamples::item(u"下肢装具"_qs, u"E-4"_qs);
    brace.make << makeLine(u"基本価格"_qs, u"30000"_qs) << makeLine(u"支持部"_qs, u"5000"_qs);
    draft.composition.add(brace);
    draft.claims << claimRow(u"1"_qs, u"30000"_qs) << claimRow(u"99"_qs, u"7100"_qs);
    draft.estimate.Tax = u"6"_qs;
    draft.estimate.Total = u"35000"_qs;
    draft.estimate.EstSum = u"37100"_qs;
    return draft;
}

} // namespace

class EstimateDraftTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    QStringList m_messages;
    QList<qint16> m_answers;

    Connection& connection() { return m_database->connection(); }
    QString scalar(const QString& sql) { return connection().scalar(sql); }
    ConfirmUpdate m_confirm;

    SaveResult save(EstimateDraft& draft) { return saveEstimate(connection(), draft, m_confirm); }

    QStringList rowCounts() {
        QStringList counts;
        for (const QString& table :
             {u"顧客情報"_qs, u"顧客カルテ"_qs, u"顧客保険"_qs, u"顧客見積情報"_qs, u"顧客見積種目"_qs,
              u"顧客見積基本製作要素"_qs, u"顧客見積完成要素"_qs, u"顧客見積請求"_qs})
            counts << scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
        return counts;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
        m_messages.clear();
        m_answers.clear();
        seams().message = [this](const MessageBoxRequest& request) {
            m_messages << request.text;
            if (request.buttons == MessageButtons::Ok) return qint16(AnswerNone);
            if (m_answers.isEmpty()) throw AppError(u"unprepared question: "_qs + request.text);
            return m_answers.takeFirst();
        };
    }

    void cleanup() { m_database.reset(); }

    void oneSaveWritesTheWholeOrder() {
        EstimateDraft draft = braceOrder();
        QCOMPARE(save(draft), SaveResult::Saved);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"2"_qs, u"1"_qs, u"1"_qs, u"2"_qs, u"0"_qs, u"2"_qs}));
        QCOMPARE(draft.customer.CustSubId, u"1"_qs);
        QVERIFY(draft.estimate.EstNo.endsWith(u"000001"_qs));
        QCOMPARE(scalar(u"SELECT [要素No] FROM [顧客見積基本製作要素] WHERE [製作要素] = '支持部'"_qs), u"2"_qs);
        QVERIFY(m_messages.isEmpty());
    }

    void orderWithoutLinesWritesNothing() {
        EstimateDraft draft = braceOrder();
        draft.composition.clear();
        QCOMPARE(save(draft), SaveResult::Refused);
        QCOMPARE(m_messages, QStringList(u"見積明細(基本・製作要素／完成要素)が設定されていません。"_qs));
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客情報]"_qs), u"0"_qs);
    }

    void noToTheTaxQuestionLeavesNoRowsAtAll() {
        EstimateDraft draft = braceOrder();
        draft.estimate.Tax = u"10"_qs;
        m_answers << AnswerNo;
        QCOMPARE(save(draft), SaveResult::Refused);
        QVERIFY(m_messages.first().contains(u"消費税相当額：10\nシステム設定：6"_qs));
        QCOMPARE(rowCounts(), QStringList(8, u"0"_qs));
        QCOMPARE(scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '顧客ID'"_qs), u"00000000"_qs);
        QCOMPARE(draft.customer.CustId, QString());
    }

    void noOtherMachineWaitsWhileAQuestionIsOpen() {
        EstimateDraft draft = braceOrder();
        draft.estimate.Tax = u"10"_qs;
        const auto other = m_database->another();
        int depth = -1;
        seams().message = [&](const MessageBoxRequest&) {
            depth = connection().transactionDepth();
            other->execute(u"UPDATE [採番] SET [最終値] = '00000041' WHERE [項目名] = '顧客ID'"_qs);
            return qint16(AnswerYes);
        };
        QCOMPARE(save(draft), SaveResult::Saved);
        QCOMPARE(depth, 0);
        QCOMPARE(draft.customer.CustId, u"00000042"_qs);
    }

    void taxOfAStoredEstimateIsNotQuestioned() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        QVERIFY(loadEstimate(draft.estimate.EstId, stored));
        stored.estimate.Tax = u"10"_qs;
        QCOMPARE(save(stored), SaveResult::Saved);
        QVERIFY(m_messages.isEmpty());
    }

    void uncollectedSurvivesPaymentDatesOnAllClaims() {
        EstimateDraft draft = braceOrder();
        draft.uncollected = true;
        for (ClaimRow& row : draft.claims) row.ask.PayDate = u"2026/10/01"_qs;
        save(draft);
        QCOMPARE(scalar(u"SELECT [処理区分] FROM [顧客見積情報]"_qs), u"99"_qs);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        QVERIFY(stored.uncollected);
        save(stored);
        QCOMPARE(scalar(u"SELECT [処理区分] FROM [顧客見積情報]"_qs), u"99"_qs);
    }

    void removedClaimRowIsGoneFromTheOrder() {
        EstimateDraft draft = braceOrder();
        draft.claims << claimRow(u"12"_qs, u"0"_qs);
        save(draft);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客見積請求]"_qs), u"3"_qs);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.claims.removeAt(1);
        save(stored);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客見積請求]"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT [法別No] FROM [顧客見積請求] WHERE [請求No] = 2"_qs), u"12"_qs);
    }

    void allClaimRowsRemovedKeepTheOldOnes() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.claims.clear();
        save(stored);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客見積請求]"_qs), u"2"_qs);
    }

    void savingTwiceAddsALawOnce() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        save(stored);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客保険]"_qs), u"2"_qs);
    }

    void advancePaymentWinsInTheFirstClaim() {
        EstimateDraft draft = braceOrder();
        draft.partialPayment = u"3,000"_qs;
        draft.claims[0].ask.PayPrice = u"5000"_qs;
        save(draft);
        QCOMPARE(scalar(u"SELECT [領収金額] FROM [顧客見積請求] WHERE [請求No] = 1"_qs), u"3000"_qs);
    }

    void emptyAdvancePaymentLeavesTheAmountReceived() {
        EstimateDraft draft = braceOrder();
        draft.claims[0].ask.PayPrice = u"5000"_qs;
        save(draft);
        QCOMPARE(scalar(u"SELECT [領収金額] FROM [顧客見積請求] WHERE [請求No] = 1"_qs), u"5000"_qs);
    }

    void changedCustomerAsksAndANewBranchTakesChartsAndLaws() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.customer.Addr1 = u"新しい町 1-2-3"_qs;
        int asked = 0;
        m_confirm = [&asked](const clsCustomer&, const clsCustomer&) {
            ++asked;
            return CustomerUpdate::NewBranch;
        };
        QCOMPARE(save(stored), SaveResult::Saved);
        QCOMPARE(asked, 1);
        QCOMPARE(stored.customer.CustSubId, u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客保険] WHERE [顧客枝番] = 2"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT [顧客枝番] FROM [顧客見積情報]"_qs), u"2"_qs);
    }

    void newBranchTakesAllChartsOfTheOldOne() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft other = braceOrder();
        other.customer = draft.customer;
        other.chart.DiseaseNm = u"脳卒中"_qs;
        save(other);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.customer.Addr1 = u"新しい町 1-2-3"_qs;
        m_confirm = [](const clsCustomer&, const clsCustomer&) { return CustomerUpdate::NewBranch; };
        QCOMPARE(save(stored), SaveResult::Saved);
        QCOMPARE(stored.estimate.ChartNo, u"1"_qs);
        const QString charts = u"SELECT [病名原因] FROM [顧客カルテ] WHERE [顧客枝番] = 2 AND [カルテNo] = "_qs;
        QCOMPARE(scalar(charts + u"1"_qs), u"変形性膝関節症"_qs);
        QCOMPARE(scalar(charts + u"2"_qs), u"脳卒中"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"4"_qs);
    }

    void closedCustomerQuestionWritesNothing() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.customer.CustNm1 = u"改姓"_qs;
        stored.estimate.EstNm = u"別の名前"_qs;
        m_confirm = [](const clsCustomer&, const clsCustomer&) { return CustomerUpdate::Closed; };
        QCOMPARE(save(stored), SaveResult::Refused);
        QCOMPARE(scalar(u"SELECT [見積名称] FROM [顧客見積情報]"_qs), QString());
    }

    void newOrderReusesAChartThatFits() {
        EstimateDraft first = braceOrder();
        save(first);
        EstimateDraft second = braceOrder();
        second.customer = first.customer;
        save(second);
        QCOMPARE(second.estimate.ChartNo, first.estimate.ChartNo);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"1"_qs);
    }

    void ordersThatDifferInTheSideAloneHaveChartsOfTheirOwn() {
        EstimateDraft right = braceOrder();
        right.chart.LR = u"右"_qs;
        save(right);
        EstimateDraft left = braceOrder();
        left.customer = right.customer;
        left.chart.LR = u"左"_qs;
        save(left);
        QCOMPARE(left.estimate.ChartNo, u"2"_qs);
        EstimateDraft stored;
        QVERIFY(loadEstimate(right.estimate.EstId, stored));
        QCOMPARE(stored.chart.LR, u"右"_qs);
        QVERIFY(loadEstimate(left.estimate.EstId, stored));
        QCOMPARE(stored.chart.LR, u"左"_qs);
    }

    void changedChartOfAStoredOrderCanBeKeptApart() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.chart.DiseaseNm = u"脳卒中"_qs;
        m_answers << AnswerYes;
        save(stored);
        QCOMPARE(m_messages, QStringList(u"[病名原因]が変更されています。\n顧客カルテ情報を別管理しますか?"_qs));
        QCOMPARE(scalar(u"SELECT [カルテNo] FROM [顧客見積情報]"_qs), u"2"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客カルテ]"_qs), u"2"_qs);
    }

    void orderDeletedByAnotherMachineIsNotHalfWritten() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft mine;
        loadEstimate(draft.estimate.EstId, mine);
        deleteEstimate(connection(), mine.estimate.EstId);
        QVERIFY(raised([&] { save(mine); }).startsWith(u"この見積は他の端末で削除されています。"_qs));
        for (const QString& table : {u"顧客見積情報"_qs, u"顧客見積種目"_qs, u"顧客見積請求"_qs})
            QCOMPARE(scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table)), u"0"_qs);
        mine.estimate.EstId.clear();
        QCOMPARE(save(mine), SaveResult::Saved);
    }

    void orderStoredByAnotherMachineAsksFirst() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft mine, theirs;
        loadEstimate(draft.estimate.EstId, mine);
        loadEstimate(draft.estimate.EstId, theirs);
        const QDateTime later = QDateTime::currentDateTime().addSecs(60);
        seams().now = [later] { return later; };
        theirs.estimate.EstNm = u"先の保存"_qs;
        save(theirs);
        mine.estimate.EstNm = u"後の保存"_qs;
        m_answers << AnswerNo << AnswerYes;
        QCOMPARE(save(mine), SaveResult::Refused);
        QCOMPARE(m_messages, QStringList(u"他の端末で更新されています。上書きしますか？"_qs));
        QCOMPARE(scalar(u"SELECT [見積名称] FROM [顧客見積情報]"_qs), u"先の保存"_qs);
        QCOMPARE(save(mine), SaveResult::Saved);
        QCOMPARE(scalar(u"SELECT [見積名称] FROM [顧客見積情報]"_qs), u"後の保存"_qs);
    }

    // The time of a save has no parts of a second.
    void twoSavesOfOneSecondAreToldApart_data() {
        QTest::addColumn<QString>("change");
        QTest::newRow("header") << u"UPDATE [顧客見積情報] SET [見積名称] = '先'"_qs;
        QTest::newRow("line") << u"UPDATE [顧客見積基本製作要素] SET [価格] = 1 WHERE [要素No] = 1"_qs;
        QTest::newRow("claim") << u"UPDATE [顧客見積請求] SET [入金日] = #2026/04/01#"_qs;
        QTest::newRow("item") << u"DELETE FROM [顧客見積種目]"_qs;
    }
    void twoSavesOfOneSecondAreToldApart() {
        QFETCH(QString, change);
        EstimateDraft draft = braceOrder();
        save(draft);
        m_database->another()->execute(change);
        m_answers << AnswerNo << AnswerYes;
        QCOMPARE(save(draft), SaveResult::Refused);
        QCOMPARE(m_messages, QStringList(u"他の端末で更新されています。上書きしますか？"_qs));
        QCOMPARE(save(draft), SaveResult::Saved);
        QCOMPARE(save(draft), SaveResult::Saved); // its own save is no question
        QCOMPARE(m_messages.size(), 2);
    }

    void afterASaveTheDraftIsTheStoredOne() {
        EstimateDraft draft = braceOrder();
        save(draft);
        EstimateDraft read;
        QVERIFY(loadEstimate(draft.estimate.EstId, read));
        QCOMPARE(draft.storedRows, read.storedRows);
        QCOMPARE(draft.estimate.UpdDate, read.estimate.UpdDate);
        QCOMPARE(draft.chart.ChartNo, read.chart.ChartNo);
        QCOMPARE(draft.customer.AddDate, read.customer.AddDate);
    }

    // The editor shows neither of them, so that it must not put back what it had loaded.
    void mailAndAgeTierOfAnotherMachineStay() {
        EstimateDraft draft = braceOrder();
        save(draft);
        m_database->another()->execute(u"UPDATE [顧客情報] SET [EMAIL] = 'a@b', [価格区分] = '小人'"_qs);
        draft.customer.Addr1 = u"移転先"_qs;
        m_confirm = [](const clsCustomer&, const clsCustomer&) { return CustomerUpdate::Overwrite; };
        QCOMPARE(save(draft), SaveResult::Saved);
        m_confirm = nullptr;
        QCOMPARE(scalar(u"SELECT [EMAIL] FROM [顧客情報] WHERE [住所1] = '移転先'"_qs), u"a@b"_qs);
        QCOMPARE(scalar(u"SELECT [価格区分] FROM [顧客情報]"_qs), u"小人"_qs);
    }

    void linesFollowTheirItemsThroughALoad() {
        EstimateDraft draft = braceOrder();
        ComposedItem second = draft.composition.item(1);
        second.make = {makeLine(u"加算"_qs, u"700"_qs)};
        draft.composition.add(second);
        save(draft);
        EstimateDraft stored;
        QVERIFY(loadEstimate(draft.estimate.EstId, stored));
        QCOMPARE(stored.composition.item(1).make.size(), 2);
        QCOMPARE(stored.composition.item(2).make.size(), 1);
        QCOMPARE(stored.composition.item(2).make.first().at(MakeLine::UnitPrice), u"700"_qs);
    }

    void lastLineOfATableGoesWithItsSave() {
        EstimateDraft draft = braceOrder();
        Cells part(PartsLine::Columns);
        part[PartsLine::PartsNm] = u"足継手"_qs;
        part[PartsLine::Price] = u"9000"_qs;
        part[PartsLine::Suryo] = u"1"_qs;
        draft.composition.item(1).parts << part;
        save(draft);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.composition.item(1).parts.clear();
        save(stored);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [顧客見積完成要素]"_qs), u"0"_qs);
    }

    void deletedOrderLeavesCustomerAndChart() {
        EstimateDraft draft = braceOrder();
        save(draft);
        deleteEstimate(connection(), draft.estimate.EstId);
        QCOMPARE(rowCounts(), QStringList({u"1"_qs, u"1"_qs, u"2"_qs, u"0"_qs, u"0"_qs, u"0"_qs, u"0"_qs, u"0"_qs}));
    }

    void deleteThatFailsMidwayLeavesTheOrderWhole() {
        EstimateDraft draft = braceOrder();
        save(draft);
        const QStringList whole = rowCounts();
        connection().execute(u"DROP TABLE [顧客見積完成要素]"_qs);
        QVERIFY(!raised([&] { deleteEstimate(connection(), draft.estimate.EstId); }).isEmpty());
        QCOMPARE(connection().transactionDepth(), 0);
        connection().createTable(*Schema::table(u"顧客見積完成要素"_qs));
        QCOMPARE(rowCounts(), whole);
    }

    void emptiedPeopleInChargeLoseTheirNumbers() {
        EstimateDraft draft = braceOrder();
        draft.estimate.ProducerNm = u"有田　工"_qs;
        draft.estimate.Charge1Nm = u"岡本　匠"_qs;
        save(draft);
        const QString numbers = u"SELECT [製作担当者No] & '/' & [担当義肢装具士No] FROM [顧客見積情報]"_qs;
        QVERIFY(scalar(numbers).size() > 2);
        EstimateDraft stored;
        loadEstimate(draft.estimate.EstId, stored);
        stored.estimate.ProducerNm.clear();
        stored.estimate.Charge1Nm = u" "_qs;
        save(stored);
        QCOMPARE(scalar(numbers), u"/"_qs);
        stored.estimate.Charge1Nm = u"　"_qs;
        save(stored);
        QCOMPARE(scalar(numbers), u"/"_qs);
    }

    void everyRowNamesWhoWroteIt() {
        const QScopedValueRollback user(gUserNo, 7);
        EstimateDraft draft = braceOrder();
        save(draft);
        for (const QString& table : {u"顧客情報"_qs, u"顧客カルテ"_qs, u"顧客見積情報"_qs})
            QCOMPARE(scalar(u"SELECT [編集者No] FROM [%1]"_qs.arg(table)), u"7"_qs);
    }

    void aPlaceOfOneWordAloneIsOfferedFromThenOn() {
        EstimateDraft draft = braceOrder();
        draft.customer.City = u"新しい市"_qs;
        save(draft);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [都道府県] WHERE [市区郡] = '新しい市'"_qs), u"1"_qs);
    }

    void payerAndOrderingPartyComeBackWithTheirCodes() {
        EstimateDraft draft = braceOrder();
        draft.claims[0].ClaimCd = u"T-1"_qs;
        draft.claims[0].ClaimNm = u"見本組合"_qs;
        draft.orderCd = u"H-1"_qs;
        draft.chart.OrderNm = u"見本病院"_qs;
        save(draft);
        EstimateDraft stored;
        QVERIFY(loadEstimate(draft.estimate.EstId, stored));
        QCOMPARE(stored.claims.at(0).ClaimCd, u"T-1"_qs);
        QCOMPARE(stored.claims.at(0).ClaimNm, u"見本組合"_qs);
        QCOMPARE(stored.claims.at(1).ClaimCd, QString());
        QCOMPARE(stored.orderCd, u"H-1"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [法別請求対応] INNER JOIN [請求先] ON [法別請求対応].[請求先No] ="
                        u" [請求先].[請求先No] WHERE [法別No] = 1 AND [請求先コード] = 'T-1'"_qs),
                 u"1"_qs);
    }

    void theStoredNameOfAPayerIsTakenWhenTheOperatorSaysSo() {
        EstimateDraft draft = braceOrder();
        draft.claims[0].ClaimCd = u"T-1"_qs;
        draft.claims[0].ClaimNm = u"見本組合"_qs;
        save(draft);
        EstimateDraft other = braceOrder();
        other.claims[0].ClaimCd = u"T-1"_qs;
        other.claims[0].ClaimNm = u"打ち間違い"_qs;
        m_answers << AnswerYes;
        save(other);
        QCOMPARE(other.claims.at(0).ClaimNm, u"見本組合"_qs);
        QCOMPARE(scalar(u"SELECT [請求先] FROM [顧客見積請求] WHERE [請求No] = 1 AND [見積ID] = '%1'"_qs.arg(
                     other.estimate.EstId)),
                 u"見本組合"_qs);
    }

    void taxSettingWithBlanksIsTheSameTax() {
        connection().execute(u"UPDATE [システム設定] SET [設定値] = ' 6 ' WHERE [No] = 2"_qs);
        EstimateDraft draft = braceOrder();
        draft.estimate.Tax = u"6 "_qs;
        QCOMPARE(save(draft), SaveResult::Saved);
        QVERIFY(m_messages.isEmpty());
    }

    void customerWithFiveLawsShowsTheFirstFour() {
        EstimateDraft draft = braceOrder();
        save(draft);
        for (const QString& law : {u"7"_qs, u"8"_qs, u"10"_qs}) {
            clsCsIns ins{draft.customer.CustId, draft.customer.CustSubId, {}, law};
            gCsInsManager.AddIfMissing(ins);
        }
        QCOMPARE(claimRowsOf(draft.customer.CustId, draft.customer.CustSubId).size(), 4);
    }

    void typedTextThatIsNoNumberFailsWithItsMessageAndWritesNothing() {
        EstimateDraft draft = braceOrder();
        draft.claims[0].ask.AskPrice = u"abc"_qs;
        QVERIFY_EXCEPTION_THROWN(save(draft), AppError);
        QCOMPARE(rowCounts(), QStringList(8, u"0"_qs));
    }
};

HALVANE_TEST(EstimateDraftTest)
#include "EstimateDraftTest.moc"
