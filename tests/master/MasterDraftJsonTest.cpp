#include "HalvaneTest.h"
#include "support/MasterSamples.h"

#include "master/MasterDraftJson.h"
#include "master/MasterManagers.h"

#include <QJsonDocument>
#include <QTest>

class MasterDraftJsonTest : public QObject {
    Q_OBJECT

private slots:
    void everyMemberHasAColumn() {
        QCOMPARE(gMstEstimateManager.fields().size() * sizeof(QString), sizeof(clsMstEstimate));
    }

    void everythingComesBack() {
        MasterDraft before;
        ComposedItem brace = MasterSamples::item(u"下肢装具"_qs, u"短下肢装具"_qs, u"両側支柱"_qs);
        brace.make << MasterSamples::makeLine(u"基本価格"_qs, u"＊"_qs, {u"100"_qs, u"200"_qs, u"300"_qs});
        brace.parts << MasterSamples::partsLine(u"足部"_qs, u"a"_qs, u"K-1"_qs, u"5000"_qs);
        before.composition.add(brace);
        for (const auto& field : gMstEstimateManager.fields()) before.master.*field.member = field.column;
        before.composition.fillUp(30);
        before.taxRate = 8.5;
        before.storedRows = u"a\x1D b"_qs;
        before.doubt.remember({before, before, u"sign 8"_qs});
        const MasterDraft after =
            masterFromJson(QJsonDocument::fromJson(QJsonDocument(masterToJson(before)).toJson()).object());
        QCOMPARE(gMstEstimateManager.rowText(after.master), gMstEstimateManager.rowText(before.master));
        QCOMPARE(after.composition.items().size(), 30);
        for (int row = 1; row <= 30; ++row) {
            QCOMPARE(after.composition.item(row).cells, before.composition.item(row).cells);
            QCOMPARE(after.composition.item(row).make, before.composition.item(row).make);
            QCOMPARE(after.composition.item(row).parts, before.composition.item(row).parts);
        }
        QCOMPARE(after.taxRate, 8.5);
        QCOMPARE(after.storedRows, before.storedRows);
        QCOMPARE(after.doubt.tries().first().sign, u"sign 8"_qs);
    }
};

HALVANE_TEST(MasterDraftJsonTest)
#include "MasterDraftJsonTest.moc"
