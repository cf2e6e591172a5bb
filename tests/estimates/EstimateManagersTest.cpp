#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "estimates/EstimateManagers.h"

namespace {

const QStringList ledger{u"品名"_qs, u"装具名"_qs, u"支払法名"_qs, u"値引額"_qs, u"売掛区分"_qs};
const QStringList stamps{u"登録日"_qs, u"更新日"_qs};

// A value for each column, told apart by its place.
clsCsEstimate filled() {
    clsCsEstimate estimate;
    int number = 0;
    const Schema::Table& table = *Schema::table(u"顧客見積情報"_qs);
    for (const auto& field : gCsEstimateManager.fields()) {
        const Schema::Column& column = *table.column(field.column);
        ++number;
        estimate.*field.member =
            column.isDate() ? u"2026/04/%1"_qs.arg(number % 28 + 1, 2, 10, QChar(u'0')) : QString::number(number);
    }
    estimate.EstId = u"  "_qs;
    return estimate;
}

} // namespace

class EstimateManagersTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
        setSystemDate(u"2026/04/01"_qs);
    }
    void cleanup() {
        setSystemDate({});
        m_database.reset();
    }

    void headerOfBlanksGetsNewNumbers() {
        sql(u"UPDATE [採番] SET [最終値] = '0000000041' WHERE [項目名] = '見積ID'"_qs);
        sql(u"UPDATE [採番] SET [最終値] = '000007', [桁] = 6, [年度] = '2025' WHERE [項目名] = '見積番号'"_qs);
        clsCsEstimate estimate = filled();
        gCsEstimateManager.SaveData(estimate);
        QCOMPARE(estimate.EstId, u"0000000042"_qs);
        QCOMPARE(estimate.EstNo, u"2026000001"_qs);
        clsCsEstimate stored;
        QVERIFY(gCsEstimateManager.GetData(estimate.EstId, stored));
        for (const auto& field : gCsEstimateManager.fields()) {
            if (ledger.contains(field.column))
                QCOMPARE(stored.*field.member, QString());
            else if (!stamps.contains(field.column))
                QCOMPARE(stored.*field.member, estimate.*field.member);
        }
        QVERIFY(!stored.AddDate.isEmpty());
    }

    void numberThatCannotBeDrawnIsAnError() {
        sql(u"DELETE FROM [採番] WHERE [項目名] = '見積番号'"_qs);
        clsCsEstimate estimate = filled();
        QVERIFY(errorOf([&] { gCsEstimateManager.SaveData(estimate); }));
        QCOMPARE(count(u"顧客見積情報"_qs), u"0"_qs);
    }

    void numberThatIsTakenIsPassedOver() {
        sql(u"UPDATE [採番] SET [最終値] = '000000', [桁] = 6, [年度] = '2026' WHERE [項目名] = '見積番号'"_qs);
        QCOMPARE(saved().EstNo, u"2026000001"_qs);
        QCOMPARE(saved().EstNo, u"2026000002"_qs);
        sql(u"UPDATE [採番] SET [最終値] = '000000' WHERE [項目名] = '見積番号'"_qs);
        sql(u"UPDATE [採番] SET [最終値] = '0000000000' WHERE [項目名] = '見積ID'"_qs);
        const clsCsEstimate third = saved();
        QCOMPARE(third.EstNo, u"2026000003"_qs);
        QCOMPARE(third.EstId, u"0000000003"_qs);
        QCOMPARE(count(u"顧客見積情報"_qs), u"3"_qs);
    }

    void numberThatItsColumnDoesNotHoldIsRefused() {
        sql(u"UPDATE [採番] SET [最終値] = '99999998', [桁] = 8, [年度] = '2026' WHERE [項目名] = '見積番号'"_qs);
        QCOMPARE(saved().EstNo, u"202699999999"_qs);
        QCOMPARE(raised([] { saved(); }), u"新しい見積番号 2026100000000 は 12 文字を超えるため登録できません。"
                                          u"採番の最終値を確認してください。"_qs);
        QCOMPARE(count(u"顧客見積情報"_qs), u"1"_qs);
    }

    void saveOfTheEditorLeavesTheLedger() {
        clsCsEstimate estimate = saved();
        gCsEstimateManager.UpUrikake(estimate.EstId, u"品'"_qs, u"装"_qs, u"払"_qs, u"500"_qs, u"Ⅱ"_qs);
        estimate.EstNm = u"改"_qs;
        gCsEstimateManager.SaveData(estimate);
        const clsCsEstimate row = stored(estimate.EstId);
        QCOMPARE(row.EstNm, u"改"_qs);
        QCOMPARE((QStringList{row.Articles, row.EquipMent, row.Payment, row.Discount, row.Urikake}),
                 (QStringList{u"品'"_qs, u"装"_qs, u"払"_qs, u"500"_qs, u"Ⅱ"_qs}));
    }

    void headerWithoutARowIsAnUpdateOfNothing() {
        clsCsEstimate estimate = filled();
        estimate.EstId = u"none"_qs;
        gCsEstimateManager.SaveData(estimate);
        QCOMPARE(count(u"顧客見積情報"_qs), u"0"_qs);
        QVERIFY(!gCsEstimateManager.GetData(u"none"_qs, estimate));
    }

    void itemsAreReplacedAsAWhole() {
        QList<clsCsItem> items{item(u"E'1"_qs, 1), item(u"E'1"_qs, 2), item(u"E'1"_qs, 3)};
        gCsItemManager.SaveData(items);
        gCsItemManager.SaveData({item(u"E2"_qs, 1)});
        gCsItemManager.SaveData({item(u"E'1"_qs, 2)});
        QList<clsCsItem> rows;
        gCsItemManager.GetList(rows, u"[見積ID] = 'E''1' "_qs, u"[見積種目No] "_qs);
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.first().EstItemNo, u"2"_qs);
        QCOMPARE(count(u"顧客見積種目"_qs), u"2"_qs);
        gCsItemManager.SaveData({});
        QCOMPARE(count(u"顧客見積種目"_qs), u"2"_qs);
        gCsItemManager.DeleteData(u"E'1"_qs);
        QCOMPARE(count(u"顧客見積種目"_qs), u"1"_qs);
    }

    void rowsBelowAnEstimateReadBackByTheirKey() {
        roundTrip(gCsItemManager, {u"E1"_qs, u"1"_qs});
        roundTrip(gCsMakeElmtManager, {u"E1"_qs, u"1"_qs, u"1"_qs});
        roundTrip(gCsCmpltElmtManager, {u"E1"_qs, u"1"_qs, u"1"_qs});
        roundTrip(gCsEstAskManager, {u"E1"_qs, u"1"_qs});
    }

    void deletionOfABlankIdTakesNoOthersRows() {
        gCsItemManager.SaveData({item(u"E1"_qs, 1)});
        const clsCsEstimate estimate = saved();
        gCsItemManager.DeleteData({});
        gCsEstimateManager.DeleteData(u"  "_qs);
        QCOMPARE(count(u"顧客見積種目"_qs) + count(u"顧客見積情報"_qs), u"11"_qs);
        gCsEstimateManager.DeleteData(estimate.EstId);
        QCOMPARE(count(u"顧客見積情報"_qs), u"0"_qs);
    }

    void paidClaimLinesKeepTheirDate() {
        ask(1, u"2026/01/01"_qs);
        ask(2, {});
        gCsEstAskManager.UpdPayDate(u"E1"_qs, u"2026/05/05"_qs);
        QCOMPARE(asks(&clsCsEstAsk::PayDate), u"2026/01/01 2026/05/05"_qs);
    }

    void amountReceivedGoesToTheFirstClaimLine() {
        ask(1, {});
        ask(2, {});
        gCsEstAskManager.UpdPayDate2(u"E1"_qs, u"70299"_qs);
        QCOMPARE(asks(&clsCsEstAsk::PayPrice), u"70299 0"_qs);
    }

    void paymentSetsTheStatus_data() {
        QTest::addColumn<QString>("date");
        QTest::addColumn<bool>("flag");
        QTest::addColumn<QString>("status");
        QTest::newRow("paid") << u"2026/05/05"_qs << false << u"1"_qs;
        QTest::newRow("paid, with the flag") << u"2026/05/05"_qs << true << u"1"_qs;
        QTest::newRow("taken back as uncollected") << QString() << true << u"99"_qs;
        QTest::newRow("taken back") << QString() << false << u"8"_qs;
    }
    void paymentSetsTheStatus() {
        QFETCH(QString, date);
        QFETCH(bool, flag);
        const clsCsEstimate estimate = saved();
        sql(u"UPDATE [顧客見積情報] SET [処理区分] = 8"_qs);
        gCsEstimateManager.UpdPayDate(estimate.EstId, date, u"5"_qs, flag);
        const clsCsEstimate row = stored(estimate.EstId);
        QTEST(row.ProcKbnNo, "status");
        QCOMPARE(row.PayInFinDate, date);
        QCOMPARE(row.UpdUserNo, u"5"_qs);
    }

    void listShowsCustomerAndChart() {
        clsCsEstimate estimate = filled();
        estimate.CustId = u"C1"_qs;
        estimate.CustSubId = u"1"_qs;
        estimate.ChartNo = u"1"_qs;
        gCsEstimateManager.SaveData(estimate);
        sql(u"INSERT INTO 顧客情報 ([顧客ID], [顧客枝番], [顧客番号], [名前1], [生年月日]) VALUES ('C1', 1, '20260001', '山田', #1960/05/01#)"_qs);
        sql(u"INSERT INTO 顧客カルテ ([顧客ID], [顧客枝番], [カルテNo], [受注先]) VALUES ('C1', 1, 1, '病院')"_qs);
        const auto list = [](const QString& where, QList<clsCustomer>& customers, QList<clsChart>& charts) {
            QList<clsCsEstimate> estimates;
            gCsEstimateManager.GetListWithMst(estimates, customers, charts, where, u"[顧客見積情報].[見積ID]"_qs);
            return estimates;
        };
        QList<clsCustomer> customers;
        QList<clsChart> charts;
        const QList<clsCsEstimate> found =
            list(u"[顧客情報].[名前1] = '山田' AND [顧客カルテ].[受注先] LIKE '病%'"_qs, customers, charts);
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().EstId, estimate.EstId);
        QCOMPARE(customers.value(0).Birth, u"1960/05/01"_qs);
        QCOMPARE(charts.value(0).OrderNm, u"病院"_qs);

        gCustomerManager.DeleteData(u"C1"_qs, u"1"_qs);
        customers.clear();
        charts.clear();
        QCOMPARE(list({}, customers, charts).size(), 1);
        QCOMPARE(customers.size(), 1);
        QCOMPARE(customers.first().CustNo + customers.first().CustNm1 + customers.first().Birth, QString());
        QCOMPARE(charts.first().OrderNm, u"病院"_qs);
    }

    void productsAreOfferedByTheStartOfTheirCode() {
        for (const auto& [id, code] : {std::pair{"1", "B%2"}, {"2", "B%1"}, {"3", "BX"}})
            sql(u"INSERT INTO マスタ見積情報 ([製品ID], [製品コード], [製品名称]) VALUES ('x%1', '%2', 'n%1')"_qs.arg(
                QString::fromLatin1(id), QString::fromLatin1(code)));
        Recordset rows = gCsEstimateManager.GetProductList(u"B%"_qs);
        QStringList found;
        while (rows.next())
            found << rows.value(u"製品ID"_qs) + rows.value(u"製品コード"_qs) + rows.value(u"製品名称"_qs);
        QCOMPARE(found.join(u' '), u"x2B%1n2 x1B%2n1"_qs);
    }

    void lawsOfAnEstimateAreCutToTwoCharacters() {
        const clsCsEstimate estimate = saved();
        sql(u"UPDATE [法別] SET [法別] = '社会保険' WHERE [法別No] = 1"_qs);
        sql(u"UPDATE [法別] SET [法別] = '自費' WHERE [法別No] = 12"_qs);
        for (const auto& [number, law] : {std::pair{1, 12}, {2, 1}, {3, 777}})
            sql(u"INSERT INTO 顧客見積請求 ([見積ID], [請求No], [法別No]) VALUES ('%1', %2, %3)"_qs.arg(estimate.EstId)
                    .arg(number)
                    .arg(law));
        QString list;
        bool excluded = false;
        gCsEstimateManager.GetInsData(estimate.EstId, list, u"生活保護,社会"_qs, excluded);
        QCOMPARE(list, u"社会,自費"_qs);
        QVERIFY(!excluded);
        list.clear();
        gCsEstimateManager.GetInsData(estimate.EstId, list, u"生活保護,社会保険"_qs, excluded);
        QVERIFY(excluded);
    }

    void claimsOfManyEstimatesAreReadTogether() {
        const QString first = saved().EstId, second = saved().EstId, none = saved().EstId;
        for (const auto& [id, number, law] :
             QList<std::tuple<QString, int, int>>{{second, 2, 1}, {first, 1, 99}, {second, 1, 3}})
            sql(u"INSERT INTO 顧客見積請求 ([見積ID], [請求No], [法別No]) VALUES ('%1', %2, %3)"_qs.arg(id)
                    .arg(number)
                    .arg(law));
        int statements = 0;
        m_database->connection().onStatement = [&](const QString&) { ++statements; };
        const auto claims = gCsEstAskManager.ClaimsOf({first, second, none});
        m_database->connection().onStatement = {};
        QCOMPARE(statements, 1);
        QCOMPARE(claims.size(), 2);
        QCOMPARE(claims.value(first).size(), 1);
        QCOMPARE(claims.value(first).first().InsNo, u"99"_qs);
        QCOMPARE(claims.value(second).size(), 2);
        QCOMPARE(claims.value(second).at(0).InsNo, u"3"_qs);
        QCOMPARE(claims.value(second).at(1).InsNo, u"1"_qs);
        QVERIFY(gCsEstAskManager.ClaimsOf({}).isEmpty());
    }

    void estimateWithoutClaimLinesHasNoLaws() {
        QString list;
        bool excluded = false;
        gCsEstimateManager.GetInsData(saved().EstId, list, u"社会保険"_qs, excluded);
        QCOMPARE(list, QString());
        QVERIFY(!excluded);
    }

private:
    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString count(const QString& table) {
        return m_database->connection().scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
    }
    static clsCsEstimate saved() {
        clsCsEstimate estimate = filled();
        gCsEstimateManager.SaveData(estimate);
        return estimate;
    }
    static clsCsEstimate stored(const QString& id) {
        clsCsEstimate row;
        gCsEstimateManager.GetData(id, row);
        return row;
    }
    static clsCsItem item(const QString& id, int number) {
        clsCsItem row;
        row.EstId = id;
        row.EstItemNo = QString::number(number);
        row.Item = u"義足"_qs;
        return row;
    }
    static void ask(int number, const QString& payDate) {
        QList<clsCsEstAsk> rows;
        gCsEstAskManager.GetList(rows, u"[見積ID] = 'E1'"_qs, u"[請求No]"_qs);
        clsCsEstAsk row;
        row.EstId = u"E1"_qs;
        row.AskNo = QString::number(number);
        row.PayDate = payDate;
        row.PayPrice = u"0"_qs;
        gCsEstAskManager.SaveData(rows << row);
    }
    static QString asks(QString clsCsEstAsk::*member) {
        QList<clsCsEstAsk> rows;
        gCsEstAskManager.GetList(rows, u"[見積ID] = 'E1'"_qs, u"[請求No]"_qs);
        QStringList values;
        for (const clsCsEstAsk& row : rows) values << row.*member;
        return values.join(u' ');
    }
    template <class Record> static void roundTrip(OwnedRowsManager<Record>& manager, const QStringList& key) {
        Record record;
        const Schema::Table& table = *Schema::table(manager.table());
        int number = 0;
        for (const auto& field : manager.fields()) {
            const qsizetype place = table.key.indexOf(field.column);
            record.*field.member = place >= 0                             ? key.at(place)
                                   : table.column(field.column)->isDate() ? u"2026/04/05"_qs
                                                                          : QString::number(++number);
        }
        manager.SaveData({record});
        Record stored;
        QVERIFY(manager.GetData(key, stored));
        for (const auto& field : manager.fields()) QCOMPARE(stored.*field.member, record.*field.member);
        QStringList other = key;
        other.last() = u"9"_qs;
        QVERIFY(!manager.GetData(other, stored));
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(EstimateManagersTest)
#include "EstimateManagersTest.moc"
