#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/clsProfile.h"
#include "reports/ReportClasses.h"
#include "support/ReportSamples.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

ReportPaperSettings settings(int size, const QStringList& variants = {}) { return {{{31, size}}, variants}; }

} // namespace

class ReportClassesTest : public QObject {
    Q_OBJECT

private slots:
    void everyClassIsToldWholeAndOnce() {
        QStringList names;
        for (const ReportClass& report : reportClasses()) {
            names << report.name;
            QVERIFY2(report.recordset && report.readHeader && report.title, qPrintable(report.name));
            QVERIFY2(!report.recordset().fields().isEmpty() && report.recordset().isEmpty(), qPrintable(report.name));
            QVERIFY2(!report.sample.given.isEmpty(), qPrintable(report.name));
            QCOMPARE(reportClass(report.name).name, report.name);
        }
        QVERIFY(names.size() > 10);
        QCOMPARE(names.removeDuplicates(), 0);
    }

    void everyDocumentHasItsTitle() {
        const auto title = [](const QString& name, const QString& prtType) {
            return reportClass(name).title(ReportSamples::ordinary(), {{u"PrtType"_qs, prtType}});
        };
        QCOMPARE(title(u"repCsEstimate2A4"_qs, u"0"_qs), u"見積書 R06-000123"_qs);
        QCOMPARE(title(u"repCsEstItemA4"_qs, u"1"_qs), u"内訳書 R06-000123"_qs);
        QCOMPARE(title(u"repCsEstItemB5"_qs, u"2"_qs), u"明細書 R06-000123"_qs);
        QCOMPARE(title(u"repCsEstList"_qs, {}), u"見積データ一覧"_qs);
        QCOMPARE(title(u"repCsEstWorkKara2"_qs, {}), u"労災見積内訳書 R06-000123"_qs);
        QCOMPARE(title(u"repCsEstReceipt"_qs, {}), u"労災請書 山田　太郎"_qs);
        QCOMPARE(title(u"repCsEstOpinionB5T141"_qs, {}), u"意見書 山田　太郎"_qs);
    }

    void aClassThatTheSystemLacksIsAnError() {
        QVERIFY_EXCEPTION_THROWN(reportClass(u"repCsEstReceiptB5"_qs), AppError);
    }

    void aPaperIsChosenBySizeAndVariant_data() {
        QTest::addColumn<int>("size");
        QTest::addColumn<QStringList>("variants");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("A4") << 1 << QStringList() << u"a4"_qs;
        QTest::newRow("B5") << 2 << QStringList() << u"b5"_qs;
        QTest::newRow("another value is A4") << 3 << QStringList() << u"a4"_qs;
        QTest::newRow("variant of A4") << 1 << QStringList{u"A4V"_qs} << u"a4v"_qs;
        QTest::newRow("variant of A4 on B5") << 2 << QStringList{u"a4v"_qs} << u"b5"_qs;
        QTest::newRow("variant of B5") << 2 << QStringList{u"b5v"_qs} << u"b5v"_qs;
        QTest::newRow("an entry left empty") << 1 << QStringList{QString()} << u"a4"_qs;
    }
    void aPaperIsChosenBySizeAndVariant() {
        QFETCH(int, size);
        QFETCH(QStringList, variants);
        QTEST(chosenClass({31, u"a4"_qs, u"b5"_qs, u"a4v"_qs, u"b5v"_qs}, settings(size, variants)), "chosen");
    }

    void aPaperWithoutSmallSizeStaysOnA4() {
        QCOMPARE(chosenClass({31, u"a4"_qs}, settings(2)), u"a4"_qs);
        QCOMPARE(chosenClass({31, u"a4"_qs, {}, u"a4v"_qs}, settings(2, {u"a4v"_qs})), u"a4v"_qs);
        QCOMPARE(chosenClass({31, u"a4"_qs, {}, u"a4v"_qs}, settings(2, {QString()})), u"a4"_qs);
    }

    void theInstallationTellsTheVariantsInForce() {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Variant]\r\nv1=1\r\nv2=0\r\nv3=1\r\n");
        file.close();
        const QList<ReportPaper> papers{{1, u"a"_qs, u"b"_qs, u"v1"_qs, u"v2"_qs}, {1, u"c"_qs, {}, u"v3"_qs}};
        QCOMPARE(variantsInForce(papers, clsProfile(file.fileName())), (QStringList{u"v1"_qs, u"v3"_qs}));
    }
};

HALVANE_TEST(ReportClassesTest)
#include "ReportClassesTest.moc"
