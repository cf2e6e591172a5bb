#include "HalvaneTest.h"
#include "support/EstimateSamples.h"

#include "composition/LineRules.h"
#include "estimates/EstimateDraftJson.h"
#include "estimates/EstimateManagers.h"

#include <QJsonDocument>
#include <QTest>

namespace {

// Every member of a record of texts gets a text of its own.
template <class Record> Record filled(const QList<Field<Record>>& fields) {
    Record record;
    for (const Field<Record>& field : fields) record.*field.member = field.column + u"\x1F𠮷"_qs;
    return record;
}

template <class Record> bool holdsAll(const QList<Field<Record>>& fields) {
    return fields.size() * sizeof(QString) == sizeof(Record);
}

// By way of a file's bytes.
EstimateDraft again(const EstimateDraft& draft) {
    return estimateFromJson(QJsonDocument::fromJson(QJsonDocument(estimateToJson(draft)).toJson()).object());
}

EstimateDraft orderInWork() {
    EstimateDraft draft = EstimateSamples::order(12, 3);
    draft.customer = filled(gCustomerManager.fields());
    draft.chart = filled(gChartManager.fields());
    draft.estimate = filled(gCsEstimateManager.fields());
    for (ClaimRow& row : draft.claims) {
        row.ask = filled(gCsEstAskManager.fields());
        row.ClaimCd = u"2004"_qs;
    }
    draft.claims << ClaimRow{};
    draft.composition.fillUp(30);
    draft.orderCd = u"77"_qs;
    draft.partialPayment = u"1,000"_qs;
    draft.uncollected = true;
    draft.storedRows = u"a\x1D b\x1E\x1F"_qs;
    return draft;
}

} // namespace

class EstimateDraftJsonTest : public QObject {
    Q_OBJECT

private slots:
    // A member without a column would be lost with the machine.
    void everyMemberHasAColumn() {
        QVERIFY(holdsAll(gCustomerManager.fields()));
        QVERIFY(holdsAll(gChartManager.fields()));
        QVERIFY(holdsAll(gCsEstimateManager.fields()));
        QVERIFY(holdsAll(gCsEstAskManager.fields()));
    }

    void everythingComesBack() {
        const EstimateDraft before = orderInWork();
        const EstimateDraft after = again(before);
        QCOMPARE(gCustomerManager.rowText(after.customer), gCustomerManager.rowText(before.customer));
        QCOMPARE(gChartManager.rowText(after.chart), gChartManager.rowText(before.chart));
        QCOMPARE(gCsEstimateManager.rowText(after.estimate), gCsEstimateManager.rowText(before.estimate));
        QCOMPARE(after.claims.size(), before.claims.size());
        for (int row = 0; row < before.claims.size(); ++row) {
            const ClaimRow &was = before.claims.at(row), &is = after.claims.at(row);
            QCOMPARE(gCsEstAskManager.rowText(is.ask), gCsEstAskManager.rowText(was.ask));
            QCOMPARE(QStringList({is.InsNo, is.InsNm, is.ClaimNo, is.ClaimCd, is.ClaimNm}),
                     QStringList({was.InsNo, was.InsNm, was.ClaimNo, was.ClaimCd, was.ClaimNm}));
        }
        QCOMPARE(after.composition.items().size(), 30);
        for (int row = 1; row <= 30; ++row) {
            QCOMPARE(after.composition.item(row).cells, before.composition.item(row).cells);
            QCOMPARE(after.composition.item(row).make, before.composition.item(row).make);
            QCOMPARE(after.composition.item(row).parts, before.composition.item(row).parts);
        }
        QCOMPARE(after.orderCd, before.orderCd);
        QCOMPARE(after.partialPayment, before.partialPayment);
        QVERIFY(after.uncollected);
        QCOMPARE(after.storedRows, before.storedRows);
        QVERIFY(after.doubt.tries().isEmpty());
    }

    // Else the program that starts next would store the order a second time.
    void saveWhoseOutcomeIsNotKnownStaysInDoubt() {
        EstimateDraft draft = orderInWork();
        EstimateDraft stored = orderInWork();
        stored.estimate.EstId = u"0000000099"_qs;
        draft.doubt.remember({draft, stored, u"sign 7"_qs});
        const EstimateDraft after = again(draft);
        QCOMPARE(after.doubt.tries().size(), 1);
        QCOMPARE(after.doubt.tries().first().sign, u"sign 7"_qs);
        QCOMPARE(after.doubt.tries().first().after.estimate.EstId, u"0000000099"_qs);
    }

    // What another program wrote: less than there should be, or other kinds of value.
    void contentOfAnotherShapeBecomesAnEstimateAllTheSame() {
        const EstimateDraft empty = estimateFromJson({});
        QVERIFY(empty.claims.isEmpty() && empty.composition.items().isEmpty());
        const EstimateDraft odd = estimateFromJson(
            {{u"customer"_qs, 7},
             {u"composition"_qs,
              QJsonArray{QJsonObject{{u"cells"_qs, QJsonArray{u"a"_qs}}, {u"make"_qs, QJsonArray{QJsonArray{}, 5}}}}}});
        QCOMPARE(odd.composition.items().size(), 1);
        QCOMPARE(odd.composition.item(1).make.size(), 2);
        QCOMPARE(odd.composition.item(1).make.first().size(), makeRules().columns(1));
    }
};

HALVANE_TEST(EstimateDraftJsonTest)
#include "EstimateDraftJsonTest.moc"
