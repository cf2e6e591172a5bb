#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "composition/CompositionName.h"
#include "composition/ItemRules.h"

#include <QTest>

class CompositionNameTest : public QObject {
    Q_OBJECT

private:
    struct Named {
        QString item, name, form, pickStyle, grantRepair; // the last two as 管理No
    };

    std::unique_ptr<TestDatabase> m_database;

    static QString nameOf(const QList<Named>& items, const NameRules& rules) {
        Composition composition;
        for (const Named& item : items) {
            Cells cells(ItemRules::Columns);
            cells[ItemRules::Item] = item.item;
            cells[ItemRules::Name] = item.name;
            cells[ItemRules::Form] = item.form;
            cells[ItemRules::PickStyle] = item.pickStyle;
            cells[ItemRules::GrantRepair] = item.grantRepair;
            composition.add({0, cells, {}, {}});
        }
        return automaticName(composition, rules);
    }

    QString numberOf(const QString& shown) {
        return m_database->connection().scalar(u"SELECT [管理No] FROM [補助設定] WHERE [表示名] = '"_qs + shown +
                                               u"'"_qs);
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>();
        m_database->prepareManagers();
    }

    void cleanupTestCase() { m_database.reset(); }

    void braceWithAShoeBecomesOneName() {
        QCOMPARE(nameOf({{u"下肢装具"_qs, u"A"_qs, u"x"_qs, {}, {}}, {u"靴型装具"_qs, u"B"_qs, u"x"_qs, {}, {}}}, {}),
                 u"A付きB靴型装具"_qs);
    }

    void joinWordComesOnceAtMost() {
        QCOMPARE(nameOf({{u"下肢装具"_qs, u"A"_qs, {}, {}, {}},
                         {u"靴型装具"_qs, u"B"_qs, {}, {}, {}},
                         {u"下肢装具"_qs, u"C"_qs, {}, {}, {}}},
                        {}),
                 u"A付きB靴型装具およびC"_qs);
    }

    void aBraceAndAShoeAreTwoArticlesWhereTheyAreNotJoined() {
        NameRules rules;
        rules.joinsShoe = false;
        QCOMPARE(nameOf({{u"下肢装具"_qs, u"A"_qs, {}, {}, {}}, {u"靴型装具"_qs, u"B"_qs, {}, {}, {}}}, rules),
                 u"AおよびB靴型装具"_qs);
    }

    void sideStandsWhereTheKindHasOne() {
        const auto named = [](const Named& item, const QString& side) {
            return nameOf({item}, {side, {}, false, true});
        };
        QCOMPARE(named({u"殻構造義足"_qs, u"大腿義足"_qs, u"吸着式"_qs, {}, {}}, u"左"_qs),
                 u"殻構造左大腿義足吸着式"_qs);
        QCOMPARE(named({u"体幹装具"_qs, u"胸椎装具"_qs, {}, {}, {}}, u"左"_qs), u"胸椎装具"_qs);
        QCOMPARE(named({u"車椅子"_qs, u"普通型"_qs, u"＊"_qs, {}, {}}, u"両"_qs), u"普通型車椅子両"_qs);
        QCOMPARE(named({u"下肢装具"_qs, u"短下肢装具"_qs, {}, {}, {}}, {}), u"短下肢装具"_qs);
    }

    void repairIsNamedAsTheSettingSays() {
        const Named grant{u"下肢装具"_qs, u"A"_qs, {}, numberOf(u"採型"_qs), numberOf(u"交付"_qs)};
        const Named repair{u"下肢装具"_qs, u"A"_qs, {}, numberOf(u"採型"_qs), numberOf(u"修理"_qs)};
        QCOMPARE(nameOf({grant}, {{}, u"1"_qs, true, true}), u"(交付)A採型"_qs);
        QCOMPARE(nameOf({grant}, {{}, u"3"_qs, false, true}), u"A"_qs);
        QCOMPARE(nameOf({repair}, {{}, u"3"_qs, false, true}), u"(修理)A"_qs);
    }

    void itemWithAStarDoesNotCount() {
        QCOMPARE(nameOf({{u"＊"_qs, u"A"_qs, {}, {}, {}}, {u"歩行器"_qs, u"*"_qs, u"四輪"_qs, {}, {}}}, {}),
                 u"四輪歩行器"_qs);
        QCOMPARE(nameOf({}, {}), QString());
    }
};

HALVANE_TEST(CompositionNameTest)
#include "CompositionNameTest.moc"
