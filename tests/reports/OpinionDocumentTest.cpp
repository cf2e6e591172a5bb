#include "HalvaneTest.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/clsProfile.h"
#include "reports/OpinionDocument.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

clsCustomer person() {
    clsCustomer customer;
    customer.CustNm1 = u"山田"_qs;
    customer.CustNm2 = u"太郎"_qs;
    customer.Birth = u"1956/05/14"_qs;
    customer.Zip = u"231-0017"_qs;
    customer.Pref = u"神奈川県  "_qs;
    customer.City = u"横浜市中区"_qs;
    customer.Addr1 = u"港町1-1 "_qs;
    customer.Addr2 = u"港町ハイツ 203"_qs;
    return customer;
}

// A date as its four fields.
QString dateIn(const ReportRecordset& row, const QString& name) {
    QStringList parts;
    for (const QString& part : {u"GG"_qs, u"YY"_qs, u"MM"_qs, u"DD"_qs}) parts << row.text(0, name + part);
    return parts.join(u'|');
}

} // namespace

class OpinionDocumentTest : public QObject {
    Q_OBJECT

private slots:
    // The age is that of the day of printing, whatever date the office has set for its numbers.
    void init() {
        seams().now = [] { return QDateTime(QDate(2024, 11, 3), QTime(12, 0)); };
        setSystemDate(u"2005/04/01"_qs);
    }
    void cleanup() { seams().now = defaultSeams().now; }

    void theRowTellsTheRecordsOfTheScreen() {
        clsChart chart;
        chart.DiseaseNm = u"脳梗塞後遺症  "_qs;
        chart.HospDate = u"2024/09/14"_qs;
        clsCsEstimate estimate;
        estimate.EstNm = u"短下肢装具 "_qs;
        estimate.PickPtnDate = u"2019/05/01"_qs;
        estimate.DelvFinDate = u"2019/04/30"_qs;
        estimate.DelvPlnDate = u"2024/12/28"_qs;
        const ReportRecordset row = opinionRow(person(), chart, estimate);
        QCOMPARE(row.rowCount(), 1);
        QCOMPARE(row.text(0, u"CustAddr"_qs), u"神奈川県 横浜市中区 港町1-1 港町ハイツ 203"_qs);
        QCOMPARE(row.text(0, u"CustZipAddr"_qs), u"〒231-0017 神奈川県 横浜市中区 港町1-1 港町ハイツ 203"_qs);
        QCOMPARE(row.text(0, u"CustNm"_qs), u"山田　太郎"_qs);
        QCOMPARE(row.text(0, u"Birth"_qs), u"昭和 31 年 5 月 14 日生"_qs);
        QCOMPARE(row.text(0, u"Age"_qs), u"68"_qs);
        QCOMPARE(row.text(0, u"DiseaseNm"_qs), u"脳梗塞後遺症"_qs);
        QCOMPARE(row.text(0, u"EstNm"_qs), u"短下肢装具"_qs);
        QCOMPARE(dateIn(row, u"Hosp"_qs), u"令和|６|９|１４"_qs);
        QCOMPARE(dateIn(row, u"Pick"_qs), u"令和|１|５|１"_qs);
        QCOMPARE(dateIn(row, u"Delv"_qs), u"平成|３１|４|３０"_qs);
    }

    void noBirthDatePrintsTheBlankFormAndNoAge() {
        clsCustomer customer = person();
        customer.Birth.clear();
        const ReportRecordset row = opinionRow(customer, {}, {});
        QCOMPARE(row.text(0, u"Birth"_qs), u"年    月    日生"_qs);
        QVERIFY(row.value(0, u"Age"_qs).isNull());
    }

    void anInfantIsZeroYearsOld() {
        clsCustomer customer = person();
        customer.Birth = u"2024/08/01"_qs;
        QCOMPARE(opinionRow(customer, {}, {}).text(0, u"Age"_qs), u"0"_qs);
    }

    void thePlannedDateStandsForAnUnsetDelivery() {
        clsCsEstimate estimate;
        estimate.DelvPlnDate = u"2024/12/28"_qs;
        QCOMPARE(dateIn(opinionRow(person(), {}, estimate), u"Delv"_qs), u"令和|６|１２|２８"_qs);
    }

    void unsetDatesAreEmpty() {
        const ReportRecordset row = opinionRow(person(), {}, {});
        for (const QString& date : {u"Hosp"_qs, u"Pick"_qs, u"Delv"_qs}) QCOMPARE(dateIn(row, date), u"|||"_qs);
    }

    void aCustomerWithoutPostalCodeBeginsWithFiveBlanks() {
        clsCustomer customer = person();
        customer.Zip.clear();
        const QString text = opinionRow(customer, {}, {}).text(0, u"CustZipAddr"_qs);
        QVERIFY(text.startsWith(u"     "));
        QCOMPARE(text.trimmed(), u"神奈川県 横浜市中区 港町1-1 港町ハイツ 203"_qs);
    }

    void theLongestAddressIsNotCut() {
        clsCustomer customer = person();
        customer.Pref = QString(8, u'都');
        customer.City = QString(12, u'市');
        customer.Addr1 = customer.Addr2 = QString(40, u'町');
        const ReportRecordset row = opinionRow(customer, {}, {});
        QVERIFY(row.text(0, u"CustZipAddr"_qs).endsWith(customer.Addr2));
        QVERIFY(row.text(0, u"CustAddr"_qs).endsWith(customer.Addr2));
    }

    void thePaperFollowsSizeTypeAndVariant_data() {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("variant");
        QTest::addColumn<QString>("report");
        const QString none;
        QTest::newRow("A4 birth") << 1 << 1 << none << u"repCsEstOpinionA4T1"_qs;
        QTest::newRow("A4 age") << 1 << 2 << none << u"repCsEstOpinionA4T2"_qs;
        QTest::newRow("B5 birth") << 2 << 1 << none << u"repCsEstOpinionB5T1"_qs;
        QTest::newRow("B5 age") << 2 << 2 << none << u"repCsEstOpinionB5T2"_qs;
        QTest::newRow("A4 birth variant") << 1 << 1 << u"repCsEstOpinionA4T141"_qs << u"repCsEstOpinionA4T141"_qs;
        QTest::newRow("A4 age variant") << 1 << 2 << u"repCsEstOpinionA4T145"_qs << u"repCsEstOpinionA4T145"_qs;
        QTest::newRow("B5 birth variant") << 2 << 1 << u"repCsEstOpinionB5T141"_qs << u"repCsEstOpinionB5T141"_qs;
        QTest::newRow("B5 age variant") << 2 << 2 << u"repCsEstOpinionB5T145"_qs << u"repCsEstOpinionB5T145"_qs;
        QTest::newRow("variant of the other type")
            << 1 << 1 << u"repCsEstOpinionA4T145"_qs << u"repCsEstOpinionA4T1"_qs;
        QTest::newRow("another type is birth") << 1 << 3 << none << u"repCsEstOpinionA4T1"_qs;
    }
    void thePaperFollowsSizeTypeAndVariant() {
        QFETCH(int, size);
        QFETCH(int, type);
        QFETCH(QString, variant);
        QTEST(opinionClass({{{31, size}, {32, type}}, {variant}}), "report");
    }

    void missingSettingsGiveTheBirthDateOnA4() { QCOMPARE(opinionClass({}), u"repCsEstOpinionA4T1"_qs); }

    void theInstallationTellsItsVariants() {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Variant]\r\nrepCsEstOpinionA4T141=1\r\nrepCsEstOpinionB5T145=1\r\n");
        file.close();
        QCOMPARE(opinionVariants(clsProfile(file.fileName())),
                 (QStringList{u"repCsEstOpinionA4T141"_qs, u"repCsEstOpinionB5T145"_qs}));
    }
};

HALVANE_TEST(OpinionDocumentTest)
#include "OpinionDocumentTest.moc"
