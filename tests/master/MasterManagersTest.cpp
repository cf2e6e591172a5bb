#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "master/MasterManagers.h"

namespace {

clsMstEstimate master(const QString& code) {
    clsMstEstimate record;
    record.ProductCd = code;
    record.ProductNm = u"名'%1"_qs.arg(code);
    record.PriceSedYear = u"2026"_qs;
    record.PriceSmall = u"1000"_qs;
    record.PriceMiddle = u"2000"_qs;
    record.PriceBig = u"3000"_qs;
    record.UpdUserNo = u"1"_qs;
    record.Memo = u"備\n考"_qs;
    return record;
}

clsMstItem item(const QString& owner, int number) {
    clsMstItem row;
    row.ProductId = owner;
    row.ProductItemNo = QString::number(number);
    row.Item = u"下肢装具"_qs;
    return row;
}

clsMstMakeElmt makeLine(const QString& owner, int itemNumber, int number) {
    return {owner,
            QString::number(itemNumber),
            QString::number(number),
            u"支持部"_qs,
            u"皮革"_qs,
            u"2"_qs,
            u"10"_qs,
            u"20"_qs,
            u"30"_qs};
}

clsMstCmpltElmt partsLine(const QString& owner, int itemNumber, int number) {
    return {owner,
            QString::number(itemNumber),
            QString::number(number),
            u"足部"_qs,
            u"単軸"_qs,
            u"架空工業"_qs,
            u"K-1"_qs,
            u"1"_qs,
            u"500"_qs};
}

// A value for each column but the key.
template <class Record> Record filled(const TableManager<Record>& manager, const QStringList& key) {
    Record record;
    const Schema::Table& table = *Schema::table(manager.table());
    int number = 0;
    for (const auto& field : manager.fields()) {
        const qsizetype place = table.key.indexOf(field.column);
        record.*field.member = place >= 0 ? key.at(place) : QString::number(++number);
    }
    return record;
}

} // namespace

class MasterManagersTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    // --- the header ---

    void newCodeIsInsertedUnderTheNextId() {
        sql(u"UPDATE [採番] SET [最終値] = '00000041' WHERE [項目名] = '製品ID'"_qs);
        clsMstEstimate record = master(u"A-1"_qs);
        gMstEstimateManager.SaveData(record);
        QCOMPARE(record.ProductId, u"00000042"_qs);
        const clsMstEstimate row = stored(record.ProductId);
        QCOMPARE((QStringList{row.ProductCd, row.ProductNm, row.PriceSedYear, row.PriceSmall, row.PriceMiddle,
                              row.PriceBig, row.UpdUserNo, row.Memo}),
                 (QStringList{u"A-1"_qs, u"名'A-1"_qs, u"2026"_qs, u"1000"_qs, u"2000"_qs, u"3000"_qs, u"1"_qs,
                              u"備\n考"_qs}));
        QVERIFY(!row.AddDate.isEmpty() && !row.UpdDate.isEmpty());
    }

    void knownCodeIsOverwrittenWithoutAnId() {
        const QString id = saved(u"A-1"_qs).ProductId;
        clsMstEstimate again = master(u"A-1"_qs);
        again.ProductNm = u"改"_qs;
        gMstEstimateManager.SaveData(again);
        QCOMPARE(again.ProductId, id);
        QCOMPARE(stored(id).ProductNm, u"改"_qs);
        QCOMPARE(count(u"マスタ見積情報"_qs), u"1"_qs);
    }

    void knownCodeWinsOverTheIdThatTheRecordBrings() {
        const QString first = saved(u"A-1"_qs).ProductId, second = saved(u"B-1"_qs).ProductId;
        clsMstEstimate moved = stored(second);
        moved.ProductCd = u"A-1"_qs;
        moved.ProductNm = u"改"_qs;
        gMstEstimateManager.SaveData(moved);
        QCOMPARE(moved.ProductId, first);
        QCOMPARE(stored(first).ProductNm, u"改"_qs);
        QCOMPARE(stored(second).ProductCd, u"B-1"_qs);
    }

    void codeIsChangedUnderItsId() {
        clsMstEstimate record = saved(u"A-1"_qs);
        const QString id = record.ProductId;
        record.ProductCd = u"C-1"_qs;
        gMstEstimateManager.SaveData(record);
        QCOMPARE(record.ProductId, id);
        QCOMPARE(stored(id).ProductCd, u"C-1"_qs);
        QCOMPARE(count(u"マスタ見積情報"_qs), u"1"_qs);
    }

    void codesOfAnySignsStandOnce_data() {
        QTest::addColumn<QString>("code");
        QTest::newRow("quotes") << u"A'1\"2''"_qs;
        QTest::newRow("brackets") << u"[A]{1}(2)"_qs;
        QTest::newRow("signs of patterns") << u"50%_-[!x]*?#"_qs;
        QTest::newRow("255 characters") << QString(255, u'あ');
        QTest::newRow("two units each") << QString(u"𠮷"_qs).repeated(255);
    }
    void codesOfAnySignsStandOnce() {
        QFETCH(QString, code);
        const QString id = saved(code).ProductId;
        QCOMPARE(stored(id).ProductCd, code);
        QCOMPARE(saved(code).ProductId, id);
        QCOMPARE(count(u"マスタ見積情報"_qs), u"1"_qs);
    }

    void blanksBehindACodeAreNoPartOfIt() {
        const QString id = saved(u"A-1  "_qs).ProductId;
        QCOMPARE(stored(id).ProductCd, u"A-1"_qs);
        QCOMPARE(saved(u"A-1"_qs).ProductId, id);
        QCOMPARE(saved(u"A-1   "_qs).ProductId, id);
    }

    void mastersWithoutACodeDoNotOverwriteEachOther() {
        const QString first = saved({}).ProductId, second = saved(u"  "_qs).ProductId;
        QVERIFY(first != second);
        clsMstEstimate again = stored(second);
        gMstEstimateManager.SaveData(again);
        QCOMPARE(again.ProductId, second);
    }

    void idThatCannotBeDrawnIsAnError() {
        sql(u"DELETE FROM [採番] WHERE [項目名] = '製品ID'"_qs);
        QCOMPARE(raised([] { saved(u"A-1"_qs); }), u"新規の製品IDを自動的に取得できませんでした。"_qs);
        QCOMPARE(count(u"マスタ見積情報"_qs), u"0"_qs);
    }

    void headerThatIsGoneIsAnUpdateOfNothing() {
        clsMstEstimate record = master(u"A-1"_qs);
        record.ProductId = u"none"_qs;
        gMstEstimateManager.SaveData(record);
        QCOMPARE(count(u"マスタ見積情報"_qs), u"0"_qs);
        QVERIFY(!gMstEstimateManager.GetData(u"none"_qs, record));
    }

    void wrongAmountOfAHeaderIsAnErrorWithItsNumber() {
        clsMstEstimate record = master(u"A-1"_qs);
        record.PriceBig = u"多"_qs;
        QVERIFY(errorOf([&] { gMstEstimateManager.SaveData(record); }));
        QCOMPARE(count(u"マスタ見積情報"_qs), u"0"_qs);
    }

    void listNeedsAnOrder() {
        saved(u"B"_qs);
        saved(u"A"_qs);
        QList<clsMstEstimate> rows;
        QVERIFY(errorOf([&] { gMstEstimateManager.GetList(rows, {}, {}); }));
        QVERIFY(errorOf([&] { gMstEstimateManager.GetList(rows, u"[製品コード] = 'A'"_qs, {}); }));
        gMstEstimateManager.GetList(rows, {}, u"[製品コード]"_qs);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.first().ProductCd + rows.last().ProductCd, u"AB"_qs);
        QCOMPARE(rows.first().Memo, u"備\n考"_qs);
    }

    void selectionListGivesSixColumns() {
        saved(u"B%2"_qs);
        saved(u"B%1"_qs);
        saved(u"BX"_qs);
        Recordset rows = gMstEstimateManager.GetSelectList(
            SqlStartsWith(gMstEstimateManager.column(&clsMstEstimate::ProductCd), u"B%"_qs), u"[製品コード]"_qs);
        QStringList found;
        while (rows.next()) found << rows.value(u"製品コード"_qs) + u':' + rows.value(u"大人価格"_qs);
        QCOMPARE(found.join(u' '), u"B%1:3000 B%2:3000"_qs);
        QCOMPARE(rows.fields(), (QStringList{u"製品ID"_qs, u"製品コード"_qs, u"製品名称"_qs, u"小人価格"_qs,
                                             u"中人価格"_qs, u"大人価格"_qs}));
    }

    void deletionTakesOneHeader() {
        const QString id = saved(u"A"_qs).ProductId;
        saved(u"B"_qs);
        gMstEstimateManager.DeleteData(id);
        gMstEstimateManager.DeleteData({});
        QCOMPARE(count(u"マスタ見積情報"_qs), u"1"_qs);
    }

    void nullReadsAsTheEmptyText() {
        sql(u"INSERT INTO マスタ見積情報 ([製品ID]) VALUES ('x')"_qs);
        const clsMstEstimate row = stored(u"x"_qs);
        QCOMPARE(row.ProductCd + row.PriceBig + row.Memo + row.AddDate, QString());
    }

    // --- the rows below it ---

    void savedItemsAreExactlyTheRowsOfTheirProduct() {
        gMstItemManager.SaveData({item(u"P2"_qs, 1)});
        gMstItemManager.SaveData({item(u"P'1"_qs, 1), item(u"P'1"_qs, 2), item(u"P'1"_qs, 3), item(u"P'1"_qs, 4)});
        gMstItemManager.SaveData({item(u"P'1"_qs, 1), item(u"P'1"_qs, 2), item(u"P'1"_qs, 3)});
        QList<clsMstItem> rows;
        gMstItemManager.GetList(rows, u"[製品ID] = 'P''1'"_qs, u"[製品ID],[製品種目No]"_qs);
        QStringList numbers;
        for (const clsMstItem& row : rows) numbers << row.ProductItemNo;
        QCOMPARE(numbers.join(u' '), u"1 2 3"_qs);
        QCOMPARE(count(u"マスタ見積種目"_qs), u"4"_qs);
    }

    void emptyCollectionReplacesNothing() {
        gMstItemManager.SaveData({item(u"P1"_qs, 1)});
        gMstMakeElmtManager.SaveData({makeLine(u"P1"_qs, 1, 1)});
        gMstCmpltElmtManager.SaveData({partsLine(u"P1"_qs, 1, 1)});
        gMstItemManager.SaveData({});
        gMstMakeElmtManager.SaveData({});
        gMstCmpltElmtManager.SaveData({});
        QCOMPARE(count(u"マスタ見積種目"_qs) + count(u"マスタ見積基本製作要素"_qs) + count(u"マスタ見積完成要素"_qs),
                 u"111"_qs);
        gMstItemManager.DeleteData(u"P1"_qs);
        gMstMakeElmtManager.DeleteData(u"P1"_qs);
        gMstCmpltElmtManager.DeleteData(u"P1"_qs);
        QCOMPARE(count(u"マスタ見積種目"_qs) + count(u"マスタ見積基本製作要素"_qs) + count(u"マスタ見積完成要素"_qs),
                 u"000"_qs);
    }

    void rowsReadBackByTheirKey() {
        roundTrip(gMstItemManager, {u"P1"_qs, u"1"_qs});
        roundTrip(gMstMakeElmtManager, {u"P1"_qs, u"1"_qs, u"1"_qs});
        roundTrip(gMstCmpltElmtManager, {u"P1"_qs, u"1"_qs, u"1"_qs});
    }

    void rowsComeInTheOrderOfTheirNumbers() {
        gMstMakeElmtManager.SaveData({makeLine(u"P1"_qs, 10, 1), makeLine(u"P1"_qs, 2, 10), makeLine(u"P1"_qs, 2, 9)});
        QStringList numbers;
        for (const clsMstMakeElmt& row : gMstMakeElmtManager.rowsOf({u"P1"_qs}))
            numbers << row.ProductItemNo + u'.' + row.ElmtNo;
        QCOMPARE(numbers.join(u' '), u"2.9 2.10 10.1"_qs);
    }

    void failedRowLeavesTheFormerOnesWithinATransaction() {
        gMstItemManager.SaveData({item(u"P1"_qs, 1)});
        clsMstItem wrong = item(u"P1"_qs, 2);
        wrong.PickStyle = u"採"_qs;
        QVERIFY(errorOf([&] {
            Transaction transaction(m_database->connection());
            gMstItemManager.SaveData({item(u"P1"_qs, 3), wrong});
            transaction.commit();
        }));
        QCOMPARE(gMstItemManager.rowsOf({u"P1"_qs}).value(0).ProductItemNo, u"1"_qs);
    }

    // --- the amounts of one line ---

    void amountsOfALineAreWrittenAlone() {
        gMstMakeElmtManager.SaveData({makeLine(u"P1"_qs, 1, 1), makeLine(u"P1"_qs, 1, 2)});
        gMstCmpltElmtManager.SaveData({partsLine(u"P1"_qs, 1, 1)});
        gMstMakeElmtManager.SaveData2(
            {u"P1"_qs, u"1"_qs, u"2"_qs, u"他"_qs, u"他"_qs, u"9"_qs, u"11"_qs, u"22"_qs, u"33"_qs});
        gMstCmpltElmtManager.SaveData2(
            {u"P1"_qs, u"1"_qs, u"1"_qs, u"他"_qs, u"他"_qs, u"他"_qs, u"他"_qs, u"9"_qs, u"77"_qs});
        const QList<clsMstMakeElmt> lines = gMstMakeElmtManager.rowsOf({u"P1"_qs});
        QCOMPARE(lines.at(0).PriceBig, u"30"_qs);
        QCOMPARE((QStringList{lines.at(1).MakeElmt, lines.at(1).Suryo, lines.at(1).PriceSmall, lines.at(1).PriceMiddle,
                              lines.at(1).PriceBig}),
                 (QStringList{u"支持部"_qs, u"2"_qs, u"11"_qs, u"22"_qs, u"33"_qs}));
        const clsMstCmpltElmt part = gMstCmpltElmtManager.rowsOf({u"P1"_qs}).value(0);
        QCOMPARE((QStringList{part.PartsNm, part.Suryo, part.Price}), (QStringList{u"足部"_qs, u"1"_qs, u"77"_qs}));
    }

    void amountsOfALineThatIsNotThereChangeNothing() {
        gMstMakeElmtManager.SaveData2(makeLine(u"P1"_qs, 1, 1));
        gMstCmpltElmtManager.SaveData2(partsLine(u"P1"_qs, 1, 1));
        QCOMPARE(count(u"マスタ見積基本製作要素"_qs) + count(u"マスタ見積完成要素"_qs), u"00"_qs);
    }

private:
    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString count(const QString& table) {
        return m_database->connection().scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
    }
    static clsMstEstimate saved(const QString& code) {
        clsMstEstimate record = master(code);
        gMstEstimateManager.SaveData(record);
        return record;
    }
    static clsMstEstimate stored(const QString& id) {
        clsMstEstimate row;
        gMstEstimateManager.GetData(id, row);
        return row;
    }
    template <class Record> static void roundTrip(OwnedRowsManager<Record>& manager, const QStringList& key) {
        const Record record = filled(manager, key);
        manager.SaveData({record});
        Record row;
        QVERIFY(manager.GetData(key, row));
        for (const auto& field : manager.fields()) QCOMPARE(row.*field.member, record.*field.member);
        QStringList other = key;
        other.last() = u"9"_qs;
        QVERIFY(!manager.GetData(other, row));
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(MasterManagersTest)
#include "MasterManagersTest.moc"
