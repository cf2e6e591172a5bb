#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "master/MasterManagers.h"
#include "reports/MasterReports.h"
#include "reports/clsReportManager.h"

namespace {

clsMstItem item(int number, const QString& kind) {
    return {u"P1"_qs, QString::number(number), kind, u"E-4"_qs, u"短下肢装具"_qs, u"両側支柱"_qs, u"1"_qs, u"3"_qs};
}

clsMstMakeElmt makeLine(int itemNumber, const QString& element, const QString& quantity, const QString& big) {
    return {u"P1"_qs, QString::number(itemNumber), u"1"_qs, element, u"皮革"_qs, quantity, u"1"_qs, u"2"_qs, big};
}

clsMstCmpltElmt partsLine(const QString& price) {
    return {u"P1"_qs, u"1"_qs, u"1"_qs, u"足継手"_qs, u"＊"_qs, u"架空工業"_qs, u"K-1"_qs, u"2"_qs, price};
}

MasterSource source() {
    MasterSource master;
    master.header.ProductId = u"P1"_qs;
    master.header.ProductCd = u"AFO"_qs;
    master.header.ProductNm = u"短下肢装具"_qs;
    master.header.PriceSmall = u"1000"_qs;
    master.header.PriceMiddle = u"2000"_qs;
    master.header.PriceBig = u"3000"_qs;
    return master;
}

ReportRecordset sheet(const MasterSource& master) { return masterSheetRows({master}, {{u"1"_qs, u"採型"_qs}}, 6); }

// The elements and sums of all rows, joined.
QString lines(const ReportRecordset& records) {
    QStringList texts;
    for (int row = 0; row < records.rowCount(); ++row)
        texts << records.text(row, u"Elmt"_qs) + records.text(row, u"SumTitle"_qs) + u':' +
                     records.text(row, u"Price"_qs);
    return texts.join(u' ');
}

} // namespace

class MasterReportsTest : public QObject {
    Q_OBJECT

private slots:
    void sheetHasElementsAndPartsWithTheirSums() {
        MasterSource master = source();
        master.items = {item(1, u"下肢装具"_qs)};
        master.make = {makeLine(1, u"基本価格"_qs, u"1"_qs, u"1000"_qs), makeLine(1, u"支持部"_qs, u"2"_qs, u"501"_qs)};
        master.parts = {partsLine(u"1499"_qs)};
        const ReportRecordset records = sheet(master);
        QCOMPARE(lines(records),
                 u"基本価格:1000 支持部:501 小　　　計:1501 完成用部品: 足継手:1499 小　　　計:1499"_qs);
        QCOMPARE(records.text(0, u"Item"_qs) + records.text(0, u"PickKbn"_qs) + records.text(0, u"Name"_qs) +
                     records.text(0, u"PickStyle"_qs),
                 u"下肢装具E-4短下肢装具採型"_qs);
        QCOMPARE(records.text(0, u"Materials"_qs), QString());
        QCOMPARE(records.text(1, u"Materials"_qs), u"皮革"_qs);
        QCOMPARE(records.value(1, u"Unit"_qs).toDouble(), 250.0); // half to even
        QCOMPARE(records.text(4, u"PartsForm"_qs) + records.text(4, u"MakerNm"_qs) + records.text(4, u"PartsCd"_qs),
                 u"架空工業K-1"_qs);
    }

    void everyRowCarriesTheTotalsWithTax() {
        MasterSource master = source();
        master.make = {makeLine(1, u"支持部"_qs, u"1"_qs, u"3000"_qs)};
        const ReportRecordset records = sheet(master);
        QCOMPARE(records.rowCount(), 2);
        for (int row = 0; row < 2; ++row) {
            QCOMPARE(records.value(row, u"PriceBig"_qs).toDouble(), 3180.0);
            QCOMPARE(records.value(row, u"PriceMiddle"_qs).toDouble(), 2180.0);
            QCOMPARE(records.value(row, u"PriceSmall"_qs).toDouble(), 1180.0);
        }
    }

    void sheetWithoutLinesHasOneEmptyRow() {
        const ReportRecordset records = sheet(source());
        QCOMPARE(records.rowCount(), 1);
        QCOMPARE(records.text(0, u"ProductCd"_qs), u"AFO"_qs);
        QVERIFY(records.value(0, u"Price"_qs).isNull());
    }

    void partsAloneStandUnderTheirHead() {
        MasterSource master = source();
        master.parts = {partsLine(u"100"_qs)};
        QCOMPARE(lines(sheet(master)), u"完成用部品: 足継手:100 小　　　計:100"_qs);
    }

    void wheelchairShowsItsNameForTheCode() {
        MasterSource master = source();
        master.items = {item(1, u"車椅子"_qs)};
        master.make = {makeLine(1, u"基本価格"_qs, u"1"_qs, u"1000"_qs)};
        const ReportRecordset records = sheet(master);
        QCOMPARE(records.text(0, u"PickKbn"_qs) + u'/' + records.text(0, u"Name"_qs), u"短下肢装具/"_qs);
        QCOMPARE(records.text(0, u"PickStyle"_qs), QString());
    }

    void brokenQuantityKeepsItsDecimals() {
        MasterSource master = source();
        master.make = {makeLine(1, u"支持部"_qs, u"1.5"_qs, u"1500"_qs), makeLine(1, u"支持部"_qs, u"0"_qs, u"9"_qs)};
        const ReportRecordset records = sheet(master);
        QCOMPARE(records.text(0, u"Suryo"_qs), u"1.5"_qs);
        QCOMPARE(records.value(0, u"Unit"_qs).toDouble(), 1000.0);
        QVERIFY(records.value(1, u"Unit"_qs).isNull());
    }

    void codeLongerThanItsPlaceTellsThatItGoesOn() {
        MasterSource master = source();
        master.header.ProductCd = QString(255, u'A');
        QCOMPARE(sheet(master).text(0, u"ProductCd"_qs), QString(19, u'A') + u'…');
        QCOMPARE(masterListRows({master.header}, 6).text(0, u"ProductCd"_qs), QString(19, u'A') + u'…');
        master.header.ProductCd = QString(20, u'A');
        QCOMPARE(sheet(master).text(0, u"ProductCd"_qs), QString(20, u'A'));
        master.header.ProductCd = QString(18, u'A') + u"𠮷𠮷"_qs;
        QCOMPARE(sheet(master).text(0, u"ProductCd"_qs), QString(18, u'A') + u'…');
    }

    void listShowsTheTotalsWithTax() {
        const ReportRecordset records = masterListRows({source().header}, 10);
        QCOMPARE(records.text(0, u"ProductNm"_qs), u"短下肢装具"_qs);
        QCOMPARE(records.value(0, u"PriceBig"_qs).toDouble(), 3300.0);
        QCOMPARE(records.value(0, u"PriceMiddle"_qs).toDouble(), 2300.0);
        QCOMPARE(records.value(0, u"PriceSmall"_qs).toDouble(), 1300.0);
    }

    // --- from the tables ---

    void sheetsComeByTheirCodesWithTheRateOfTheSettings() {
        const auto database = stored();
        clsReportManager manager;
        manager.Prepare(database->connection());
        ReportRecordset records;
        manager.GetMstEstimateData({}, records);
        QCOMPARE(records.rowCount(), 4); // a line and its sum, twice
        QCOMPARE(records.text(0, u"ProductCd"_qs) + records.text(2, u"ProductCd"_qs), u"A[1]B'%_"_qs);
        QCOMPARE(records.text(0, u"PickStyle"_qs), u"採型"_qs);
        database->connection().execute(u"UPDATE [システム設定] SET [設定値] = '10' WHERE [No] = 2"_qs);
        manager.GetMstEstimateData(gMstEstimateManager.equal(&clsMstEstimate::ProductCd, u"B'%_"_qs), records);
        QCOMPARE(records.rowCount(), 2);
        QCOMPARE(records.value(0, u"PriceBig"_qs).toDouble(), 3300.0);
    }

    void listComesInTheOrderAskedFor() {
        const auto database = stored();
        clsReportManager manager;
        manager.Prepare(database->connection());
        ReportRecordset records;
        manager.GetMstEstListData({}, u"[マスタ見積情報].[製品コード] DESC,[製品コード] ASC"_qs, records);
        QCOMPARE(records.text(0, u"ProductCd"_qs) + records.text(1, u"ProductCd"_qs), u"B'%_A[1]"_qs);
        manager.GetMstEstListData(u"[製品名称] LIKE '%ない%'"_qs, u"[製品コード]"_qs, records);
        QVERIFY(records.isEmpty());
    }

    void failureComesUnderTheOperationsName() {
        const auto database = stored();
        clsReportManager manager;
        manager.Prepare(database->connection());
        ReportRecordset records;
        try {
            manager.GetMstEstimateData(u"[ない列] = 1"_qs, records);
            QFAIL("no error");
        } catch (const AppError& error) {
            QCOMPARE(error.source(), u"GetMstEstimateData"_qs);
        }
    }

private:
    static std::unique_ptr<TestDatabase> stored() {
        auto database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        database->prepareManagers();
        for (const QString& code : {u"B'%_"_qs, u"A[1]"_qs}) {
            clsMstEstimate header = source().header;
            header.ProductId.clear();
            header.ProductCd = code;
            gMstEstimateManager.SaveData(header);
            clsMstItem row = item(1, u"下肢装具"_qs);
            clsMstMakeElmt line = makeLine(1, u"基本価格"_qs, u"1"_qs, u"3000"_qs);
            row.ProductId = line.ProductId = header.ProductId;
            gMstItemManager.SaveData({row});
            gMstMakeElmtManager.SaveData({line});
        }
        return database;
    }
};

HALVANE_TEST(MasterReportsTest)
#include "MasterReportsTest.moc"
