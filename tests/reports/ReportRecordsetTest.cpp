#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/ReportRecordset.h"

class ReportRecordsetTest : public QObject {
    Q_OBJECT

    static ReportRecordset sample() {
        ReportRecordset records;
        records.AppendField(u"No"_qs, ReportFieldType::Integer);
        records.AppendField(u"Price"_qs, ReportFieldType::Currency);
        records.AppendField(u"Rate"_qs, ReportFieldType::Float);
        records.AppendField(u"Name"_qs, ReportFieldType::Text, 4);
        records.AddNew();
        return records;
    }

private slots:
    void aDateIsKeptAsItsTextAndNothingElseIs() {
        ReportRecordset records;
        records.AppendField(u"Day"_qs, ReportFieldType::Date);
        for (const QString& value : {u"2024-11-3"_qs, u"2024/11/03 9:05:00"_qs, u"未定"_qs, QString()}) {
            records.AddNew();
            records.Set(u"Day"_qs, value);
        }
        QCOMPARE(records.text(0, u"Day"_qs), u"2024/11/03"_qs);
        QCOMPARE(records.text(1, u"Day"_qs), u"2024/11/03 9:05:00"_qs);
        QVERIFY(records.value(2, u"Day"_qs).isNull());
        QVERIFY(records.value(3, u"Day"_qs).isNull());
    }

    void aNewRowIsEmptyInEveryField() {
        const ReportRecordset records = sample();
        for (const ReportField& field : records.fields()) QVERIFY(records.value(0, field.name).isNull());
    }

    void aTextIsCutAtItsSize() {
        ReportRecordset records = sample();
        records.Set(u"Name"_qs, u"下腿義足用"_qs);
        QCOMPARE(records.text(0, u"Name"_qs), u"下腿義足"_qs);
    }

    void aCutCountsSignsAndLeavesThemWhole() {
        ReportRecordset records = sample();
        records.Set(u"Name"_qs, u"あいう𠮷野"_qs);
        QCOMPARE(records.text(0, u"Name"_qs), u"あいう𠮷"_qs);
    }

    void aTextBecomesTheNumberAtItsStart_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("price");
        QTest::newRow("whole") << u"1234"_qs << QVariant(1234.0);
        QTest::newRow("fraction") << u"0.5"_qs << QVariant(0.5);
        QTest::newRow("zero") << u"0"_qs << QVariant(0.0);
        QTest::newRow("empty") << QString() << QVariant();
    }
    void aTextBecomesTheNumberAtItsStart() {
        QFETCH(QString, text);
        QFETCH(QVariant, price);
        ReportRecordset records = sample();
        records.Set(u"Price"_qs, text);
        QCOMPARE(records.value(0, u"Price"_qs), price);
    }

    void aFloatShowsItsSevenDigits() {
        ReportRecordset records = sample();
        records.Set(u"Rate"_qs, u"4.8"_qs);
        QCOMPARE(records.text(0, u"Rate"_qs), u"4.8"_qs);
    }

    void anIntegerBeyondItsRangeIsAnError() {
        ReportRecordset records = sample();
        QVERIFY_EXCEPTION_THROWN(records.Set(u"No"_qs, 3e9), AppError);
    }

    void anUndeclaredFieldIsNamedInTheError() {
        ReportRecordset records = sample();
        try {
            records.Set(u"Unknown"_qs, 1);
            QFAIL("no error");
        } catch (const AppError& error) {
            QVERIFY(error.description().contains(u"Unknown"));
        }
    }
};

HALVANE_TEST(ReportRecordsetTest)
#include "ReportRecordsetTest.moc"
