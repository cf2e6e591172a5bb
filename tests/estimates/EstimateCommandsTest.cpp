#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "composition/LineRules.h"
#include "estimates/EstimateDraft.h"
#include "estimates/EstimateManagers.h"

#include <QTest>

namespace {

const QString mark = u"x"_qs;

// Every column of the header that no longer holds what it held.
QStringList changedColumns(const clsCsEstimate& estimate) {
    QStringList changed;
    for (const auto& field : gCsEstimateManager.fields())
        if (estimate.*field.member != mark) changed << field.column;
    return changed;
}

EstimateDraft markedOrder() {
    EstimateDraft draft = EstimateSamples::order(2, 2);
    for (const auto& field : gCsEstimateManager.fields()) draft.estimate.*field.member = mark;
    draft.uncollected = true;
    draft.partialPayment = u"500"_qs;
    draft.orderCd = u"1001"_qs;
    draft.chart.ChartNo = u"3"_qs;
    return draft;
}

} // namespace

// What each command of the editor leaves of an order, column by column.
class EstimateCommandsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    const QStringList m_dates{u"処理区分"_qs,     u"受付日"_qs,      u"見積作成日"_qs, u"券受日"_qs,
                              u"採型日"_qs,       u"仮合予定日"_qs,  u"仮合実績日"_qs, u"完成予定日"_qs,
                              u"完成実績日"_qs,   u"納品予定日"_qs,  u"納品実績日"_qs, u"請求予定日"_qs,
                              u"請求完了日"_qs,   u"入金予定日"_qs,  u"入金完了日"_qs, u"見積書発行日"_qs,
                              u"内訳書発行日"_qs, u"明細書発行日"_qs};
    const QStringList m_contents{u"見積名称"_qs, u"製品コード"_qs};
    const QStringList m_terms{u"製作担当者"_qs, u"耐用年数"_qs,        u"耐用完了日"_qs, u"基本割引１"_qs,
                              u"基本割引２"_qs, u"部品割引"_qs,        u"部類識別"_qs,   u"骨格殻別"_qs,
                              u"備考"_qs,       u"担当義肢装具士名"_qs};

    // In the order of the table.
    static QStringList inOrder(const QStringList& columns) {
        QStringList sorted;
        for (const auto& field : gCsEstimateManager.fields())
            if (columns.contains(field.column)) sorted << field.column;
        return sorted;
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
    }
    void cleanupTestCase() { m_database.reset(); }

    void eachClearingTakesItsColumnsAlone_data() {
        using Clearing = EstimateDraft::Clearing;
        QTest::addColumn<Clearing>("level");
        QTest::addColumn<QStringList>("cleared");
        QTest::addColumn<bool>("keepsContents");
        QTest::newRow("dates") << Clearing::Dates << m_dates << true;
        QTest::newRow("contents and dates") << Clearing::ContentsAndDates << m_dates + m_contents << false;
        QTest::newRow("everything") << Clearing::Everything << m_dates + m_contents + m_terms << false;
    }
    void eachClearingTakesItsColumnsAlone() {
        QFETCH(EstimateDraft::Clearing, level);
        QFETCH(QStringList, cleared);
        QFETCH(bool, keepsContents);
        EstimateDraft draft = markedOrder();
        draft.clearEstimate(level);
        QCOMPARE(changedColumns(draft.estimate), inOrder(cleared));
        QCOMPARE(draft.estimate.ProcKbnNo, u"9"_qs);
        if (level == EstimateDraft::Clearing::Everything)
            QCOMPARE((QStringList{draft.estimate.Discount1, draft.estimate.Discount2, draft.estimate.Discount3}),
                     QStringList(3, u"100"_qs));
        QVERIFY(!draft.uncollected);
        QCOMPARE(draft.composition.hasLines(), keepsContents);
        QCOMPARE(draft.partialPayment, keepsContents ? u"500"_qs : QString());
        QCOMPARE(draft.claims.size(), 2);
        for (const ClaimRow& row : draft.claims) {
            QVERIFY(row.isUsed()); // who pays stays
            QCOMPARE(row.ask.AskPrice, QString());
        }
        QCOMPARE(draft.customer.CustNm1, u"見本"_qs);
        QCOMPARE(draft.orderCd, u"1001"_qs);
    }

    void aNewEstimateOfTheSameContentsHasNoNumbersAndThePriceYearInForce() {
        EstimateDraft draft = markedOrder();
        draft.claims[0].ask.AskDate = u"2026/10/03"_qs;
        draft.becomeNew();
        QCOMPARE(changedColumns(draft.estimate),
                 inOrder({u"見積ID"_qs, u"見積番号"_qs, u"価格設定年度"_qs, u"意見書発行日"_qs, u"更新日"_qs}));
        QCOMPARE(draft.estimate.PriceSedYear, gPriceYear);
        QCOMPARE(draft.claims.first().ask.AskDate, QString());
        QCOMPARE(draft.claims.first().ask.AskPrice, u"1000"_qs);
        QVERIFY(draft.composition.hasLines());
    }

    void withoutThePersonTheAmountsOfTheClaimsStay() {
        EstimateDraft draft = markedOrder();
        draft.clearPerson();
        QCOMPARE(changedColumns(draft.estimate), QStringList(u"交付券番号"_qs));
        QCOMPARE(draft.customer.CustNm1, QString());
        QCOMPARE(draft.chart.ChartNo, QString());
        QCOMPARE(draft.orderCd, QString());
        QCOMPARE(draft.claims.size(), 2);
        for (const ClaimRow& row : draft.claims) {
            QVERIFY(!row.isUsed());
            QCOMPARE(row.ask.AskPrice, u"1000"_qs);
        }
    }

    void anEmptyEstimateHasWholePricesTheTaxAndThePriceYearInForce() {
        const EstimateDraft draft = newEstimate();
        const clsCsEstimate& estimate = draft.estimate;
        QCOMPARE((QStringList{estimate.ProcKbnNo, estimate.PriceSedYear, estimate.Discount1, estimate.Discount2,
                              estimate.Discount3, estimate.Tax}),
                 (QStringList{u"9"_qs, gPriceYear, u"100"_qs, u"100"_qs, u"100"_qs, u"6"_qs}));
    }

    // The unit price is not stored: it is the amount of one.
    void aStoredLineOfNoQuantityKeepsItsAmountAsUnitPrice() {
        clsCsItem item;
        item.EstItemNo = u"1"_qs;
        item.Item = u"下肢装具"_qs;
        item.PickKbn = u"E-4"_qs;
        clsCsMakeElmt line;
        line.EstItemNo = u"1"_qs;
        line.MakeElmt = u"基本価格"_qs;
        line.Price = u"900"_qs;
        const QList<std::pair<QString, QString>> units{
            {QString(), u"900"_qs}, {u"0"_qs, u"900"_qs}, {u"2"_qs, u"450"_qs}, {u"1.5"_qs, u"600"_qs}};
        for (const auto& [quantity, unit] : units) {
            line.Suryo = quantity;
            QCOMPARE(composed({{item}, {line}, {}}).item(1).make.first().at(MakeLine::UnitPrice), unit);
        }
    }

    void bothSubtotalsOfAnItemAreWrittenAs0() {
        const EstimateRows rows = rowsOf(EstimateSamples::order(1, 0).composition, u"7"_qs);
        QCOMPARE(rows.items.first().MkElmTotal, u"0"_qs);
        QCOMPARE(rows.items.first().CpElmTotal, u"0"_qs);
    }
};

HALVANE_TEST(EstimateCommandsTest)
#include "EstimateCommandsTest.moc"
