#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "customers/clsCustomerManager.h"
#include "estimates/EstimateListFilter.h"
#include "estimates/EstimateManagers.h"

class EstimateListFilterTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

    qint64 found(const EstimateListFilter& filter) { return gCsEstimateManager.CountWithMst(filter.condition()); }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanupTestCase() { m_database.reset(); }

    // The list of persons is read by their keys alone, in another statement for each kind of search.
    void keysAreThoseOfTheList_data() {
        QTest::addColumn<EstimateListFilter>("filter");
        QTest::addColumn<bool>("some");
        using Texts = QList<std::pair<QString EstimateListFilter::*, QString>>;
        const auto row = [](const char* name, const Texts& texts, bool some) {
            EstimateListFilter filter;
            for (const auto& [member, text] : texts) filter.*member = text;
            QTest::newRow(name) << filter << some;
        };
        const std::pair number{&EstimateListFilter::EstNo, u"2024"_qs};
        const std::pair law{&EstimateListFilter::InsNo, u"1"_qs};
        row("nothing", {}, true);
        row("person", {{&EstimateListFilter::Name1, u"田"_qs}}, true);
        row("estimate number", {number}, true);
        row("estimate number of nobody", {{&EstimateListFilter::EstNo, u"x"_qs}}, false);
        row("person and estimate number", {{&EstimateListFilter::Name1, u"青"_qs}, number}, true);
        row("law", {law}, true);
        row("law and estimate number", {law, number}, true);
        row("chart", {{&EstimateListFilter::DiseaseNm, u"麻痺"_qs}}, true);
    }
    void keysAreThoseOfTheList() {
        QFETCH(EstimateListFilter, filter);
        QFETCH(bool, some);
        const QString order = u"[顧客情報].[顧客番号]"_qs;
        QList<clsCustomer> listed;
        gCustomerManager.GetListWithEst(listed, filter.condition(), order);
        QStringList told, keys;
        for (const clsCustomer& customer : listed) told << clsCustomerManager::listKey(customer);
        Recordset rows = m_database->connection().query(clsCustomerManager::KeysWithEst(filter.condition(), order));
        while (rows.next()) keys << rows.value(0);
        QCOMPARE(keys, told);
        QCOMPARE(!keys.isEmpty(), some);
    }

    void nothingAskedGivesNoCondition() {
        QCOMPARE(EstimateListFilter().condition(), QString());
        QCOMPARE(found({}), m_database->connection().scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs).toLongLong());
    }

    void eachTextHasItsTerm_data() {
        QTest::addColumn<QString>("told");
        QTest::addColumn<EstimateListFilter>("filter");
        const auto row = [](QString EstimateListFilter::*member, const QString& told) {
            EstimateListFilter filter;
            filter.*member = u"甲"_qs;
            QTest::addRow("%s", qPrintable(told)) << told << filter;
        };
        row(&EstimateListFilter::CsNo, u" [顧客情報].[顧客番号] LIKE '甲%'"_qs);
        row(&EstimateListFilter::Name1, u" [顧客情報].[名前1] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Name2, u" [顧客情報].[名前2] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Kana1, u" [顧客情報].[フリガナ1] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Kana2, u" [顧客情報].[フリガナ2] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Zip, u" [顧客情報].[郵便番号] LIKE '甲%'"_qs);
        row(&EstimateListFilter::Pref, u" [顧客情報].[都道府県] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::City, u" [顧客情報].[市区郡] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Addr, u" [顧客情報].[住所1] & [顧客情報].[住所2] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::TelNo, u" [顧客情報].[電話] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::EstNo, u" [顧客見積情報].[見積番号] LIKE '甲%'"_qs);
        row(&EstimateListFilter::ProductCd, u" [顧客見積情報].[製品コード] LIKE '甲%'"_qs);
        row(&EstimateListFilter::ProductNm, u" [顧客見積情報].[見積名称] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Producer, u" [顧客見積情報].[製作担当者] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::DiseaseNm, u" [顧客カルテ].[病名原因] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::OrderCd, u" [受注先].[受注先コード] LIKE '甲%'"_qs);
        row(&EstimateListFilter::OrderNm, u" [顧客カルテ].[受注先] LIKE '%甲%'"_qs);
        row(&EstimateListFilter::Doctor, u" [顧客カルテ].[主治医] LIKE '%甲%'"_qs);
    }
    void eachTextHasItsTerm() {
        QFETCH(QString, told);
        QFETCH(EstimateListFilter, filter);
        QCOMPARE(filter.condition(), told);
        QCOMPARE(found(filter), 0);
    }

    void datesBoundBothWays() {
        EstimateListFilter filter;
        filter.Birth = u"1948/02/11"_qs;
        filter.RecvDate = {u"2024/04/01"_qs, {}};
        filter.LifeEnd = {{}, u"2030/03/31"_qs};
        QCOMPARE(filter.condition(),
                 u" [顧客情報].[生年月日] = #1948/02/11# AND  [顧客見積情報].[受付日] >= #2024/04/01#"
                 u" AND  [顧客見積情報].[耐用完了日] <= #2030/03/31#"_qs);
        QVERIFY(found(filter) > 0);
    }

    void eachPeriodHasItsColumn() {
        using Period = EstimateListFilter::Period EstimateListFilter::*;
        const QList<std::pair<Period, QString>> periods{{&EstimateListFilter::RecvDate, u"受付日"_qs},
                                                        {&EstimateListFilter::PickPtnDate, u"採型日"_qs},
                                                        {&EstimateListFilter::DelvFinDate, u"納品実績日"_qs},
                                                        {&EstimateListFilter::LifeEnd, u"耐用完了日"_qs}};
        for (const auto& [period, column] : periods) {
            EstimateListFilter filter;
            filter.*period = {u"2024/05/01"_qs, u"2024/05/31"_qs};
            QCOMPARE(filter.condition(),
                     u" [顧客見積情報].[%1] >= #2024/05/01# AND [顧客見積情報].[%1] <= #2024/05/31#"_qs.arg(column));
            Recordset inside = m_database->connection().query(
                u"SELECT COUNT(*) FROM [顧客見積情報] WHERE [%1] BETWEEN #2024/05/01# AND #2024/05/31#"_qs.arg(column));
            QVERIFY(inside.next());
            const qint64 told = inside.value(0).toLongLong();
            QCOMPARE(found(filter), told);
        }
    }

    void statusesStandTogether() {
        EstimateListFilter filter;
        filter.ProcKbn = QStringList{u"1"_qs, u"99"_qs};
        QCOMPARE(filter.condition(), u" [顧客見積情報].[処理区分] IN (1,99)"_qs);
        const qint64 these = found(filter);
        QVERIFY(these > 0);
        QVERIFY(these < found({}));
    }

    // One claim line must answer all that is asked of claims.
    void claimsAreOneTerm() {
        EstimateListFilter filter;
        filter.InsNo = u"3"_qs;
        filter.ClaimNm = u"後期高齢"_qs;
        QCOMPARE(
            filter.condition(),
            u" [顧客見積情報].[見積ID] IN  (SELECT [顧客見積請求].[見積ID] FROM ([顧客見積請求] LEFT JOIN [請求先] ON"
            u" ([顧客見積請求].[請求先No] = [請求先].[請求先No])) WHERE  [顧客見積請求].[法別No] = 3 AND "
            u" [顧客見積請求].[請求先] LIKE '%後期高齢%')"_qs);
        QVERIFY(found(filter) > 0);
        filter.InsNo = u"99"_qs;
        QCOMPARE(found(filter), 0);
        filter = {};
        filter.ClaimCd = u"2"_qs;
        QVERIFY(filter.condition().text().endsWith(u"WHERE  [請求先].[請求先コード] LIKE '2%')"_qs));
        QVERIFY(found(filter) > 0);
        filter.ClaimCd = u"x"_qs;
        QCOMPARE(found(filter), 0);
    }

    void signsStandForThemselves_data() {
        QTest::addColumn<QString>("sign");
        for (const char* sign : {"%", "_", "[", "]", "'", "-", "\\", "*"})
            QTest::addRow("%s", sign) << QString::fromUtf8(sign);
    }
    void signsStandForThemselves() {
        QFETCH(QString, sign);
        EstimateListFilter filter;
        filter.ProductNm = sign;
        QCOMPARE(found(filter), 0);
        const QString rename = u"UPDATE [顧客見積情報] SET [見積名称] = '%1' WHERE [見積ID] = '0000000001'"_qs;
        m_database->connection().execute(rename.arg(u"前"_qs + QString(sign).replace(u'\'', u"''"_qs) + u"後"_qs));
        QCOMPARE(found(filter), 1);
        m_database->connection().execute(rename.arg(u"元"_qs));
    }

    void tickedCustomersNarrowTheCondition() {
        QCOMPARE(withCustomers(u"x"_qs, {}), u"x"_qs);
        const QList<CustomerKey> two{{u"00000001"_qs, u"1"_qs}, {u"00000002"_qs, u"1"_qs}};
        const QString narrowed = u"[顧客見積情報].[顧客ID] IN ('00000001','00000002') AND (([顧客情報].[顧客ID] = "
                                 u"'00000001' AND [顧客情報].[顧客枝番] = 1) OR "
                                 u"([顧客情報].[顧客ID] = '00000002' AND [顧客情報].[顧客枝番] = 1))"_qs;
        QCOMPARE(withCustomers({}, two), narrowed);
        QCOMPARE(withCustomers(u"x"_qs, two), u"x AND "_qs + narrowed);
        QVERIFY(gCsEstimateManager.CountWithMst(withCustomers({}, two)) > 5);
    }

    void aTableThatNothingAsksForStaysAway() {
        const auto joined = [](const QString& statement) {
            QString tables;
            for (const QString& table : {u"顧客情報"_qs, u"顧客カルテ"_qs, u"受注先"_qs, u"製作担当者"_qs})
                tables += statement.contains(u"JOIN ["_qs + table) ? u'x' : u'-';
            return tables;
        };
        EstimateListFilter filter;
        QCOMPARE(joined(clsCsEstimateManager::KeysWithMst(filter.condition(), gCsEstimateManager.byKey())), u"----"_qs);
        QCOMPARE(joined(clsCsEstimateManager::KeysWithMst(
                     {}, gCsEstimateManager.ListOrder({gChartManager.column(&clsChart::OrderNm)}, true))),
                 u"-x--"_qs);
        QCOMPARE(joined(clsCsEstimateManager::ListWithMst({}, {})), u"xx--"_qs);
        filter.Producer = u"山"_qs; // a column of the estimate
        filter.Name1 = u"田"_qs;
        QCOMPARE(joined(clsCsEstimateManager::KeysWithMst(filter.condition(), {})), u"x---"_qs);
        filter.OrderCd = u"1"_qs;
        QCOMPARE(joined(clsCsEstimateManager::KeysWithMst(filter.condition(), {})), u"xxx-"_qs);
        QCOMPARE(joined(clsCustomerManager::KeysWithEst(filter.condition(), {})), u"-xx-"_qs);
        QCOMPARE(joined(clsCsEstimateManager::KeysWithMst(filter.condition().text(), {})), u"xxxx"_qs);
    }

    // The way to the customers hangs on what is asked.
    void customersAreFoundTheShortestWay() {
        const auto statement = [](QString EstimateListFilter::*member) {
            EstimateListFilter filter;
            filter.*member = u"1"_qs;
            return clsCustomerManager::KeysWithEst(filter.condition(), gCustomerManager.column(&clsCustomer::CustNo));
        };
        QVERIFY(statement(&EstimateListFilter::EstNo).startsWith(u"SELECT DISTINCT"_qs));
        QVERIFY(statement(&EstimateListFilter::CsNo).contains(u"'1%') AND EXISTS ("_qs));
        QVERIFY(statement(&EstimateListFilter::DiseaseNm).contains(u"WHERE EXISTS ("_qs));
    }

    void aCustomerThatIsGoneLeavesTheEstimate() {
        m_database->connection().execute(u"DELETE FROM [顧客情報] WHERE [顧客ID] = '00000033'"_qs);
        QList<clsCsEstimate> estimates;
        QList<clsCustomer> customers;
        QList<clsChart> charts;
        gCsEstimateManager.GetListWithMst(estimates, customers, charts, {}, u"[顧客見積情報].[見積ID]"_qs);
        QCOMPARE(estimates.size(), gCsEstimateManager.CountWithMst({}));
        QCOMPARE(gCsEstimateManager.IdsWithMst({}, u"[顧客見積情報].[見積ID]"_qs).size(), estimates.size());
    }
};

HALVANE_TEST(EstimateListFilterTest)
#include "EstimateListFilterTest.moc"
