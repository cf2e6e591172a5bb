#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "master/MasterListFilter.h"
#include "master/MasterManagers.h"

using Filter = MasterListFilter;

// What the list of master estimates finds.
class MasterListFilterTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Delivered);
        m_database->prepareManagers();
        // Each by its code, its name and the 種目 of its items.
        add(u"ABC"_qs, u"AB装具"_qs, {u"下肢装具"_qs});
        add(u"XAB"_qs, u"新AB"_qs, {u"靴型装具"_qs});
        add(u"ARM"_qs, u"義手"_qs, {u"殻構造義手"_qs});
        add(u"LEG"_qs, u"義足"_qs, {u"骨格構造義足"_qs});
        add(u"SEAT"_qs, u"座位"_qs, {u"座位保持装置"_qs});
        add(u"CHAIR"_qs, u"座位保持椅子"_qs, {u"座位保持椅子"_qs});
        add(u"WC"_qs, u"車"_qs, {u"車椅子"_qs});
        add(u"WCB"_qs, u"車と装具"_qs, {u"車椅子"_qs, u"下肢装具"_qs});
        add(u"NONE"_qs, u"種目なし"_qs, {});
        for (const QString& sign :
             {u"%"_qs, u"_"_qs, u"["_qs, u"]"_qs, u"'"_qs, u"-"_qs, u"\""_qs, u"*"_qs, u"?"_qs, u"#"_qs})
            add(u"S"_qs + sign + u"1"_qs, u"名"_qs + sign + u"称"_qs, {u"記"_qs + sign + u"号"_qs});
        add(QString(255, u'L'), QString(50, u'長'), {});
        add(u"TAIL "_qs, u"末尾"_qs, {});
    }
    void cleanupTestCase() { m_database.reset(); }

    void codeIsMatchedAtItsStart() { QCOMPARE(found({.ProductCd = u"AB"_qs}), u"ABC"_qs); }
    void nameIsMatchedAnywhere() { QCOMPARE(found({.ProductNm = u"AB"_qs}), u"ABC XAB"_qs); }
    void lettersMatchInAnyCase() { QCOMPARE(found({.ProductCd = u"ab"_qs}), u"ABC"_qs); }

    void groupsHoldTheirItems_data() {
        QTest::addColumn<int>("group");
        QTest::addColumn<QString>("codes");
        QTest::newRow("prostheses") << int(Filter::Prostheses) << u"ARM LEG"_qs;
        QTest::newRow("orthoses") << int(Filter::Orthoses) << u"ABC WCB XAB"_qs;
        QTest::newRow("seating") << int(Filter::Seating) << u"SEAT"_qs;
        QTest::newRow("others") << int(Filter::Others) << u"CHAIR WC WCB"_qs;
    }
    void groupsHoldTheirItems() {
        QFETCH(int, group);
        Filter filter;
        filter.group = group;
        QTEST(found(filter, u"[製品コード] NOT LIKE 'S_1'"_qs), "codes");
    }

    void pageOfAllListsEveryMaster() {
        QCOMPARE(Filter().condition().text(), QString());
        QCOMPARE(count({}), m_masters);
    }

    // The group and the boxes ask for one and the same item.
    void oneItemAnswersGroupAndBoxes() {
        Filter filter;
        filter.Item = u"車椅子"_qs;
        filter.group = Filter::Orthoses;
        QCOMPARE(found(filter), QString());
        filter.group = Filter::Others;
        QCOMPARE(found(filter), u"WC WCB"_qs);
    }

    void boxesAreMatchedAnywhereAndTogether() {
        QCOMPARE(found({.Item = u"肢装"_qs}), u"ABC WCB"_qs);
        QCOMPARE(found({.Item = u"車椅子"_qs, .PickKbn = u"採車"_qs, .Name = u"名車"_qs, .Form = u"形車"_qs}),
                 u"WC WCB"_qs);
        QCOMPARE(found({.Item = u"車椅子"_qs, .Name = u"名下"_qs}), QString());
        QCOMPARE(found({.ProductCd = u"WCB"_qs, .Item = u"車椅子"_qs}), u"WCB"_qs);
    }

    void signsOfPatternsFindThemselves_data() {
        QTest::addColumn<QString>("sign");
        for (const QString& sign :
             {u"%"_qs, u"_"_qs, u"["_qs, u"]"_qs, u"'"_qs, u"-"_qs, u"\""_qs, u"*"_qs, u"?"_qs, u"#"_qs})
            QTest::newRow(qUtf8Printable(sign)) << sign;
    }
    void signsOfPatternsFindThemselves() {
        QFETCH(QString, sign);
        const QString code = u"S"_qs + sign + u"1"_qs;
        QCOMPARE(found({.ProductCd = u"S"_qs + sign}), code);
        QCOMPARE(found({.ProductNm = sign}), code);
        QCOMPARE(found({.Item = sign}), code);
    }

    void longestCodeAndNameAreFoundAsTheyAre() {
        QCOMPARE(found({.ProductCd = QString(255, u'L')}), QString(255, u'L'));
        QCOMPARE(found({.ProductCd = QString(256, u'L')}), QString());
        QCOMPARE(found({.ProductNm = QString(50, u'長')}), QString(255, u'L'));
    }

    void codeWithBlanksBehindItIsFound() { QCOMPARE(found({.ProductCd = u"TAIL"_qs}), u"TAIL"_qs); }

    void longListsAreReadByTheirKeys() {
        QList<clsMstEstimate> all;
        gMstEstimateManager.GetList(all, {}, u"[製品コード]"_qs);
        QStringList ids;
        for (const clsMstEstimate& master : all) ids << master.ProductId;
        QCOMPARE(gMstEstimateManager.mastersOf(ids).size(), all.size());
        QCOMPARE(gMstEstimateManager.mastersOf({u"none"_qs}).size(), 0);
        QCOMPARE(gMstEstimateManager.mastersOf({}).size(), 0);
        Recordset rows = m_database->connection().query(clsMstEstimateManager::Keys({}, u"[製品コード]"_qs));
        QStringList keys;
        while (rows.next()) keys << rows.value(0);
        QCOMPARE(keys, ids);
    }

private:
    void add(const QString& code, const QString& name, const QStringList& kinds) {
        clsMstEstimate master;
        master.ProductCd = code;
        master.ProductNm = name;
        gMstEstimateManager.SaveData(master);
        QList<clsMstItem> items;
        for (const QString& kind : kinds) {
            clsMstItem item;
            item.ProductId = master.ProductId;
            item.ProductItemNo = QString::number(items.size() + 1);
            item.Item = kind;
            item.PickKbn = u"採"_qs + kind.left(1);
            item.Name = u"名"_qs + kind.left(1);
            item.Form = u"形"_qs + kind.left(1);
            items << item;
        }
        gMstItemManager.SaveData(items);
        ++m_masters;
    }

    static QList<clsMstEstimate> listed(const Filter& filter, const SqlTerm& more) {
        QList<clsMstEstimate> rows;
        gMstEstimateManager.GetList(rows, SqlAllOf({filter.condition(), more}), u"[製品コード]"_qs);
        return rows;
    }
    static QString found(const Filter& filter, const SqlTerm& more = {}) {
        QStringList codes;
        for (const clsMstEstimate& master : listed(filter, more)) codes << master.ProductCd;
        return codes.join(u' ');
    }
    static qsizetype count(const Filter& filter) { return listed(filter, {}).size(); }

    std::unique_ptr<TestDatabase> m_database;
    qsizetype m_masters = 0;
};

HALVANE_TEST(MasterListFilterTest)
#include "MasterListFilterTest.moc"
