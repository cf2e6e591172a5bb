#include "HalvaneTest.h"
#include "support/PaymentSamples.h"
#include "support/TestDatabase.h"

#include "base/clsProfile.h"
#include "db/clsSysSettingManager.h"
#include "reports/Statistics.h"
#include "reports/clsReportManager.h"

namespace {

const QString order = u"0000000087"_qs; // 佐々木　恵 at みほん大学附属病院

} // namespace

// The record sets of the statistics, from what is stored.
class StatisticsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    clsReportManager m_manager;

    void execute(const QString& statement) { m_database->connection().execute(statement); }
    ReportRecordset plan(const WorkPlanSearch& search) {
        ReportRecordset records;
        m_manager.GetStWorkPlanData(search, records);
        return records;
    }
    ReportRecordset sales(PaymentSearch search = {}) {
        ReportRecordset records;
        search.Status = u"3"_qs;
        m_manager.GetStOrderSalesData(search, records);
        return records;
    }
    ReportRecordset unpaid(const PaymentSearch& search) {
        ReportRecordset records;
        m_manager.GetStNoPaymentData(search, {}, records);
        return records;
    }
    static int rowOf(const ReportRecordset& records, const QString& estNo) {
        for (int row = 0; row < records.rowCount(); ++row)
            if (records.text(row, u"EstNo"_qs) == estNo) return row;
        return -1;
    }
    static QStringList down(const ReportRecordset& records, const QString& field) {
        QStringList values;
        for (int row = 0; row < records.rowCount(); ++row) values << records.text(row, field);
        return values;
    }
    void addClaims(const QString& id, int count, const QString& law) {
        execute(u"DELETE FROM [顧客見積請求] WHERE [見積ID] = '%1'"_qs.arg(id));
        for (int claim = 1; claim <= count; ++claim)
            execute(
                u"INSERT INTO [顧客見積請求] ([見積ID], [請求No], [法別No], [請求金額], [領収金額], [入金日]) VALUES "
                u"('%1', %2, %3, 200, %4, #2026/11/0%2#)"_qs.arg(id)
                    .arg(claim)
                    .arg(law)
                    .arg(100 * claim));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        m_manager.Prepare(m_database->connection());
    }
    void cleanup() { m_database.reset(); }

    // --- the work plan ---

    void threePlannedDatesOfOneDayStandInTheirOrder() {
        execute(u"UPDATE [顧客見積情報] SET [仮合予定日] = #2031/05/01#, [完成予定日] = #2031/05/01#, "
                u"[納品予定日] = #2031/05/01# WHERE [見積ID] = '%1'"_qs.arg(order));
        const ReportRecordset records = plan({{}, {}, {}, u"2031/05/01"_qs, u"2031/05/01"_qs});
        QCOMPARE(down(records, u"PlanNm"_qs), (QStringList{u"仮合"_qs, u"完成"_qs, u"納品"_qs}));
        QCOMPARE(down(records, u"PlanCd"_qs), (QStringList{u"1"_qs, u"2"_qs, u"3"_qs}));
        QCOMPARE(records.text(0, u"CustNm"_qs), u"佐々木　恵"_qs);
        QCOMPARE(records.text(0, u"PlanDate"_qs), u"2031/05/01"_qs);
    }

    void withoutAnyConditionThePlanHasNoWhere() {
        QVERIFY(!workPlanStatement({}).contains(u"WHERE"));
        QCOMPARE(plan({}).rowCount(), 3 * 120);
        QCOMPARE(workPlanStatement({}).count(u" UNION "), 2);
    }

    void conditionsNarrowThePlan() {
        WorkPlanSearch search;
        search.OrderNm = u"大学"_qs;
        search.Producer = u"三輪"_qs;
        search.DateFrom = u"2026/04/01"_qs;
        search.DateTo = u"2026/10/31"_qs;
        const ReportRecordset records = plan(search);
        QVERIFY(records.rowCount() > 0);
        for (int row = 0; row < records.rowCount(); ++row) {
            QVERIFY(records.text(row, u"Order"_qs).contains(u"大学"));
            QVERIFY(records.text(row, u"Producer"_qs).contains(u"三輪"));
            QVERIFY(records.text(row, u"PlanDate"_qs) >= search.DateFrom &&
                    records.text(row, u"PlanDate"_qs) <= search.DateTo);
        }
        search.OrderCd = u"9999"_qs;
        QCOMPARE(plan(search).rowCount(), 0);
    }

    void thePlanIsSortedByItsKey() {
        const QStringList dates = down(plan({}), u"PlanDate"_qs);
        QVERIFY(std::is_sorted(dates.begin(), dates.end()));
        WorkPlanSearch search;
        search.byOrder = true;
        const QStringList parties = down(plan(search), u"Order"_qs);
        QStringList runs;
        for (const QString& party : parties)
            if (runs.isEmpty() || runs.last() != party) runs << party;
        QCOMPARE(runs.size(), QSet<QString>(parties.begin(), parties.end()).size());
        QVERIFY(runs.size() > 3);
    }

    void withoutPricesThePlanHasNoAmounts() {
        const ReportRecordset records = plan({});
        for (const QString& field : {u"EstTotal"_qs, u"EstBalance"_qs, u"Utikin"_qs, u"AllEstTotal"_qs,
                                     u"AllEstBalanceTotal"_qs, u"AllUtikinTotal"_qs})
            QCOMPARE(down(records, field).join(QString()), QString());
    }

    void withPricesEachRowCountsAndTheLastCarriesTheSums() {
        execute(u"UPDATE [顧客見積情報] SET [完成予定日] = #2031/05/01#, [納品予定日] = #2031/05/02# "
                u"WHERE [見積ID] = '%1'"_qs.arg(order));
        WorkPlanSearch search{{}, {}, {}, u"2031/05/01"_qs, {}};
        search.prices = true;
        const ReportRecordset records = plan(search);
        QCOMPARE(records.rowCount(), 2);
        QCOMPARE(records.text(0, u"EstTotal"_qs), u"677,340"_qs);
        QCOMPARE(records.text(0, u"Utikin"_qs), u"474,138"_qs);
        QCOMPARE(records.text(0, u"EstBalance"_qs), u"101,601"_qs);
        QCOMPARE(records.text(0, u"AllEstTotal"_qs), u"677,340"_qs);
        QCOMPARE(records.text(1, u"AllEstTotal"_qs), u"1,354,680"_qs);
        QCOMPARE(records.text(1, u"AllUtikinTotal"_qs), u"948,276"_qs);
        QCOMPARE(records.text(1, u"AllEstBalanceTotal"_qs), u"203,202"_qs);
    }

    void aPlanNamesThreeLaws() {
        execute(u"UPDATE [顧客見積情報] SET [納品予定日] = #2031/05/02# WHERE [見積ID] = '%1'"_qs.arg(order));
        const ReportRecordset records = plan({{}, {}, {}, u"2031/05/01"_qs, {}});
        QCOMPARE(records.text(0, u"Ins1"_qs), u"国民健康保険"_qs);
        QCOMPARE(records.text(0, u"Ins3"_qs), u"生活保護"_qs);
    }

    // --- sales ---

    void aFifthPublicClaimIsNotInTheSales() {
        addClaims(order, 5, u"1"_qs);
        const ReportRecordset records = sales();
        const int row = rowOf(records, u"2026000017"_qs);
        QCOMPARE(records.text(row, u"PPayPrice4"_qs), u"400"_qs);
        QCOMPARE(records.text(row, u"PPayPrice"_qs), u"1000"_qs);
        QCOMPARE(records.text(row, u"SumPrice"_qs), u"1000"_qs);
        QCOMPARE(records.text(row, u"DiffPrice"_qs), u"676340"_qs);
        QCOMPARE(records.text(row, u"MPayPrice"_qs), u"0"_qs);
    }

    void aFifthOwnPaymentIsNotInTheSales() {
        addClaims(order, 5, u"99"_qs);
        const int row = rowOf(sales(), u"2026000017"_qs);
        QCOMPARE(sales().text(row, u"MPayPrice4"_qs), u"400"_qs);
        QCOMPARE(sales().text(row, u"MPayPrice"_qs), u"1000"_qs);
        QCOMPARE(sales().text(row, u"PIns1"_qs), QString());
    }

    void aClaimWithoutALawIsPassedOver() {
        addClaims(order, 2, u"1"_qs);
        execute(u"UPDATE [顧客見積請求] SET [法別No] = NULL WHERE [見積ID] = '%1' AND [請求No] = 1"_qs.arg(order));
        const ReportRecordset records = sales();
        const int row = rowOf(records, u"2026000017"_qs);
        QCOMPARE(records.text(row, u"PPayPrice1"_qs), u"200"_qs);
        QCOMPARE(records.text(row, u"PPayPrice2"_qs), QString());
    }

    void salesAreWhatIsCompleteAndWillBePaid() {
        const QString expected =
            m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客見積情報] WHERE [処理区分] <= 3"_qs);
        QCOMPARE(QString::number(sales().rowCount()), expected);
        QCOMPARE(rowOf(sales(), u"2025000007"_qs), -1); // 未回収
        execute(u"UPDATE [顧客カルテ] SET [受注先] = NULL WHERE [顧客ID] = '00000025'"_qs);
        QCOMPARE(rowOf(sales(), u"2026000017"_qs), -1);
    }

    // --- unpaid and paid ---

    void anUnpaidOrderCarriesItsClaimsAndTheSumsSoFar() {
        PaymentSearch search;
        search.Status = u"2"_qs;
        const ReportRecordset records = unpaid(search);
        QCOMPARE(records.rowCount(), 8);
        QCOMPARE(records.text(0, u"EstNo"_qs), u"2026000017"_qs);
        QCOMPARE(records.text(0, u"Ins1"_qs), u"国民健康保険"_qs);
        QCOMPARE(records.text(0, u"AskPrice"_qs), u"677340"_qs);
        QCOMPARE(records.text(0, u"PayPrice"_qs), u"575739"_qs);
        QCOMPARE(records.text(0, u"PayDate1"_qs), u"2026/10/20"_qs);
        QCOMPARE(records.text(0, u"Biko1"_qs), QString());
        QCOMPARE(records.text(0, u"Biko2"_qs), u"未入金"_qs);
        QCOMPARE(records.text(0, u"Utikin"_qs), u"474138"_qs);
        QCOMPARE(records.text(0, u"EstBalance"_qs), u"101601"_qs);
        QCOMPARE(records.text(1, u"AllEstTotal"_qs), u"912490"_qs);
        QCOMPARE(records.text(1, u"AllUtikinTotal"_qs), u"474138"_qs);
    }

    void thePaidOnesStandByTheirDay() {
        PaymentSearch search;
        search.DateFrom = u"2024/07/01"_qs;
        search.DateTo = u"2024/07/17"_qs;
        ReportRecordset records;
        m_manager.GetStPaymentData(search, {}, records);
        QVERIFY(records.rowCount() > 0);
        for (const QString& day : down(records, u"PayDate"_qs)) QVERIFY(day >= search.DateFrom && day <= search.DateTo);
    }

    void aStoppedGatheringEndsEarly() {
        PaymentSamples::addOrders(m_database->connection(), 1200);
        int pauses = 0;
        ReportRecordset records;
        m_manager.GetStNoPaymentData({}, {}, records, [&pauses] { return ++pauses < 1; });
        QCOMPARE(pauses, 1);
        QCOMPARE(records.rowCount(), 500);
    }

    // --- which paper ---

    void thePlanIsChosenBySizeAndVariant_data() {
        QTest::addColumn<QString>("size");
        QTest::addColumn<bool>("byOrder");
        QTest::addColumn<QString>("variant");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("by date") << u"1"_qs << false << QString() << u"repStWorkPlanTD"_qs;
        QTest::newRow("by date, variant") << u"1"_qs << false << u"repStWorkPlanTD2=1\r\n"_qs << u"repStWorkPlanTD2"_qs;
        QTest::newRow("by date, B5") << u"2"_qs << false << u"repStWorkPlanTD2=1\r\n"_qs << u"repStWorkPlanTDB5"_qs;
        QTest::newRow("by party") << u"3"_qs << true << u"repStWorkPlanTD2=1\r\n"_qs << u"repStWorkPlanTO"_qs;
        QTest::newRow("by party, variant") << u"1"_qs << true << u"repStWorkPlanTO2=1\r\n"_qs << u"repStWorkPlanTO2"_qs;
        QTest::newRow("by party, B5") << u"2"_qs << true << QString() << u"repStWorkPlanTOB5"_qs;
    }
    void thePlanIsChosenBySizeAndVariant() {
        QFETCH(QString, size);
        QFETCH(bool, byOrder);
        QFETCH(QString, variant);
        execute(u"UPDATE [システム設定] SET [設定値] = '%1' WHERE [No] = 40"_qs.arg(size));
        m_database->writeProfile(u"[Variant]\r\n"_qs + variant);
        QTEST(statisticsClass(workPlanPaper(byOrder), clsProfile(), gSysSettingManager), "chosen");
        QVERIFY(!hasBalanceList(clsProfile()));
    }

    void theListOfBalancesIsTheInstallations() {
        m_database->writeProfile(u"[Variant]\r\nrepStNoPayment2=1\r\n"_qs);
        QVERIFY(hasBalanceList(clsProfile()));
        QCOMPARE(statisticsClass(noPaymentPaper(), clsProfile(), gSysSettingManager), u"repStNoPayment2"_qs);
    }
};

HALVANE_TEST(StatisticsTest)
#include "StatisticsTest.moc"
