#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "composition/ItemRules.h"

#include <QTest>

// On the price list of the sample office.
class ItemRulesTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static Cells emptyRow() { return Cells(ItemRules::Columns); }

    static void choose(Cells& row, int column, const QString& value,
                       const ItemRules::Habits& habits = ItemRules::orderHabits) {
        const QString before = row.at(column);
        row[column] = value;
        ItemRules::edited(row, column, before, habits);
    }

    static void chooseInMaster(Cells& row, int column, const QString& value) {
        choose(row, column, value, ItemRules::masterHabits);
    }

    static Cells shortLegBrace() {
        Cells row = emptyRow();
        choose(row, ItemRules::RowId, u"52"_qs);
        row[ItemRules::PickStyle] = u"1"_qs;
        return row;
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }

    void cleanupTestCase() { m_database.reset(); }

    void singlePathFillsTheWholeRow() {
        Cells row = emptyRow();
        choose(row, ItemRules::Item, u"起立保持具"_qs);
        QVERIFY(!row.at(ItemRules::PickKbn).isEmpty());
        QVERIFY(!row.at(ItemRules::Name).isEmpty());
        QVERIFY(!row.at(ItemRules::Form).isEmpty());
        QCOMPARE(row.at(ItemRules::PickStyle), u"0"_qs);
    }

    void quickEntryFillsTheRow() {
        const Cells row = shortLegBrace();
        QCOMPARE(row.at(ItemRules::Item), u"下肢装具"_qs);
        QCOMPARE(row.at(ItemRules::Name), u"短下肢装具"_qs);
        QCOMPARE(row.at(ItemRules::Form), u"両側支柱"_qs);
    }

    void unknownQuickEntryClearsTheFourTexts() {
        for (const QString& id : {u"999999"_qs, u"abc"_qs, u"' OR 1=1"_qs, u"1.5"_qs}) {
            Cells row = shortLegBrace();
            choose(row, ItemRules::RowId, id);
            for (int column = ItemRules::Item; column <= ItemRules::Form; ++column) QCOMPARE(row.at(column), QString());
        }
    }

    void otherNameKeepsAFormThatItsListHolds() {
        Cells row = emptyRow();
        choose(row, ItemRules::Item, u"靴型装具"_qs);
        choose(row, ItemRules::PickKbn, u"F-1"_qs);
        choose(row, ItemRules::Form, u"特殊靴"_qs);
        choose(row, ItemRules::PickKbn, u"F-2"_qs);
        QCOMPARE(row.at(ItemRules::Name), u"半長靴"_qs);
        QCOMPARE(row.at(ItemRules::Form), u"特殊靴"_qs);
    }

    void otherNameClearsAFormThatItsListLacks() {
        Cells row = shortLegBrace();
        choose(row, ItemRules::PickKbn, u"E-1"_qs);
        QCOMPARE(row.at(ItemRules::Name), u"股装具"_qs);
        QCOMPARE(row.at(ItemRules::Form), QString());
    }

    void quickEntryGoesWhenTheTextsNoLongerFit() {
        Cells row = shortLegBrace();
        choose(row, ItemRules::Form, u"軟性"_qs);
        QCOMPARE(row.at(ItemRules::RowId), QString());
    }

    void clearedKindClearsTheRow() {
        Cells row = shortLegBrace();
        choose(row, ItemRules::Item, {});
        for (int column = ItemRules::Item; column <= ItemRules::GrantRepair; ++column)
            QCOMPARE(row.at(column), QString());
    }

    void clearedCastingClassLeavesCastingAndGrant() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"2"_qs;
        choose(row, ItemRules::PickKbn, {});
        QCOMPARE(row.mid(ItemRules::Item), (QStringList{u"下肢装具"_qs, {}, {}, {}, u"1"_qs, u"2"_qs}));
    }

    void clearedNameClearsAllBehindIt() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"2"_qs;
        choose(row, ItemRules::Name, {});
        QCOMPARE(row.mid(ItemRules::PickKbn), (QStringList{u"E-4"_qs, {}, {}, {}, {}}));
    }

    void quickEntryOfARetiredRowFillsNothing() {
        Connection& connection = m_database->connection();
        connection.execute(u"UPDATE [価格種目] SET [有効Flg] = 1 WHERE [ID] = 52"_qs);
        Cells row = emptyRow();
        choose(row, ItemRules::RowId, u"52"_qs);
        const bool offered = holds(ItemRules::choices(emptyRow(), ItemRules::RowId), u"52"_qs);
        connection.execute(u"UPDATE [価格種目] SET [有効Flg] = 0 WHERE [ID] = 52"_qs);
        QCOMPARE(row.mid(ItemRules::Item), QStringList(6));
        QVERIFY(!offered);
    }

    void castingOrMeasuringIsAskedOfOrthosesAlone() {
        Cells row = shortLegBrace();
        choose(row, ItemRules::Item, u"歩行器"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), u"0"_qs);
        choose(row, ItemRules::Item, u"下肢装具"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), QString());
        QVERIFY(ItemRules::choices(row, ItemRules::PickStyle).isEmpty());
    }

    void listNeedsEveryColumnToItsLeft() {
        Cells row = emptyRow();
        QVERIFY(ItemRules::choices(row, ItemRules::PickKbn).isEmpty());
        QVERIFY(ItemRules::choices(row, ItemRules::GrantRepair).isEmpty());
        QVERIFY(!ItemRules::choices(row, ItemRules::Item).isEmpty());
        QCOMPARE(ItemRules::choices(shortLegBrace(), ItemRules::GrantRepair).size(), 2);
    }

    // The quick entry puts the texts in place at once, so that nothing else has cleared the 0 before.
    void noCastingGoesWhenTheRowTurnsToAnOrthosis() {
        Cells row = emptyRow();
        choose(row, ItemRules::Item, u"歩行器"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), u"0"_qs);
        choose(row, ItemRules::RowId, u"52"_qs);
        QCOMPARE(row.at(ItemRules::Item), u"下肢装具"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), QString());
        row[ItemRules::PickStyle] = u"1"_qs;
        choose(row, ItemRules::RowId, u"53"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), u"1"_qs);
    }

    // A text that the narrower list lacks takes all behind it along, 採型/採寸 and 交付/修理 included.
    void aTextThatGoesTakesAllBehindItAlong() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"2"_qs;
        choose(row, ItemRules::PickKbn, u"E-1"_qs);
        QCOMPARE(row.at(ItemRules::Form), QString());
        QCOMPARE(row.at(ItemRules::GrantRepair), QString());
    }

    void castingCanStartWithTheFirstEntry() {
        Cells row = emptyRow();
        chooseInMaster(row, ItemRules::Item, u"下肢装具"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), ItemRules::choices(shortLegBrace(), ItemRules::PickStyle).first().value);
        row[ItemRules::PickStyle] = u"2"_qs;
        chooseInMaster(row, ItemRules::RowId, u"52"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), u"2"_qs);
        chooseInMaster(row, ItemRules::Item, u"歩行器"_qs);
        QCOMPARE(row.at(ItemRules::PickStyle), u"0"_qs);
    }

    void newKindOfAMasterClearsAllToItsRight() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"1"_qs;
        chooseInMaster(row, ItemRules::Item, u"靴型装具"_qs);
        for (const int column : {ItemRules::PickKbn, ItemRules::Name, ItemRules::Form, ItemRules::GrantRepair})
            QCOMPARE(row.at(column), QString());
        QCOMPARE(row.at(ItemRules::PickStyle), u"1"_qs);
    }

    void otherCategoryOfAMasterKeepsNoFormThatWouldFit() {
        Cells row = emptyRow();
        chooseInMaster(row, ItemRules::Item, u"靴型装具"_qs);
        chooseInMaster(row, ItemRules::PickKbn, u"F-1"_qs);
        chooseInMaster(row, ItemRules::Form, u"特殊靴"_qs);
        row[ItemRules::PickStyle] = u"2"_qs;
        chooseInMaster(row, ItemRules::PickKbn, u"F-2"_qs);
        QCOMPARE(row.at(ItemRules::Name), u"半長靴"_qs);
        QCOMPARE(row.at(ItemRules::Form), QString());
        QCOMPARE(row.at(ItemRules::PickStyle), u"1"_qs);
    }

    void kindOfAMasterWithoutAValidPriceRowIsNotTaken() {
        m_database->connection().execute(u"UPDATE [価格種目] SET [有効Flg] = 1 WHERE [種目] = '起立保持具'"_qs);
        Cells row = emptyRow();
        chooseInMaster(row, ItemRules::Item, u"起立保持具"_qs);
        QCOMPARE(row, emptyRow());
        m_database->connection().execute(u"UPDATE [価格種目] SET [有効Flg] = 0 WHERE [種目] = '起立保持具'"_qs);
    }

    void priceRowOfAMasterIsFoundFromItsTexts() {
        Cells row = shortLegBrace();
        chooseInMaster(row, ItemRules::Form, u"軟性"_qs);
        QCOMPARE(row.at(ItemRules::RowId), u"56"_qs);
        chooseInMaster(row, ItemRules::Form, {});
        QCOMPARE(row.at(ItemRules::RowId), QString());
        QCOMPARE(row.at(ItemRules::Name), u"短下肢装具"_qs);
    }

    void clearedQuickEntryOfAMasterClearsTheRow() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"1"_qs;
        chooseInMaster(row, ItemRules::RowId, {});
        QCOMPARE(row, emptyRow());
    }

    void numbersOfChoicesAreShownAsTheirTexts() {
        Cells row = shortLegBrace();
        row[ItemRules::GrantRepair] = u"999"_qs;
        const QStringList texts = ItemRules::shownTexts(row);
        QCOMPARE(texts.size(), 6);
        QCOMPARE(texts.at(0), u"下肢装具"_qs);
        QCOMPARE(texts.at(4), u"採型"_qs);
        QCOMPARE(texts.at(5), QString());
    }

    void grantAndRepairWaitForTheChoiceBeforeThem() {
        Cells row = shortLegBrace();
        QVERIFY(!ItemRules::choices(row, ItemRules::GrantRepair).isEmpty());
        row[ItemRules::PickStyle].clear();
        QVERIFY(ItemRules::choices(row, ItemRules::GrantRepair).isEmpty());
    }
};

HALVANE_TEST(ItemRulesTest)
#include "ItemRulesTest.moc"
