#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "price/PriceManagers.h"
#include "price/basPriceSelection.h"

namespace {

template <class Record> QString joined(const QList<Record>& rows, QString Record::*member) {
    QStringList values;
    for (const Record& row : rows) values << row.*member;
    return values.join(u' ');
}

template <class Manager, class Record> Record filled(const Manager& manager, QString Record::*number) {
    Record record;
    int value = 10;
    for (const auto& field : manager.fields()) record.*field.member = QString::number(++value);
    (record.*number).clear();
    return record;
}

} // namespace

class PriceManagersTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
        sql(u"UPDATE [採番] SET [最終値] = '9000004' WHERE [項目名] = '価格種目ID'"_qs);
        addItem(1, u"義足"_qs, u"B-1"_qs, u"名1"_qs, u"形1"_qs, 0);
        addItem(2, u"装具"_qs, u"C-1"_qs, u"名2"_qs, u"形2"_qs, 1);
        addItem(3, u"義足"_qs, u"A-1"_qs, u"名3"_qs, u"形3"_qs, 0);
        addItem(4, u"義足"_qs, u"B-1"_qs, u"名1"_qs, u"形4"_qs, 0);
        addItem(5, u"義足"_qs, u"B-1"_qs, u"名5"_qs, u"形5"_qs, 1);
    }
    void cleanup() { m_database.reset(); }

    void countersStartAboveTheFilesRows() {
        for (const QString& table : Schema::priceTables())
            QVERIFY(m_database->connection()
                        .scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '%1ID'"_qs.arg(table))
                        .toInt() >= 9000000);
    }

    void newRowTakesTheNextNumberAndStoresItAfterwards() {
        QStringList statements;
        m_database->connection().onStatement = [&](const QString& statement) {
            statements << statement.trimmed().section(u' ', 0, 0);
        };
        clsPriceItem item = newItem();
        gPriceItemManager.SaveData(item);
        QCOMPARE(item.ID, u"9000005"_qs);
        QCOMPARE(counter(), u"9000005"_qs);
        QCOMPARE(statements, (QStringList{u"SELECT"_qs, u"INSERT"_qs, u"UPDATE"_qs, u"SELECT"_qs}));
    }

    void knownRowIsUpdatedAndLeavesTheCounter() {
        clsPriceItem item;
        gPriceItemManager.GetData(3, item);
        item.Name = u"改'名"_qs;
        item.UseFlg = u"1"_qs;
        gPriceItemManager.SaveData(item);
        clsPriceItem stored;
        gPriceItemManager.GetData(3, stored);
        QCOMPARE(stored.Name, u"改'名"_qs);
        QCOMPARE(stored.UseFlg, u"1"_qs);
        QCOMPARE(counter(), u"9000004"_qs);
        QCOMPARE(gPriceItemManager.GetCount(), 5);
    }

    void rowOfAFileKeepsItsNumberAndLeavesTheCounter() {
        clsPriceItem item = newItem();
        item.ID = u"9000123"_qs;
        gPriceItemManager.SaveInit(item);
        QCOMPARE(counter(), u"9000004"_qs);
        gPriceItemManager.GetData(9000123, item);
        QCOMPARE(item.Item, u"新種目"_qs);
        item.ID = u"9000124"_qs;
        item.AddDate = item.UpdDate = u"2024/04/01"_qs;
        gPriceItemManager.SaveInit(item);
        gPriceItemManager.GetData(9000124, item);
        QCOMPARE(item.AddDate, u"2024/04/01"_qs);
        QCOMPARE(item.UpdDate, u"2024/04/01"_qs);
    }

    void failedSaveIsAnErrorOfTheSystem() {
        clsPriceItem item = newItem();
        item.ID = u"1"_qs;
        const auto error = errorOf([&] { gPriceItemManager.SaveInit(item); });
        QVERIFY(error);
        QCOMPARE(error->number(), AppError::Application);
    }

    void listWithoutAnOrderFails() {
        QList<clsPriceItem> rows;
        QVERIFY(errorOf([&] { gPriceItemManager.GetList(rows, {}, {}); }));
        QVERIFY(errorOf([&] { gPriceItemManager.GetList(rows, u"[ID] = 1"_qs, u"  "_qs); }));
        gPriceItemManager.GetList(rows, u"[種目] = '義足' "_qs, u"[ID] DESC "_qs);
        QCOMPARE(joined(rows, &clsPriceItem::ID), u"5 4 3 1"_qs);
    }

    void emptyNumberEmptiesTheTable() {
        gPriceItemManager.DeleteData(u"2"_qs);
        QCOMPARE(gPriceItemManager.GetCount(), 4);
        QVERIFY(errorOf([] { gPriceItemManager.DeleteData(u"x' OR 1=1"_qs); }));
        gPriceItemManager.DeleteData({});
        QCOMPARE(gPriceItemManager.GetCount(), 0);
    }

    void numberThatIsNotThereIsAnError() {
        clsPriceItem item;
        QVERIFY(errorOf([&] { gPriceItemManager.GetData(77, item); }));
    }

    void nullPriceReadsAsTheEmptyText() {
        sql(u"INSERT INTO 価格基本 ([ID], [種目], [旧価格１]) VALUES (1, '義足', 0)"_qs);
        clsPriceBase base;
        gPriceBaseManager.GetData(1, base);
        QCOMPARE(base.NewPrice1, QString());
        QCOMPARE(base.OldPrice1, u"0"_qs);
    }

    void narrowingListsKeepTheOrderOfFirstAppearance() {
        QList<clsPriceItem> items, kbns, none, names, forms;
        gPriceItemManager.GetListSumItem(items);
        QCOMPARE(joined(items, &clsPriceItem::Item), u"義足 装具"_qs); // also 装具, whose rows are all invalid
        QCOMPARE(joined(items, &clsPriceItem::ID), u"1 2"_qs);
        gPriceItemManager.GetListSumPickPtnKbn(kbns, u"義足"_qs);
        QCOMPARE(joined(kbns, &clsPriceItem::PickKbn), u"B-1 A-1"_qs);
        gPriceItemManager.GetListSumPickPtnKbn(none, u"装具"_qs);
        QVERIFY(none.isEmpty());
        gPriceItemManager.GetListSumName(names, u"義足"_qs, u"B-1"_qs);
        QCOMPARE(joined(names, &clsPriceItem::Name), u"名1"_qs);
        gPriceItemManager.GetListSumForm(forms, u"義足"_qs, u"B-1"_qs, u"名1"_qs);
        QCOMPARE(joined(forms, &clsPriceItem::Form), u"形1 形4"_qs);
        gPriceItemManager.GetListSumForm(forms, u"x' OR '1'='1"_qs, {}, {});
        QCOMPARE(forms.size(), 2);
    }

    void groupListsRunInOrderWithTheirLargestNumber() {
        QList<clsPriceItem> items, kbns;
        gPriceItemManager.GetItemGrpList(items);
        QCOMPARE(joined(items, &clsPriceItem::Item), u"義足 装具"_qs);
        QCOMPARE(joined(items, &clsPriceItem::ID), u"5 2"_qs);
        gPriceItemManager.GetPickKbnGrpList(kbns, u"[種目] = '義足'"_qs);
        QCOMPARE(joined(kbns, &clsPriceItem::PickKbn), u"A-1 B-1"_qs);
    }

    void partsAreOfferedWhenUsableAndValid() {
        const auto add = [this](int id, const QString& name, const QString& form, int usable, int invalid) {
            sql(u"INSERT INTO 価格部品 ([ID], [種目], [名称], [形式], [使用設定], [有効Flg]) VALUES (%1, '義足', '%2', '%3', %4, %5)"_qs
                    .arg(id)
                    .arg(name, form)
                    .arg(usable)
                    .arg(invalid));
        };
        add(1, u"ア"_qs, u"f2"_qs, 1, 0);
        add(2, u"ウ"_qs, u"f1"_qs, 1, 0);
        add(3, u"ア"_qs, u"f1"_qs, 1, 0);
        add(4, u"イ"_qs, u"f1"_qs, 0, 0);
        add(5, u"エ"_qs, u"f1"_qs, 1, 1);
        QList<clsPriceParts> names, forms;
        gPricePartsManager.GetListSumPartsNm(names, u"義足"_qs);
        QCOMPARE(joined(names, &clsPriceParts::Name), u"ウ ア"_qs);
        gPricePartsManager.GetListSumForm(forms, u"義足"_qs, u"ア"_qs);
        QCOMPARE(joined(forms, &clsPriceParts::Form), u"f2 f1"_qs);
    }

    void everyColumnOfEveryTableIsSaved() {
        roundTrip(gPriceItemManager, &clsPriceItem::ID);
        roundTrip(gPriceBaseManager, &clsPriceBase::ID);
        roundTrip(gPriceAddManager, &clsPriceAdd::ID);
        roundTrip(gPriceElmtManager, &clsPriceElmt::ID);
        roundTrip(gPricePartsManager, &clsPriceParts::ID);
    }

    void selectionListIsRebuiltFromThePriceTables() {
        fillPrices();
        QList<std::pair<qint64, qint64>> steps;
        RebuildBaseElmtSelect(m_database->connection(), [&](qint64 done, qint64 all) {
            steps << std::pair{done, all};
        });
        QList<clsBaseElmtSelect> rows;
        gBaseElmtSelectManager.GetList(rows, {}, u"[ID]"_qs);
        QStringList texts;
        for (const clsBaseElmtSelect& row : rows)
            texts << QStringList{row.ID, row.Item, row.PickKbn, row.MakeElmt, row.Materials}.join(u'/');
        QCOMPARE(texts,
                 (QStringList{u"1/車椅子/＊/基本価格/オーダーメイド"_qs, u"2/車椅子/＊/基本価格/レディメイド"_qs,
                              u"3/車椅子/＊/加算/調整加算（オーダーメイド）"_qs,
                              u"4/車椅子/＊/加算/調整加算（レディメイド）"_qs, u"5/電動車椅子/＊/加算/調整加算"_qs,
                              u"6/義足/A-1/基本価格/＊"_qs, u"7/義足/B-1/基本価格/＊"_qs,
                              u"8/義足/B-1/加算/断端加算"_qs, u"9/義足/B-1/継手/木'製"_qs, u"10/義足/B-1/継手/鋼"_qs}));
        QCOMPARE(steps.size(), 10);
        QCOMPARE(steps.last(), (std::pair<qint64, qint64>{10, 10}));
        QCOMPARE(gBaseElmtSelectManager.GetLastID(), u"10"_qs);
    }

    void failedRebuildLeavesTheListAsItWas() {
        fillPrices();
        RebuildBaseElmtSelect(m_database->connection());
        sql(u"INSERT INTO 価格加算 ([ID], [種目], [採型区分], [加算要素]) VALUES (9, 'x', 'y', 'z')"_qs);
        QVERIFY(errorOf([&] {
            RebuildBaseElmtSelect(m_database->connection(), [](qint64 done, qint64) {
                if (done == 3) throw AppError(u"stop"_qs);
            });
        }));
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [基本要素選択]"_qs), u"10"_qs);
        QCOMPARE(m_database->connection().transactionDepth(), 0);
    }

    void makeElementsOfAnItemKeepTheirOrder() {
        for (const auto& [id, element] : {std::pair{"1", "乙"}, {"2", "甲"}, {"3", "乙"}})
            gBaseElmtSelectManager.SaveInit(
                {QString::fromUtf8(id), u"義足"_qs, u"B-1"_qs, QString::fromUtf8(element), u"x"_qs});
        QList<clsBaseElmtSelect> rows;
        gBaseElmtSelectManager.GetListSumMakeElmt(rows, u"義足"_qs, u"B-1"_qs);
        QCOMPARE(joined(rows, &clsBaseElmtSelect::MakeElmt), u"乙 甲"_qs);
        clsBaseElmtSelect row;
        QVERIFY(gBaseElmtSelectManager.GetData(2, row));
        QVERIFY(!gBaseElmtSelectManager.GetData(7, row));
        gBaseElmtSelectManager.DeleteData(u"2"_qs);
        QCOMPARE(gBaseElmtSelectManager.GetLastID(), u"3"_qs);
        gBaseElmtSelectManager.DeleteData({});
        QCOMPARE(gBaseElmtSelectManager.GetLastID(), QString());
    }

    void priceGroupFilterJoinsItsTerms() {
        QCOMPARE(PriceGroupFilter({{u"種目"_qs, u"義手"_qs}, {u"名称"_qs, QString()}, {u"形式"_qs, u"50%"_qs}}),
                 u"[種目]  LIKE '%義手%' AND [形式]  LIKE '%50[%]%'"_qs);
    }

private:
    void sql(const QString& statement) { m_database->connection().execute(statement); }
    QString counter() {
        return m_database->connection().scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '価格種目ID'"_qs);
    }
    void addItem(int id, const QString& item, const QString& kbn, const QString& name, const QString& form, int flag) {
        sql(u"INSERT INTO 価格種目 ([ID], [種目], [採型区分], [名称], [形式], [有効Flg]) VALUES (%1, '%2', '%3', '%4', '%5', %6)"_qs
                .arg(id)
                .arg(item, kbn, name, form)
                .arg(flag));
    }
    void fillPrices() {
        for (const QString& kbn : {u"B-1"_qs, u"A-1"_qs, u"B-1"_qs})
            sql(u"INSERT INTO 価格基本 ([ID], [種目], [採型区分]) VALUES (%1, '義足', '%2')"_qs.arg(++m_id).arg(kbn));
        for (int i = 0; i < 2; ++i)
            sql(u"INSERT INTO 価格加算 ([ID], [種目], [採型区分], [加算要素]) VALUES (%1, '義足', 'B-1', '断端加算')"_qs
                    .arg(++m_id));
        for (const QString& material : {u"鋼"_qs, u"木''製"_qs})
            sql(u"INSERT INTO 価格要素 ([ID], [種目], [採型区分], [製作要素], [原材料]) VALUES (%1, '義足', 'B-1', '継手', '%2')"_qs
                    .arg(++m_id)
                    .arg(material));
    }
    static clsPriceItem newItem() {
        clsPriceItem item;
        item.Item = u"新種目"_qs;
        item.UseFlg = u"0"_qs;
        item.UpdUserNo = u"1"_qs;
        return item;
    }
    template <class Manager, class Record> static void roundTrip(Manager& manager, QString Record::*number) {
        Record record = filled(manager, number);
        manager.SaveData(record);
        Record stored;
        manager.GetData((record.*number).toInt(), stored);
        for (const auto& field : manager.fields())
            if (field.column != u"登録日" && field.column != u"更新日")
                QCOMPARE(stored.*field.member, record.*field.member);
    }

    std::unique_ptr<TestDatabase> m_database;
    int m_id = 0;
};

HALVANE_TEST(PriceManagersTest)
#include "PriceManagersTest.moc"
