#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "reports/DocumentReport.h"
#include "reports/clsReportManager.h"
#include "support/TestDatabase.h"

namespace {

struct Order {
    clsCsEstimate estimate;
    clsCustomer customer;
    QList<clsCsItem> items;
    QList<clsCsMakeElmt> makes;
    QList<clsCsEstAsk> claims;
};

Order sample() {
    Order order;
    order.estimate.EstNo = u"R06-1"_qs;
    order.estimate.Discount1 = order.estimate.Discount2 = order.estimate.Discount3 = u"100"_qs;
    order.estimate.Total = order.estimate.EstSum = u"1000"_qs;
    order.estimate.EstPrtDate = u"2024/11/03"_qs;
    order.customer.Sex = u"男"_qs;
    order.customer.Tel = u"045-1"_qs;
    order.customer.FamilyType = u"1"_qs;
    clsCsItem item;
    item.EstItemNo = u"1"_qs;
    item.Item = u"下肢装具"_qs;
    item.PickStyle = u"2"_qs;
    order.items = {item};
    clsCsMakeElmt make;
    make.EstItemNo = u"1"_qs;
    make.MakeElmt = u"基本価格"_qs;
    make.Suryo = u"1"_qs;
    make.Price = u"1000"_qs;
    order.makes = {make};
    clsCsEstAsk claim;
    claim.AskNo = u"1"_qs;
    claim.InsNo = u"1"_qs;
    claim.AskPrice = u"1000"_qs;
    order.claims = {claim};
    return order;
}

} // namespace

class clsReportManagerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

    ReportRecordset rows(const Order& order, DocumentKind kind = DocumentKind::Estimate, int copies = 1,
                         const QList<int>& claims = {1}) {
        clsReportManager manager;
        manager.Prepare(m_database->connection());
        ReportRecordset records;
        manager.GetCsEstimateData(kind, copies, claims, order.estimate, order.customer, order.items, order.makes, {},
                                  order.claims, records);
        return records;
    }

    void set(int number, const QString& value) {
        m_database->connection().execute(
            u"UPDATE [システム設定] SET [設定値] = '%1' WHERE [No] = %2"_qs.arg(value).arg(number));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
        setSystemDate(u"2024/11/03"_qs);
    }
    void cleanup() { m_database.reset(); }

    void wordsComeFromTheSettingTables() {
        const ReportRecordset records = rows(sample());
        QCOMPARE(records.text(0, u"PickStyle"_qs), u"採寸"_qs);
        QCOMPARE(records.text(0, u"FamilyType"_qs), u"本人区分：本人"_qs);
        QCOMPARE(records.text(0, u"Ins1"_qs), u"社会保険"_qs);
        QCOMPARE(records.text(0, u"PrtDate"_qs), u"令和　６年１１月　３日"_qs);
    }

    void aChangedSettingCountsFromTheNextPrint() {
        QCOMPARE(rows(sample()).text(0, u"Sex"_qs), u"性別：男"_qs);
        set(7, u"2"_qs);
        set(11, u"2"_qs);
        set(22, u"3"_qs);
        const ReportRecordset records = rows(sample());
        QCOMPARE(records.text(0, u"Sex"_qs), QString());
        QCOMPARE(records.text(0, u"Tel"_qs), QString());
        QCOMPARE(records.text(0, u"PrtDate"_qs), u"令和　６年　　月　　日"_qs);
    }

    void aSettingWithoutARowCountsAs1() {
        m_database->connection().execute(u"DELETE FROM [システム設定] WHERE [No] IN (7,11,22)"_qs);
        const ReportRecordset records = rows(sample());
        QCOMPARE(records.text(0, u"Sex"_qs), u"性別：男"_qs);
        QCOMPARE(records.text(0, u"PrtDate"_qs), u"令和　６年１１月　３日"_qs);
    }

    void insurersAreTurnedOffOnInvoicesAlone() {
        m_database->writeProfile(u"[Ins]\r\nInsDisp=OFF\r\n"_qs);
        QCOMPARE(rows(sample(), DocumentKind::Invoice).text(0, u"Ins1"_qs), QString());
        QCOMPARE(rows(sample(), DocumentKind::Estimate).text(0, u"Ins1"_qs), u"社会保険"_qs);
    }

    // What the screen asks for when no claim was entered.
    void aTemporaryClaimPrintsTheEstimateTotal() {
        Order order = sample();
        order.claims.first().InsNo.clear();
        order.claims.first().AskPrice = order.estimate.EstSum;
        for (int kind = 1; kind <= 4; ++kind)
            QCOMPARE(rows(order, static_cast<DocumentKind>(kind)).text(0, u"PrtPrice"_qs), u"1000"_qs);
    }

    void aSheetReadsWhatItTellsFromTheSettingTables() {
        Order order = sample();
        order.estimate.ItmPrtDate = u"2024/11/03"_qs;
        set(24, u"3"_qs);
        clsReportManager manager;
        manager.Prepare(m_database->connection());
        ReportRecordset records;
        manager.GetCsEstWorkEquip(DocumentKind::Breakdown, 1, {1}, order.estimate, order.customer, order.items,
                                  order.makes, {}, order.claims, records);
        QCOMPARE(records.text(0, u"Elmt"_qs), u"ニ．基本価格"_qs);
        QCOMPARE(records.text(0, u"PickStyle"_qs), u"採寸"_qs);
        QCOMPARE(records.text(0, u"PrtDate"_qs), u"令和　６年　　月　　日"_qs);
        QVERIFY(!records.hasField(u"Kazu"_qs) && !records.hasField(u"JuryoEra"_qs));
        QVERIFY(records.hasField(u"Form"_qs) && records.hasField(u"Biko"_qs));
    }

    void everySheetTellsItsErrorsUnderItsOwnName_data() {
        QTest::addColumn<int>("method");
        QTest::addColumn<QString>("source");
        const QString documents = u"GetCsEstA4Data"_qs;
        QTest::newRow("other") << 0 << documents;
        QTest::newRow("limbs") << 1 << documents;
        QTest::newRow("orthoses") << 2 << documents;
        QTest::newRow("wheelchairs") << 3 << u"GetCsEstWorkWheelchair"_qs;
        QTest::newRow("contract") << 4 << documents;
    }
    void everySheetTellsItsErrorsUnderItsOwnName() {
        QFETCH(int, method);
        QFETCH(QString, source);
        Order order = sample();
        order.claims.first().InsNo = u"77"_qs;
        clsReportManager manager;
        manager.Prepare(m_database->connection());
        ReportRecordset records;
        const QList sheets{&clsReportManager::GetCsEstimateWorkOther, &clsReportManager::GetCsEstWorkData,
                           &clsReportManager::GetCsEstWorkEquip, &clsReportManager::GetCsEstWorkWheelchair};
        try {
            if (method < sheets.size())
                (manager.*sheets.at(method))(DocumentKind::Breakdown, 1, {1}, order.estimate, order.customer,
                                             order.items, order.makes, {}, order.claims, records);
            else
                manager.GetCsEstReceiptData(DocumentKind::Estimate, {1}, order.estimate, order.customer, order.items,
                                            order.makes, {}, order.claims, records);
            QFAIL("no error");
        } catch (const AppError& error) {
            QCOMPARE(error.source(), source);
            QVERIFY(error.description().contains(u"77"));
        }
    }

    // It comes from the records of the screen alone, without a connection.
    void theOpinionReadsNothingFromTheDatabase() {
        ReportRecordset records;
        clsReportManager().GetCsEstOpinionData(sample().customer, {}, sample().estimate, records);
        QCOMPARE(records.rowCount(), 1);
    }

    void theLineOfAFormMultiplies() {
        Order order = sample();
        order.makes.first().Suryo = u"2"_qs;
        order.estimate.DelvFinDate = u"2019/04/30"_qs;
        order.claims.first().AskPrtDate = u"2024/11/04"_qs;
        const ReportRecordset records = rows(order);
        QCOMPARE(records.text(0, u"Kazu"_qs), u"2"_qs);
        QCOMPARE(records.text(0, u"Tanka"_qs), u"500"_qs);
        QCOMPARE(records.text(0, u"JuryoEra"_qs), u"平成"_qs);
        QCOMPARE(records.text(0, u"JuryoDate"_qs), u"平成　31年　04月　30日"_qs);
        QCOMPARE(records.text(0, u"IninDate"_qs), u"平成　31年　04月　30日"_qs);
        QCOMPARE(records.text(0, u"SeikyuDate"_qs), u"令和　06年　11月　04日"_qs);
        order.makes.first().Suryo = u"0"_qs;
        QVERIFY(rows(order).value(0, u"Tanka"_qs).isNull());
    }

    void aFormWithoutDateIsBlankForThePen() {
        Order order = sample();
        order.estimate.EstPrtDate.clear();
        const ReportRecordset records = rows(order);
        QCOMPARE(records.text(0, u"MitumoriEra"_qs), QString());
        QCOMPARE(records.text(0, u"MitumoriDate"_qs), u"　　　　年　　　月　　　日"_qs);
    }

    void aLawThatIsMissingEndsUnderTheOperationsName() {
        Order order = sample();
        order.claims.first().InsNo = u"77"_qs;
        try {
            rows(order);
            QFAIL("no error");
        } catch (const AppError& error) {
            QCOMPARE(error.number(), qint64(0x80040201));
            QCOMPARE(error.source(), u"GetCsEstA4Data"_qs);
            QVERIFY(error.description().contains(u"77"));
        }
    }

    void anAmountBeyondTheRangeEndsUnderTheOperationsName() {
        Order order = sample();
        order.estimate.Discount1 = u"95"_qs;
        order.makes.first().Price = u"99999999999"_qs;
        try {
            rows(order);
            QFAIL("no error");
        } catch (const AppError& error) {
            QCOMPARE(error.number(), qint64(0x80040201));
            QCOMPARE(error.source(), u"GetCsEstA4Data"_qs);
        }
    }

    void setting39Of2LeavesOutTheCopy() {
        const Order order = sample();
        QCOMPARE(rows(order, DocumentKind::Invoice, documentCopies(DocumentKind::Invoice, 2)).rowCount(), 1);
        QCOMPARE(rows(order, DocumentKind::Invoice, documentCopies(DocumentKind::Invoice, 1)).rowCount(), 2);
    }

    void theReportStartReadsOfficeAndSettings() {
        m_database->connection().execute(
            u"UPDATE [企業情報] SET [企業名] = 'はるかぜ', [振込先1] = 'みなと銀行／普通 1', [当座名] = 'ハルカゼ' WHERE [番号] = 1"_qs);
        set(13, u"18"_qs);
        set(42, u"1"_qs);
        m_database->writeProfile(u"[Ins]\r\nInsDisp=off\r\n"_qs);
        const DocumentSetup setup = readDocumentSetup();
        QCOMPARE(setup.office.value(u"lblOffice"_qs), u"はるかぜ"_qs);
        QCOMPARE(setup.office.value(u"lblChkAcnt"_qs), u"ハルカゼ"_qs);
        QCOMPARE(setup.office.value(u"Bank1"_qs), u"みなと銀行"_qs);
        QCOMPARE(setup.office.value(u"Account1"_qs), u"普通 1"_qs);
        QCOMPARE(setup.linesPerPage, 18);
        QCOMPARE(setup.accountKind, u"1"_qs);
        QVERIFY(!setup.insurersInHeader);
    }

    void theThreeAccountsOfAnInvoiceAreReadFromTheOffice_data() {
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QString>("printed");
        QTest::newRow("three accounts")
            << QStringList{u"みなと銀行／普通 1／ハルカゼ"_qs, u"やま銀行 ／ 普通 2"_qs,
                           u"かわ銀行\n当座 3\nハルノ／フウタ"_qs}
            << u"みなと銀行=普通 1=ハルカゼ|やま銀行=普通 2=|かわ銀行=当座 3=ハルノ／フウタ"_qs;
        QTest::newRow("without dividers")
            << QStringList{u"みなと銀行 028店 普通 123-4567　カ）ハルカゼ"_qs, u"やま銀行当座２"_qs, u"かわ銀行"_qs}
            << u"みなと銀行 028店=普通 123-4567=カ）ハルカゼ|やま銀行=当座２=|かわ銀行=="_qs;
        QTest::newRow("one account") << QStringList{u"みなと銀行"_qs, u"123-4567"_qs, u"ハルカゼ"_qs}
                                     << u"みなと銀行=123-4567=ハルカゼ|==|=="_qs;
        QTest::newRow("one account without a holder")
            << QStringList{u"みなと銀行"_qs, u"１２３４５６７"_qs, {}} << u"みなと銀行=１２３４５６７=|==|=="_qs;
        QTest::newRow("only the third") << QStringList{{}, {}, u"かわ銀行／当座 3"_qs} << u"==|==|かわ銀行=当座 3="_qs;
    }
    void theThreeAccountsOfAnInvoiceAreReadFromTheOffice() {
        QFETCH(QStringList, fields);
        m_database->connection().execute(
            u"UPDATE [企業情報] SET [振込先1] = '%1', [振込先2] = '%2', [当座名] = '%3' WHERE [番号] = 1"_qs.arg(
                fields.at(0), fields.at(1), fields.at(2)));
        const ReportParameters office = readDocumentSetup().office;
        QStringList accounts;
        for (const QString& number : {u"1"_qs, u"2"_qs, u"3"_qs})
            accounts << QStringList{office.value(u"Bank"_qs + number), office.value(u"Account"_qs + number),
                                    office.value(u"Holder"_qs + number)}
                            .join(u'=');
        QTEST(accounts.join(u'|'), "printed");
    }

    // As long as the tables allow: nothing is cut on its way to the paper.
    void theEstimateListHoldsEveryFieldWhole() {
        Connection& connection = m_database->connection();
        const auto filled = [](const QString& letter, int size) { return letter.repeated(size); };
        connection.execute(
            u"INSERT INTO [顧客情報] ([顧客ID], [顧客枝番], [名前1], [名前2], [都道府県], [市区郡], [住所1], [住所2])"
            u" VALUES ('C', 1, '%1', '%2', '%3', '%4', '%5', '%6')"_qs.arg(filled(u"山"_qs, 15), filled(u"花"_qs, 15),
                                                                           filled(u"県"_qs, 8), filled(u"市"_qs, 12),
                                                                           filled(u"町"_qs, 40), filled(u"棟"_qs, 40)));
        connection.execute(u"INSERT INTO [顧客カルテ] ([顧客ID], [顧客枝番], [カルテNo], [受注先])"
                           u" VALUES ('C', 1, 1, '%1')"_qs.arg(filled(u"院"_qs, 40)));
        connection.execute(
            u"INSERT INTO [顧客見積情報] ([見積ID], [見積番号], [顧客ID], [顧客枝番], [カルテNo], [見積名称],"
            u" [製品コード], [見積総合計], [採型日], [納品実績日])"
            u" VALUES ('E1', 'E1', 'C', 1, 1, '%1', '%2', 12345678, #2024/10/12#, #2024/11/03#)"_qs.arg(
                filled(u"靴"_qs, 50), filled(u"A"_qs, 20)));
        clsReportManager manager;
        manager.Prepare(connection);
        ReportRecordset records;
        manager.GetCsEstimateListData({}, u"[顧客見積情報].[見積ID]"_qs, 0, {}, records);
        QCOMPARE(records.rowCount(), 1);
        const QList<std::pair<QString, QString>> wanted{
            {u"Order"_qs, filled(u"院"_qs, 40)},
            {u"Addr"_qs, filled(u"県"_qs, 8) + filled(u"市"_qs, 12) + filled(u"町"_qs, 40) + filled(u"棟"_qs, 40)},
            {u"CustNm"_qs, filled(u"山"_qs, 15) + u'　' + filled(u"花"_qs, 15)},
            {u"EstName"_qs, filled(u"靴"_qs, 50)},
            {u"ProductCd"_qs, filled(u"A"_qs, 20)},
            {u"EstSum"_qs, u"12345678"_qs},
            {u"PickPtnDate"_qs, u"令和　６年１０月１２日"_qs},
            {u"DelvFinDate"_qs, u"令和　６年１１月　３日"_qs},
        };
        for (const auto& [field, value] : wanted) QCOMPARE(records.text(0, field), value);
    }

    // However long the list: its estimates and their claims come in parts, not one by one.
    void theClaimsOfTheEstimateListAreReadTogether() {
        Connection& connection = m_database->connection();
        connection.execute(u"INSERT INTO [顧客情報] ([顧客ID], [顧客枝番], [名前1]) VALUES ('C', 1, '山田')"_qs);
        const auto addUpTo = [&](int first, int last) {
            for (int id = first; id <= last; ++id) {
                connection.execute(u"INSERT INTO [顧客見積情報] ([見積ID], [見積番号], [顧客ID], [顧客枝番])"
                                   u" VALUES ('%1', '%1', 'C', 1)"_qs.arg(id, 6, 10, QChar(u'0')));
                connection.execute(u"INSERT INTO [顧客見積請求] ([見積ID], [請求No], [法別No]) VALUES ('%1', 1, %2)"_qs
                                       .arg(id, 6, 10, QChar(u'0'))
                                       .arg(id % 2 + 1));
            }
        };
        const auto statementsFor = [&](int rows) {
            int statements = 0;
            connection.onStatement = [&](const QString&) { ++statements; };
            clsReportManager manager;
            manager.Prepare(connection);
            ReportRecordset records;
            manager.GetCsEstimateListData({}, u"[顧客見積情報].[見積ID]"_qs, 0, {}, records);
            connection.onStatement = {};
            if (records.rowCount() != rows) qFatal("%d rows", records.rowCount());
            for (int row = 0; row < rows; ++row)
                if (records.text(row, u"Ins"_qs) != (row % 2 == 0 ? u"国民"_qs : u"社会"_qs))
                    qFatal("law of row %d", row);
            return statements;
        };
        addUpTo(1, 2);
        const int few = statementsFor(2);
        addUpTo(3, 500);
        QCOMPARE(statementsFor(500), few);
        addUpTo(501, 502);
        QCOMPARE(statementsFor(502), few + 2); // a second part of estimates, and one of claims
    }

    void theEstimateListLeavesOutTheLawsOfTheOfficeWhenAsked() {
        Connection& connection = m_database->connection();
        for (const QString& id : {u"E1"_qs, u"E2"_qs, u"E3"_qs})
            connection.execute(
                u"INSERT INTO [顧客見積情報] ([見積ID], [見積番号], [顧客ID], [顧客枝番], [見積名称],"
                u" [見積総合計], [納品実績日]) VALUES ('%1', '%1', 'C', 1, '靴', 1000, #2024/11/03#)"_qs.arg(id));
        connection.execute(u"INSERT INTO [顧客情報] ([顧客ID], [顧客枝番], [名前1], [名前2], [都道府県], [市区郡])"
                           u" VALUES ('C', 1, '山田', '花子', '神奈川県', '横浜市')"_qs);
        const auto claim = [&](const QString& id, int row, int law) {
            connection.execute(
                u"INSERT INTO [顧客見積請求] ([見積ID], [請求No], [法別No]) VALUES ('%1', %2, %3)"_qs.arg(id)
                    .arg(row)
                    .arg(law));
        };
        claim(u"E1"_qs, 1, 2);
        claim(u"E2"_qs, 1, 3);
        claim(u"E2"_qs, 2, 1);
        const auto list = [&](int member) {
            clsReportManager manager;
            manager.Prepare(connection);
            ReportRecordset records;
            manager.GetCsEstimateListData({}, u"[顧客見積情報].[見積ID]"_qs, member, u"労災、後期高齢者医療"_qs,
                                          records);
            return records;
        };
        const auto column = [](const ReportRecordset& records, const QString& field) {
            QStringList values;
            for (int row = 0; row < records.rowCount(); ++row) values += records.text(row, field);
            return values.join(u'|');
        };
        for (const int whole : {0, 1}) {
            const ReportRecordset records = list(whole);
            QCOMPARE(column(records, u"Ins"_qs), u"国民|社会,後期|"_qs);
            QCOMPARE(column(records, u"Sort"_qs), u"0|1|0"_qs);
            QCOMPARE(column(records, u"EstName"_qs).section(u'|', 0, 0), u"靴"_qs);
            QCOMPARE(column(records, u"EstSum"_qs).section(u'|', 0, 0), u"1000"_qs);
            QCOMPARE(column(records, u"CustNm"_qs).section(u'|', 0, 0), u"山田　花子"_qs);
            QCOMPARE(column(records, u"Addr"_qs).section(u'|', 0, 0), u"神奈川県横浜市"_qs);
            QCOMPARE(column(records, u"DelvFinDate"_qs).section(u'|', 0, 0), u"令和　６年１１月　３日"_qs);
        }
        for (const int without : {2, 3}) QCOMPARE(column(list(without), u"Ins"_qs), u"国民|"_qs);
    }
};

HALVANE_TEST(clsReportManagerTest)
#include "clsReportManagerTest.moc"
