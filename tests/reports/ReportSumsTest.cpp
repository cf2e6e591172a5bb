#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/ReportSums.h"

#include <QRandomGenerator>

namespace {

ReportRecordset amounts(const QVariantList& values, ReportFieldType type = ReportFieldType::Currency) {
    ReportRecordset records;
    records.AppendField(u"Price"_qs, type, 20);
    for (const QVariant& value : values) {
        records.AddNew();
        records.Set(u"Price"_qs, value);
    }
    return records;
}

QVariant sum(const ReportRecordset& records, const QList<ReportRow>& rows, ReportSpan span) {
    return ReportSums(records, rows).over(u"Price"_qs, span);
}

} // namespace

class ReportSumsTest : public QObject {
    Q_OBJECT

private slots:
    void aRunIsAddedUp() {
        const ReportRecordset records = amounts({100, 20, 3});
        const QList<ReportRow> rows = plainRows(3);
        QCOMPARE(sum(records, rows, {0, 3}).toDouble(), 123.0);
        QCOMPARE(sum(records, rows, {1, 3}).toDouble(), 23.0);
        QCOMPARE(sum(records, rows, {1, 2}).toDouble(), 20.0);
    }

    void blankRowsCountNothing() {
        const ReportRecordset records = amounts({100, 20});
        const QList<ReportRow> rows{{0, false}, {0, true}, {0, true}, {1, false}, {1, true}};
        QCOMPARE(sum(records, rows, {0, 3}).toDouble(), 100.0);
        QCOMPARE(sum(records, rows, {0, 5}).toDouble(), 120.0);
        QVERIFY(sum(records, rows, {1, 3}).isNull());
    }

    void valuesThatWereNeverSetCountNothing() {
        const ReportRecordset records = amounts({QVariant(), 20, QVariant(), 0});
        const QList<ReportRow> rows = plainRows(4);
        QVERIFY(sum(records, rows, {0, 1}).isNull());
        QVERIFY(sum(records, rows, {2, 2}).isNull());
        QCOMPARE(sum(records, rows, {0, 3}).toDouble(), 20.0);
        QCOMPARE(sum(records, rows, {3, 4}), QVariant(0.0));
    }

    void formattedTextsCountByTheirNumber() {
        const ReportRecordset records = amounts({u"1,234"_qs, QString(), u"-34円"_qs}, ReportFieldType::Text);
        QCOMPARE(sum(records, plainRows(3), {0, 3}).toDouble(), 1200.0);
        QVERIFY(sum(records, plainRows(3), {1, 2}).isNull());
    }

    void largeAmountsAndFractionsStayExact() {
        QCOMPARE(sum(amounts({987'654'321, 1'000'000, 0.1}), plainRows(3), {0, 3}).toDouble(), 988654321.1);
        QCOMPARE(sum(amounts(QVariantList(10, 0.1)), plainRows(10), {0, 10}).toDouble(), 1.0);
    }

    void aFieldThatIsNotThereIsNamed() {
        const ReportRecordset records = amounts({1});
        const QList<ReportRow> rows = plainRows(1);
        QVERIFY_EXCEPTION_THROWN(ReportSums(records, rows).over(u"Nothing"_qs, {0, 1}), AppError);
    }

    void anyRunIsTheSumOfItsRows() {
        QRandomGenerator random(20241103);
        QVariantList values;
        for (int row = 0; row < 300; ++row) values << (random.bounded(5) == 0 ? QVariant() : random.bounded(100'000));
        const ReportRecordset records = amounts(values);
        const QList<ReportRow> rows = plainRows(300);
        ReportSums sums(records, rows);
        for (int round = 0; round < 500; ++round) {
            const int first = random.bounded(300), end = random.bounded(first, 301);
            double wanted = 0;
            for (int row = first; row < end; ++row) wanted += values.at(row).toDouble();
            QCOMPARE(sums.over(u"Price"_qs, {first, end}).toDouble(), wanted);
        }
    }
};

HALVANE_TEST(ReportSumsTest)
#include "ReportSumsTest.moc"
