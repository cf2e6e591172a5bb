#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/clsProfile.h"
#include "reports/basReportUtil.h"

#include <QFile>
#include <QTemporaryDir>

class basReportUtilTest : public QObject {
    Q_OBJECT

    // The settings of a section with these lines.
    static ReportPrintSettings settings(const QByteArray& lines) {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Halvane.ini"_qs));
        if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
        file.write("[repCsEstimateA4]\r\n" + lines + "\r\n[repCsEstPayA4]\r\nCopies=9\r\n");
        file.close();
        return readReportPrintSettings(clsProfile(file.fileName()), u"repCsEstimateA4"_qs);
    }

private slots:
    void lengthsBecomeTwips_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("twips");
        QTest::newRow("millimetres") << u"297mm"_qs << 16838;
        QTest::newRow("large letters") << u"210MM"_qs << 11906;
        QTest::newRow("fraction") << u"12.7mm"_qs << 720;
        QTest::newRow("inches") << u"0.5inch"_qs << 720;
        QTest::newRow("large inches") << u"1INCH"_qs << 1440;
        QTest::newRow("twips") << u"567"_qs << 567;
        QTest::newRow("zero") << u"0"_qs << 0;
        QTest::newRow("negative") << u"-5"_qs << -5;
        QTest::newRow("unit without number") << u"mm"_qs << 0;
        QTest::newRow("empty") << QString() << -1;
        QTest::newRow("another unit") << u"5cm"_qs << -1;
        QTest::newRow("beyond any paper") << u"99999999999mm"_qs << -1;
    }
    void lengthsBecomeTwips() {
        QFETCH(QString, text);
        QTEST(reportLength(text), "twips");
    }

    void aPageHeightOf297MillimetresWithPageSize256Is16838Twips() {
        const ReportPrintSettings read = settings("PageSize=256\r\nPageHeight=297mm\r\nPageWidth=210mm");
        QCOMPARE(read.pageHeight, 16838);
        QCOMPARE(read.pageWidth, 11906);
    }

    void aPageHeightWithPageSize9IsNotApplied() {
        const ReportPrintSettings read = settings("PageSize=9\r\nPageHeight=297mm");
        QCOMPARE(read.pageSize, 9);
        QVERIFY(!read.pageHeight);
    }

    void aLengthOfAbcLeavesTheMarginAlone() {
        QCOMPARE(reportLength(u"abc"_qs), -1);
        QVERIFY(!settings("PageTopMargin=abc").topMargin);
    }

    void aMarginOfZeroIsApplied() { QCOMPARE(settings("PageLeftMargin=0").leftMargin, 0); }

    void codesOfZeroOrBelowAreNotApplied() {
        const ReportPrintSettings read = settings("PaperBin=0\r\nOrientation=-1\r\nCopies=abc");
        QVERIFY(!read.paperBin);
        QVERIFY(!read.orientation);
        QVERIFY(!read.copies);
        QVERIFY(!read.pageSize);
    }

    void everyKeyIsRead() {
        const ReportPrintSettings read = settings(
            "RepName=Estimate\r\nPaperBin=1\r\nOrientation=2\r\nPageSize=9\r\nCopies=3\r\nPrtId=7\r\nPageTopMargin="
            "1\r\n"
            "PageBottomMargin=2\r\nPageLeftMargin=3\r\nPageRightMargin=4\r\nDevice=dev\r\nPrinter=prn\r\nPort=prt");
        QCOMPARE(read.repName, u"Estimate"_qs);
        QCOMPARE(read.paperBin, 1);
        QCOMPARE(read.orientation, 2);
        QCOMPARE(read.pageSize, 9);
        QCOMPARE(read.copies, 3);
        QCOMPARE(read.prtId, 7);
        QCOMPARE(read.topMargin, 1);
        QCOMPARE(read.bottomMargin, 2);
        QCOMPARE(read.leftMargin, 3);
        QCOMPARE(read.rightMargin, 4);
        QCOMPARE(read.device, u"dev"_qs);
        QCOMPARE(read.printer, u"prn"_qs);
        QCOMPARE(read.port, u"prt"_qs);
    }

    void aCodeBeyondTheRangeLeavesThePrintersOwn() { QVERIFY(!settings("Copies=99999999999").copies); }

    void marginsAndPaperMoveThePage() {
        const ReportLayout moved =
            withPageSettings(loadReportLayout(u"repCsEstimateA4"_qs),
                             settings("PageSize=256\r\nPageWidth=250mm\r\nPageHeight=320mm\r\nPageTopMargin=20mm\r\n"
                                      "PageBottomMargin=10mm\r\nPageLeftMargin=1587\r\nPageRightMargin=1000"));
        QCOMPARE(moved.paperWidth, 14173);
        QCOMPARE(moved.paperHeight, 18142);
        QCOMPARE(moved.margins.top, 1134);
        QCOMPARE(moved.margins.bottom, 567);
        QCOMPARE(moved.margins.left, 1587);
        QCOMPARE(moved.margins.right, 1000);
    }

    void aPageWithoutRoomForItsContentIsRefusedByKey_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("told"); // empty: taken
        QTest::newRow("left to the edge") << QByteArray("PageLeftMargin=1588") << QString();
        QTest::newRow("left") << QByteArray("PageLeftMargin=1589") << u"PageLeftMargin"_qs;
        QTest::newRow("right to the content") << QByteArray("PageRightMargin=794") << QString();
        QTest::newRow("right") << QByteArray("PageRightMargin=795") << u"PageRightMargin"_qs;
        QTest::newRow("both") << QByteArray("PageLeftMargin=700\r\nPageRightMargin=900")
                              << u"PageLeftMargin、PageRightMargin"_qs;
        QTest::newRow("narrow paper") << QByteArray("PageSize=256\r\nPageWidth=11111") << u"PageWidth"_qs;
        QTest::newRow("low paper") << QByteArray("PageSize=256\r\nPageHeight=9706") << u"PageHeight"_qs;
        QTest::newRow("one row") << QByteArray("PageSize=256\r\nPageHeight=9707") << QString();
        QTest::newRow("top") << QByteArray("PageTopMargin=20cm\r\nPageBottomMargin=8000") << u"PageBottomMargin"_qs;
        QTest::newRow("size not the user's own") << QByteArray("PageSize=9\r\nPageWidth=1") << QString();
    }
    void aPageWithoutRoomForItsContentIsRefusedByKey() {
        QFETCH(QByteArray, lines);
        QFETCH(QString, told);
        QString error;
        try {
            withPageSettings(loadReportLayout(u"repCsEstimateA4"_qs), settings(lines));
        } catch (const AppError& refused) {
            error = refused.description();
        }
        QCOMPARE(error.isEmpty(), told.isEmpty());
        if (!told.isEmpty()) QVERIFY2(error.contains(u"[repCsEstimateA4] の %1 では"_qs.arg(told)), qPrintable(error));
    }

    void anOffsetBelongsToItsReportAndPrinter() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"Halvane.ini"_qs);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[repCsEstimateA4]\r\nCopies=2\r\n");
        file.close();
        const clsProfile profile(path);
        const QString report = u"repCsEstimateA4"_qs, laser = u"レーザー＝2階 A=B"_qs;
        QCOMPARE(readReportOffset(profile, report, laser), ReportOffset());
        saveReportOffset(profile, report, {}, {12, -5});
        QCOMPARE(readReportOffset(profile, report, laser), (ReportOffset{12, -5}));
        saveReportOffset(profile, report, laser, {-30, 500});
        QCOMPARE(readReportOffset(profile, report, laser), (ReportOffset{-30, 500}));
        QCOMPARE(readReportOffset(profile, report, {}), (ReportOffset{12, -5}));
        QCOMPARE(readReportOffset(profile, u"repCsEstPayA4"_qs, laser), ReportOffset());
        QCOMPARE(readReportPrintSettings(profile, report).copies, 2);
    }

    void anOffsetThatNobodyCouldMeanCountsAsNone_data() {
        QTest::addColumn<QString>("text");
        for (const char* text : {"", "5", "5,6,7", "a,5", "501,0", "0,-501", "1.5,2", "99999999999,1"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }
    void anOffsetThatNobodyCouldMeanCountsAsNone() {
        QFETCH(QString, text);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[repCsEstPayA4]\r\nOffset=" + text.toUtf8() + "\r\n");
        file.close();
        QCOMPARE(readReportOffset(clsProfile(file.fileName()), u"repCsEstPayA4"_qs, {}), ReportOffset());
    }

    void anUnderlayIsKeptUntilItIsTakenAway() {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Halvane.ini"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        const clsProfile profile(file.fileName());
        const QString report = u"repCsEstWorkAskA4"_qs, scan = folder.filePath(u"様式第９号.png"_qs);
        QVERIFY(readReportUnderlay(profile, report).isEmpty());
        saveReportUnderlay(profile, report, scan);
        QCOMPARE(readReportUnderlay(profile, report), scan);
        saveReportUnderlay(profile, report, {});
        QVERIFY(readReportUnderlay(profile, report).isEmpty());
    }

    void eachReportHasItsOwnSection() { QVERIFY(!settings("").copies); }
};

HALVANE_TEST(basReportUtilTest)
#include "basReportUtilTest.moc"
