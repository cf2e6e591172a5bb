#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "estimates/GridRules.h"
#include "price/PriceManagers.h"

#include <QTest>

// On the price list of the sample office.
class GridRulesTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static Cells emptyRow(int columns) { return Cells(columns, QString()); }

    static void choose(Cells& row, int column, const QString& value) {
        const QString before = row.at(column);
        row[column] = value;
        ItemGrid::edited(row, column, before);
    }

    static Cells shortLegBrace() {
        Cells row = emptyRow(ItemGrid::Columns);
        choose(row, ItemGrid::RowId, u"52"_qs);
        row[ItemGrid::PickStyle] = u"1"_qs;
        return row;
    }

    static LineContext braceContext() { return ItemGrid::context(shortLegBrace(), {}); }

    static void chooseMake(Cells& row, int column, const QString& value, const LineContext& context) {
        const QString before = row.at(column);
        row[column] = value;
        MakeGrid::edited(row, column, before, context);
    }

    static void choosePart(Cells& row, int column, const QString& value, const LineContext& context) {
        const QString before = row.at(column);
        row[column] = value;
        PartsGrid::edited(row, column, before, context);
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }

    void cleanupTestCase() { m_database.reset(); }

    void singlePathFillsTheWholeRow() {
        Cells row = emptyRow(ItemGrid::Columns);
        choose(row, ItemGrid::Item, u"起立保持具"_qs);
        QVERIFY(!row.at(ItemGrid::PickKbn).isEmpty());
        QVERIFY(!row.at(ItemGrid::Name).isEmpty());
        QVERIFY(!row.at(ItemGrid::Form).isEmpty());
        QCOMPARE(row.at(ItemGrid::PickStyle), u"0"_qs);
    }

    void quickEntryFillsTheRow() {
        const Cells row = shortLegBrace();
        QCOMPARE(row.at(ItemGrid::Item), u"下肢装具"_qs);
        QCOMPARE(row.at(ItemGrid::Name), u"短下肢装具"_qs);
        QCOMPARE(row.at(ItemGrid::Form), u"両側支柱"_qs);
    }

    void unknownQuickEntryClearsTheFourTexts() {
        for (const QString& id : {u"999999"_qs, u"abc"_qs, u"' OR 1=1"_qs, u"1.5"_qs}) {
            Cells row = shortLegBrace();
            choose(row, ItemGrid::RowId, id);
            for (int column = ItemGrid::Item; column <= ItemGrid::Form; ++column) QCOMPARE(row.at(column), QString());
        }
    }

    void otherNameKeepsAFormThatItsListHolds() {
        Cells row = emptyRow(ItemGrid::Columns);
        choose(row, ItemGrid::Item, u"靴型装具"_qs);
        choose(row, ItemGrid::PickKbn, u"F-1"_qs);
        choose(row, ItemGrid::Form, u"特殊靴"_qs);
        choose(row, ItemGrid::PickKbn, u"F-2"_qs);
        QCOMPARE(row.at(ItemGrid::Name), u"半長靴"_qs);
        QCOMPARE(row.at(ItemGrid::Form), u"特殊靴"_qs);
    }

    void otherNameClearsAFormThatItsListLacks() {
        Cells row = shortLegBrace();
        choose(row, ItemGrid::PickKbn, u"E-1"_qs);
        QCOMPARE(row.at(ItemGrid::Name), u"股装具"_qs);
        QCOMPARE(row.at(ItemGrid::Form), QString());
    }

    void quickEntryGoesWhenTheTextsNoLongerFit() {
        Cells row = shortLegBrace();
        choose(row, ItemGrid::Form, u"軟性"_qs);
        QCOMPARE(row.at(ItemGrid::RowId), QString());
    }

    void clearedKindClearsTheRow() {
        Cells row = shortLegBrace();
        choose(row, ItemGrid::Item, {});
        for (int column = ItemGrid::Item; column <= ItemGrid::GrantRepair; ++column) QCOMPARE(row.at(column), QString());
    }

    void castingOrMeasuringIsAskedOfOrthosesAlone() {
        Cells row = shortLegBrace();
        choose(row, ItemGrid::Item, u"歩行器"_qs);
        QCOMPARE(row.at(ItemGrid::PickStyle), u"0"_qs);
        choose(row, ItemGrid::Item, u"下肢装具"_qs);
        QCOMPARE(row.at(ItemGrid::PickStyle), QString());
        QVERIFY(ItemGrid::choices(row, ItemGrid::PickStyle).isEmpty());
    }

    void listNeedsEveryColumnToItsLeft() {
        Cells row = emptyRow(ItemGrid::Columns);
        QVERIFY(ItemGrid::choices(row, ItemGrid::PickKbn).isEmpty());
        QVERIFY(ItemGrid::choices(row, ItemGrid::GrantRepair).isEmpty());
        QVERIFY(!ItemGrid::choices(row, ItemGrid::Item).isEmpty());
        QCOMPARE(ItemGrid::choices(shortLegBrace(), ItemGrid::GrantRepair).size(), 2);
    }

    void linesNeedAnItem() {
        const Cells row = emptyRow(MakeGrid::Columns);
        QVERIFY(!MakeGrid::mayEdit(row, MakeGrid::MakeElmt, LineContext()));
        QVERIFY(MakeGrid::mayEdit(row, MakeGrid::MakeElmt, braceContext()));
        QVERIFY(!MakeGrid::mayEdit(row, MakeGrid::Suryo, braceContext()));
    }

    void basePriceLineIsPriced() {
        Cells row = emptyRow(MakeGrid::Columns);
        chooseMake(row, MakeGrid::MakeElmt, u"基本価格"_qs, braceContext());
        QCOMPARE(row.at(MakeGrid::Materials), u"＊"_qs);
        QCOMPARE(row.at(MakeGrid::Suryo), u"1"_qs);
        QVERIFY(row.at(MakeGrid::Price).toInt() > 0);
        QCOMPARE(row.at(MakeGrid::Price), row.at(MakeGrid::UnitPrice));
    }

    void quantityMultipliesTheUnitPriceAndOverridesATypedPrice() {
        Cells row = emptyRow(MakeGrid::Columns);
        chooseMake(row, MakeGrid::MakeElmt, u"基本価格"_qs, braceContext());
        const int unit = row.at(MakeGrid::UnitPrice).toInt();
        chooseMake(row, MakeGrid::Price, u"123"_qs, braceContext());
        QCOMPARE(row.at(MakeGrid::Price), u"123"_qs);
        chooseMake(row, MakeGrid::Suryo, u"2"_qs, braceContext());
        QCOMPARE(row.at(MakeGrid::Price), QString::number(2 * unit));
    }

    void clearedElementClearsTheLine() {
        Cells row = emptyRow(MakeGrid::Columns);
        chooseMake(row, MakeGrid::MakeElmt, u"基本価格"_qs, braceContext());
        chooseMake(row, MakeGrid::MakeElmt, {}, braceContext());
        QCOMPARE(row, emptyRow(MakeGrid::Columns));
    }

    void elementOfTheQuickEntryIsPriced() {
        const LineContext context = braceContext();
        const CellChoices list = MakeGrid::choices(emptyRow(MakeGrid::Columns), MakeGrid::RowId, context);
        QVERIFY(list.size() > 5);
        Cells row = emptyRow(MakeGrid::Columns);
        chooseMake(row, MakeGrid::RowId, list.last().value, context);
        QVERIFY(!row.at(MakeGrid::Materials).isEmpty());
        QVERIFY(row.at(MakeGrid::Price).toInt() > 0);
        chooseMake(row, MakeGrid::RowId, {}, context);
        QCOMPARE(row, emptyRow(MakeGrid::Columns));
    }

    void priceThatIsNotFoundIs0() {
        Cells row = emptyRow(MakeGrid::Columns);
        LineContext context = braceContext();
        context.pickStyle = u"0"_qs;
        chooseMake(row, MakeGrid::MakeElmt, u"基本価格"_qs, context);
        QCOMPARE(row.at(MakeGrid::Price), u"0"_qs);
    }

    void partFillsCodeMakerAndPrice() {
        const LineContext context = braceContext();
        const CellChoices names = PartsGrid::choices(emptyRow(PartsGrid::Columns), PartsGrid::PartsNm, context);
        QVERIFY(!names.isEmpty());
        Cells row = emptyRow(PartsGrid::Columns);
        choosePart(row, PartsGrid::PartsNm, names.first().value, context);
        const CellChoices forms = PartsGrid::choices(row, PartsGrid::Form, context);
        choosePart(row, PartsGrid::Form, forms.first().value, context);
        const CellChoices codes = PartsGrid::choices(row, PartsGrid::PartsCd, context);
        QVERIFY(!codes.isEmpty());
        choosePart(row, PartsGrid::PartsCd, codes.first().value, context);
        QCOMPARE(row.at(PartsGrid::Suryo), u"1"_qs);
        QVERIFY(row.at(PartsGrid::Price).toInt() > 0);
        choosePart(row, PartsGrid::Suryo, u"3"_qs, context);
        QCOMPARE(row.at(PartsGrid::Price), QString::number(3 * row.at(PartsGrid::UnitPrice).toInt()));
    }

    void partOfTheQuickEntryMustBeInUse() {
        const LineContext context = braceContext();
        const CellChoices list = PartsGrid::choices(emptyRow(PartsGrid::Columns), PartsGrid::RowId, context);
        Cells row = emptyRow(PartsGrid::Columns);
        choosePart(row, PartsGrid::RowId, list.first().value, context);
        QVERIFY(!row.at(PartsGrid::PartsNm).isEmpty());
        m_database->connection().execute(u"UPDATE 価格部品 SET [有効Flg] = 1 WHERE [ID] = "_qs + list.first().value);
        Cells retired = emptyRow(PartsGrid::Columns);
        choosePart(retired, PartsGrid::RowId, list.first().value, context);
        QCOMPARE(retired.at(PartsGrid::PartsNm), QString());
    }
};

HALVANE_TEST(GridRulesTest)
#include "GridRulesTest.moc"
