#include "HalvaneTest.h"

#include "estimates/EstimateName.h"

#include <QTest>

class EstimateNameTest : public QObject {
    Q_OBJECT

private slots:
    void braceWithAShoeBecomesOneName() {
        const QList<NamedItem> items{{u"下肢装具"_qs, u"A"_qs, u"x"_qs, {}, {}}, {u"靴型装具"_qs, u"B"_qs, u"x"_qs, {}, {}}};
        QCOMPARE(automaticName(items, u"右"_qs, {u"0"_qs, u"0"_qs, u"0"_qs}), u"A付きB靴型装具"_qs);
    }

    void joinWordComesOnceAtMost() {
        const QList<NamedItem> items{{u"下肢装具"_qs, u"A"_qs, {}, {}, {}},
                                     {u"靴型装具"_qs, u"B"_qs, {}, {}, {}},
                                     {u"下肢装具"_qs, u"C"_qs, {}, {}, {}}};
        QCOMPARE(automaticName(items, {}, {}), u"A付きB靴型装具およびC"_qs);
    }

    void sideStandsWhereTheKindHasOne() {
        const NameSettings settings{u"1"_qs, u"0"_qs, u"0"_qs};
        QCOMPARE(automaticName({{u"殻構造義足"_qs, u"大腿義足"_qs, u"吸着式"_qs, {}, {}}}, u"左"_qs, settings),
                 u"殻構造左大腿義足吸着式"_qs);
        QCOMPARE(automaticName({{u"体幹装具"_qs, u"胸椎装具"_qs, {}, {}, {}}}, u"左"_qs, settings), u"胸椎装具"_qs);
        QCOMPARE(automaticName({{u"車椅子"_qs, u"普通型"_qs, u"＊"_qs, {}, {}}}, u"両"_qs, settings), u"普通型車椅子両"_qs);
    }

    void noSideAddsNothing() {
        const NameSettings settings{u"1"_qs, u"0"_qs, u"0"_qs};
        for (const QString& side : {QString(), u"なし"_qs})
            QCOMPARE(automaticName({{u"下肢装具"_qs, u"短下肢装具"_qs, {}, {}, {}}}, side, settings), u"短下肢装具"_qs);
    }

    void repairIsNamedAsTheSettingSays() {
        const QList<NamedItem> grant{{u"下肢装具"_qs, u"A"_qs, {}, u"採型"_qs, u"交付"_qs}};
        const QList<NamedItem> repair{{u"下肢装具"_qs, u"A"_qs, {}, u"採型"_qs, u"修理"_qs}};
        QCOMPARE(automaticName(grant, {}, {{}, u"1"_qs, u"1"_qs}), u"(交付)A採型"_qs);
        QCOMPARE(automaticName(grant, {}, {{}, u"3"_qs, {}}), u"A"_qs);
        QCOMPARE(automaticName(repair, {}, {{}, u"3"_qs, {}}), u"(修理)A"_qs);
    }

    void itemWithAStarDoesNotCount() {
        QCOMPARE(automaticName({{u"＊"_qs, u"A"_qs, {}, {}, {}}, {u"歩行器"_qs, u"*"_qs, u"四輪"_qs, {}, {}}}, {}, {}),
                 u"四輪歩行器"_qs);
        QCOMPARE(automaticName({}, {}, {}), QString());
    }
};

HALVANE_TEST(EstimateNameTest)
#include "EstimateNameTest.moc"
