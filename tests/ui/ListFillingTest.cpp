#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "db/clsAssistManager.h"
#include "price/PriceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/basControlUtil.h"

class ListFillingTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static QStringList entries(const ChoiceBox& box) {
        QStringList texts;
        for (int i = 0; i < box.count(); ++i) texts << box.itemText(i);
        return texts;
    }

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanupTestCase() { m_database.reset(); }

    void prefecturesStandOnceEach() {
        ChoiceBox box;
        FillPrefList(&box, {true, false});
        QStringList texts = entries(box);
        QCOMPARE(texts.takeFirst(), allEntry);
        QVERIFY(!texts.isEmpty());
        QCOMPARE(texts.removeDuplicates(), 0);
    }

    void citiesAreThoseOfThePrefecture() {
        ChoiceBox prefs;
        FillPrefList(&prefs);
        m_database->connection().execute(
            u"INSERT INTO [都道府県] ([都道府県], [市区郡], [順番]) VALUES ('試験県', '試験市', '1')"_qs);
        m_database->connection().execute(u"INSERT INTO [都道府県] ([都道府県], [順番]) VALUES ('試験県', '2')"_qs);
        ChoiceBox cities;
        FillCityList(&cities, u"試験県"_qs);
        QCOMPARE(entries(cities), QStringList{u"試験市"_qs});
    }

    void doctorsCarryTheirNumbers() {
        ChoiceBox box;
        FillDoctorList(&box, u"[有効Flg] = 0"_qs, {false, true});
        QCOMPARE(box.itemText(0), noneEntry);
        QVERIFY(box.chooseByData(u"1"_qs));
        QCOMPARE(box.text(), u"朝日　登"_qs);
    }

    void producersFollowTheFilter() {
        ChoiceBox box;
        FillProducerList(&box, u"[製作担当者No] = 2"_qs);
        QCOMPARE(entries(box), QStringList{u"有田　工"_qs});
    }

    void insurancesComeInTheOrderAskedFor() {
        ChoiceBox box;
        FillInsList(&box, u"[有効Flg] = 0"_qs, u"[法別No]"_qs);
        QVERIFY(box.count() > 1);
        int before = 0;
        for (int i = 0; i < box.count(); ++i) {
            const int number = box.itemData(i).toString().toInt();
            QVERIFY(number > before);
            before = number;
        }
    }

    void auxiliaryListsShowTheirNames() {
        ChoiceBox box;
        FillAssistList(&box, AssistGroup::Side);
        QCOMPARE(entries(box), SideEntries());
        FillAssistList(&box, AssistGroup::FamilyType);
        QCOMPARE(entries(box), (QStringList{u"本人"_qs, u"家族"_qs}));
    }

    void taxListHoldsTheTwoRates() {
        ChoiceBox box;
        FillTaxList(&box, u"2,3"_qs);
        QCOMPARE(box.count(), 2);
        QVERIFY(box.chooseByData(u"2"_qs));
    }

    void priceGroupsAreNarrowedByTheirFilter() {
        ChoiceBox all;
        FillPriceList(&all, gPriceItemManager, &clsPriceItemManager::GetItemGrpList, &clsPriceItem::Item);
        QVERIFY(all.count() > 1);
        ChoiceBox some;
        FillPriceList(&some, gPriceItemManager, &clsPriceItemManager::GetItemGrpList, &clsPriceItem::Item,
                      PriceGroupFilter({{u"種目"_qs, u"下肢装具"_qs}}));
        QCOMPARE(entries(some), QStringList{u"下肢装具"_qs});
        QVERIFY(!some.itemData(0).toString().isEmpty());
    }
};

HALVANE_TEST(ListFillingTest)
#include "ListFillingTest.moc"
