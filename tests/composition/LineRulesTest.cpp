#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "composition/ItemRules.h"
#include "composition/LineRules.h"
#include "price/PriceManagers.h"

#include <QTest>

#include <tuple>

// On the price list of the sample office.
class LineRulesTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static Cells emptyRow(int columns) { return Cells(columns, QString()); }

    static void choose(Cells& row, int column, const QString& value) {
        const QString before = row.at(column);
        row[column] = value;
        ItemRules::edited(row, column, before);
    }

    static Cells shortLegBrace() {
        Cells row = emptyRow(ItemRules::Columns);
        choose(row, ItemRules::RowId, u"52"_qs);
        row[ItemRules::PickStyle] = u"1"_qs;
        return row;
    }

    static LineContext braceContext() { return LineContext(shortLegBrace(), {QString()}); }

    static void chooseMake(Cells& row, int column, const QString& value, const LineContext& context) {
        const QString before = row.at(column);
        row[column] = value;
        makeRules().edited(row, column, before, context);
    }

    static void choosePart(Cells& row, int column, const QString& value, const LineContext& context) {
        const QString before = row.at(column);
        row[column] = value;
        partsRules().edited(row, column, before, context);
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }

    void cleanupTestCase() { m_database.reset(); }

    void linesNeedAnItem() {
        const Cells row = emptyRow(MakeLine::Columns);
        QVERIFY(!makeRules().mayEdit(row, MakeLine::MakeElmt, LineContext()));
        QVERIFY(makeRules().mayEdit(row, MakeLine::MakeElmt, braceContext()));
        QVERIFY(!makeRules().mayEdit(row, MakeLine::Suryo, braceContext()));
    }

    void basePriceLineIsPriced() {
        Cells row = emptyRow(MakeLine::Columns);
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, braceContext());
        QCOMPARE(row.at(MakeLine::Materials), u"＊"_qs);
        QCOMPARE(row.at(MakeLine::Suryo), u"1"_qs);
        QVERIFY(row.at(MakeLine::Price).toInt() > 0);
        QCOMPARE(row.at(MakeLine::Price), row.at(MakeLine::UnitPrice));
    }

    void quantityMultipliesTheUnitPriceAndOverridesATypedPrice() {
        Cells row = emptyRow(MakeLine::Columns);
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, braceContext());
        const int unit = row.at(MakeLine::UnitPrice).toInt();
        chooseMake(row, MakeLine::Price, u"123"_qs, braceContext());
        QCOMPARE(row.at(MakeLine::Price), u"123"_qs);
        chooseMake(row, MakeLine::Suryo, u"2"_qs, braceContext());
        QCOMPARE(row.at(MakeLine::Price), QString::number(2 * unit));
    }

    void threeTiersStandBehindTheQuantity() {
        const LineContext context(shortLegBrace(), {u"小人"_qs, u"中人"_qs, u"大人"_qs});
        Cells row = emptyRow(makeRules().columns(3));
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, context);
        for (int tier = 0; tier < 3; ++tier) {
            QVERIFY(row.at(makeRules().amount(tier)).toInt() > 0);
            QCOMPARE(row.at(makeRules().unitPrice(tier)), row.at(makeRules().amount(tier)));
        }
        chooseMake(row, MakeLine::Suryo, u"2"_qs, context);
        for (int tier = 0; tier < 3; ++tier)
            QCOMPARE(row.at(makeRules().amount(tier)).toInt(), 2 * row.at(makeRules().unitPrice(tier)).toInt());
        QCOMPARE(makeRules().lastAmount(row), makeRules().amount(2));
    }

    void amountOfALineIsNotRounded() {
        QCOMPARE(lineAmount(u"5000"_qs, u"3"_qs), u"15000"_qs);
        QCOMPARE(lineAmount(u"333"_qs, u"1.5"_qs), u"499.5"_qs);
        QCOMPARE(lineAmount({}, u"3"_qs), u"0"_qs);
    }

    void elementsOfWheelchairsStandUnderAnyCategory() {
        Cells item = emptyRow(ItemRules::Columns);
        choose(item, ItemRules::RowId, u"105"_qs);
        const CellChoices usual =
            makeRules().choices(emptyRow(MakeLine::Columns), MakeLine::MakeElmt, LineContext(item, {QString()}));
        QVERIFY(holds(usual, u"基本価格"_qs));
        item[ItemRules::PickKbn] = u"K-1"_qs;
        const LineContext context(item, {QString()});
        Cells row = emptyRow(MakeLine::Columns);
        const CellChoices offered = makeRules().choices(row, MakeLine::MakeElmt, context);
        QCOMPARE(offered.size(), usual.size());
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, context);
        chooseMake(row, MakeLine::Materials, u"オーダーメイド"_qs, context);
        QVERIFY(row.at(MakeLine::Price).toInt() > 0);
    }

    void amountsAreRoundedAsTheyAreAdded() {
        QCOMPARE(totalOf({u"499.5"_qs, u"499.5"_qs, u"499.5"_qs, u"1,000円"_qs, {}}), 2500);
        QVERIFY(!raised([] { totalOf({u"2147483647"_qs, u"1"_qs}); }).isEmpty());
    }

    void clearedElementClearsTheLine() {
        Cells row = emptyRow(MakeLine::Columns);
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, braceContext());
        chooseMake(row, MakeLine::MakeElmt, {}, braceContext());
        QCOMPARE(row, emptyRow(MakeLine::Columns));
    }

    void elementOfTheQuickEntryIsPriced() {
        const LineContext context = braceContext();
        const CellChoices list = makeRules().choices(emptyRow(MakeLine::Columns), MakeLine::RowId, context);
        QVERIFY(list.size() > 5);
        Cells row = emptyRow(MakeLine::Columns);
        chooseMake(row, MakeLine::RowId, list.last().value, context);
        QVERIFY(!row.at(MakeLine::Materials).isEmpty());
        QVERIFY(row.at(MakeLine::Price).toInt() > 0);
        chooseMake(row, MakeLine::RowId, {}, context);
        QCOMPARE(row, emptyRow(MakeLine::Columns));
    }

    void priceThatIsNotFoundIs0() {
        Cells row = emptyRow(MakeLine::Columns);
        LineContext context = braceContext();
        context.pickStyle = u"0"_qs;
        chooseMake(row, MakeLine::MakeElmt, u"基本価格"_qs, context);
        QCOMPARE(row.at(MakeLine::Price), u"0"_qs);
    }

    void partFillsCodeMakerAndPrice() {
        const LineContext context = braceContext();
        const CellChoices names = partsRules().choices(emptyRow(PartsLine::Columns), PartsLine::PartsNm, context);
        QVERIFY(!names.isEmpty());
        Cells row = emptyRow(PartsLine::Columns);
        choosePart(row, PartsLine::PartsNm, names.first().value, context);
        const CellChoices forms = partsRules().choices(row, PartsLine::Form, context);
        choosePart(row, PartsLine::Form, forms.first().value, context);
        const CellChoices codes = partsRules().choices(row, PartsLine::PartsCd, context);
        QVERIFY(!codes.isEmpty());
        choosePart(row, PartsLine::PartsCd, codes.first().value, context);
        QCOMPARE(row.at(PartsLine::Suryo), u"1"_qs);
        QVERIFY(row.at(PartsLine::Price).toInt() > 0);
        choosePart(row, PartsLine::Suryo, u"3"_qs, context);
        QCOMPARE(row.at(PartsLine::Price), QString::number(3 * row.at(PartsLine::UnitPrice).toInt()));
    }

    // The column for makers offers all who make that name and form; the code and the price follow the choice.
    void everyMakerOfANameAndFormIsOffered() {
        const LineContext context = braceContext();
        for (const auto& [id, code, maker, price] :
             {std::tuple(9999001, u"K1"_qs, u"甲製作所"_qs, 1000), std::tuple(9999002, u"K2"_qs, u"乙製作所"_qs, 2000),
              std::tuple(9999003, u"K3"_qs, u"乙製作所"_qs, 3000)})
            m_database->connection().execute(
                u"INSERT INTO [価格部品] ([ID], [種目], [名称], [形式], [部品コード], [メーカ名], [新価格], "
                u"[使用設定], "
                u"[有効Flg]) VALUES (%1, '下肢装具', '試継手', '試型', '%2', '%3', %4, 1, 0)"_qs.arg(id)
                    .arg(code, maker)
                    .arg(price));
        Cells row = emptyRow(PartsLine::Columns);
        choosePart(row, PartsLine::PartsNm, u"試継手"_qs, context);
        choosePart(row, PartsLine::PartsCd, u"K1"_qs, context);
        QCOMPARE(row.at(PartsLine::MakerNm), u"甲製作所"_qs);
        QStringList makers;
        for (const CellChoice& choice : partsRules().choices(row, PartsLine::MakerNm, context)) makers << choice.value;
        makers.sort();
        QCOMPARE(makers, (QStringList{u"乙製作所"_qs, u"甲製作所"_qs}));
        choosePart(row, PartsLine::Suryo, u"3"_qs, context);
        choosePart(row, PartsLine::MakerNm, u"乙製作所"_qs, context);
        QCOMPARE(row.at(PartsLine::PartsCd), u"K2"_qs);
        QCOMPARE(row.at(PartsLine::Price), u"2000"_qs);
        // Of a maker who makes the row's code nothing but the name is taken.
        choosePart(row, PartsLine::PartsCd, u"K3"_qs, context);
        choosePart(row, PartsLine::Suryo, u"2"_qs, context);
        choosePart(row, PartsLine::MakerNm, {}, context);
        choosePart(row, PartsLine::MakerNm, u"乙製作所"_qs, context);
        QCOMPARE(row.at(PartsLine::PartsCd), u"K3"_qs);
        QCOMPARE(row.at(PartsLine::Price), u"6000"_qs);
    }

    void aSinglePartFillsItsMakerOfSeveralTheOneChosenBeforeStays() {
        const auto add = [this](int id, const QString& form, const QString& code, const QString& maker) {
            m_database->connection().execute(
                u"INSERT INTO [価格部品] ([ID], [種目], [名称], [形式], [部品コード], [メーカ名], [新価格], [使用設定],"
                u" [有効Flg]) VALUES (%1, '下肢装具', '別継手', '%2', '%3', '%4', 1000, 1, 0)"_qs.arg(
                    QString::number(id), form, code, maker));
        };
        add(9999011, u"一型"_qs, u"S-1"_qs, u"甲製作所"_qs);
        Cells row = emptyRow(PartsLine::Columns);
        choosePart(row, PartsLine::PartsNm, u"別継手"_qs, braceContext());
        QCOMPARE(row.mid(PartsLine::PartsNm, 4), (QStringList{u"別継手"_qs, u"一型"_qs, u"S-1"_qs, u"甲製作所"_qs}));

        add(9999012, u"二型"_qs, u"S-2"_qs, u"甲製作所"_qs);
        add(9999013, u"二型"_qs, u"S-2"_qs, u"乙製作所"_qs);
        choosePart(row, PartsLine::Form, u"二型"_qs, braceContext());
        choosePart(row, PartsLine::PartsCd, u"S-2"_qs, braceContext());
        QCOMPARE(row.at(PartsLine::MakerNm), QString());
        row[PartsLine::MakerNm] = u"乙製作所"_qs;
        choosePart(row, PartsLine::PartsCd, u"S-9"_qs, braceContext());
        QCOMPARE(row.at(PartsLine::MakerNm), QString());
        row[PartsLine::MakerNm] = u"乙製作所"_qs;
        choosePart(row, PartsLine::PartsCd, u"S-2"_qs, braceContext());
        QCOMPARE(row.at(PartsLine::MakerNm), u"乙製作所"_qs);
    }

    void aTextThatGoesTakesQuantityAndPriceAlong() {
        const LineContext context = braceContext();
        Cells part{{}, u"1"_qs, u"無い部品"_qs, u"型"_qs, u"C"_qs, u"甲"_qs, u"3"_qs, u"10"_qs, u"30"_qs};
        choosePart(part, PartsLine::PartsNm, u"他の無い部品"_qs, context);
        QCOMPARE(part.mid(PartsLine::Form), QStringList(6));
        QCOMPARE(part.at(PartsLine::RowId), QString());

        Cells make{{}, u"1"_qs, u"基本価格"_qs, u"無い材料"_qs, u"3"_qs, u"10"_qs, u"30"_qs};
        chooseMake(make, MakeLine::MakeElmt, u"無い要素"_qs, context);
        QCOMPARE(make.mid(MakeLine::Materials), QStringList(4));
        QCOMPARE(make.at(MakeLine::RowId), QString());
    }

    // An ID belongs to the texts beside it: with another text it would name another row of the price list.
    void theQuickEntryGoesWithTheTextThatItNamed() {
        const LineContext context = braceContext();
        const CellChoices makes = makeRules().choices(emptyRow(MakeLine::Columns), MakeLine::RowId, context);
        Cells make = emptyRow(MakeLine::Columns);
        chooseMake(make, MakeLine::RowId, makes.first().value, context);
        chooseMake(make, MakeLine::Materials, u"他の材料"_qs, context);
        QCOMPARE(make.at(MakeLine::RowId), QString());
        chooseMake(make, MakeLine::RowId, makes.first().value, context);
        const QString element = make.at(MakeLine::MakeElmt);
        chooseMake(make, MakeLine::MakeElmt, {}, context);
        chooseMake(make, MakeLine::MakeElmt, element, context);
        QCOMPARE(make.at(MakeLine::MakeElmt), element);

        const CellChoices parts = partsRules().choices(emptyRow(PartsLine::Columns), PartsLine::RowId, context);
        for (const int column : {PartsLine::PartsNm, PartsLine::Form, PartsLine::PartsCd}) {
            Cells part = emptyRow(PartsLine::Columns);
            choosePart(part, PartsLine::RowId, parts.first().value, context);
            QCOMPARE(part.at(PartsLine::RowId), parts.first().value);
            choosePart(part, column, u"他"_qs, context);
            QVERIFY2(part.at(PartsLine::RowId).isEmpty(), qPrintable(QString::number(column)));
        }
    }

    void partOfTheQuickEntryMustBeInUse() {
        const LineContext context = braceContext();
        const CellChoices list = partsRules().choices(emptyRow(PartsLine::Columns), PartsLine::RowId, context);
        Cells row = emptyRow(PartsLine::Columns);
        choosePart(row, PartsLine::RowId, list.first().value, context);
        QVERIFY(!row.at(PartsLine::PartsNm).isEmpty());
        m_database->connection().execute(u"UPDATE 価格部品 SET [有効Flg] = 1 WHERE [ID] = "_qs + list.first().value);
        Cells retired = emptyRow(PartsLine::Columns);
        choosePart(retired, PartsLine::RowId, list.first().value, context);
        QCOMPARE(retired.at(PartsLine::PartsNm), QString());
    }
};

HALVANE_TEST(LineRulesTest)
#include "LineRulesTest.moc"
