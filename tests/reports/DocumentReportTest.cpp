#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "reports/CsEstimateFields.h"
#include "support/ReportSamples.h"

namespace {

double narrow(const QString& text, const ReportFont& font) { return double(text.size()) * font.size * 12; }

QList<ReportPage> pages(const QString& report, const ReportRecordset& records, const DocumentSetup& setup,
                        int prtType = 0) {
    ReportHeader header = documentHeader(setup);
    header.values.insert(u"PrtType"_qs, QString::number(prtType));
    return reportPages(reportClass(report), loadReportLayout(report), records, header, narrow);
}

QStringList textsOf(const ReportPage& page, const QString& control) {
    QStringList found;
    for (const ReportPageText& text : page.texts)
        if (text.control == control) found.append(text.text);
    return found;
}

bool showsControl(const QString& report, const QString& control) {
    const QList<ReportPage> made = pages(report, ReportSamples::ordinary(), ReportSamples::ordinarySetup());
    return !textsOf(made.first(), control).isEmpty();
}

int boxesOf(const ReportPage& page) { return static_cast<int>(page.boxes.size()); }

} // namespace

class DocumentReportTest : public QObject {
    Q_OBJECT

private slots:
    void init() { setSystemDate(u"2024/11/03"_qs); }

    void anEmptyRecordSetHasNoPage() {
        QVERIFY(pages(u"repCsEstimateA4"_qs, csEstimateRecordset(), ReportSamples::ordinarySetup()).isEmpty());
    }

    void linesPerPageOfZeroIsAnError() {
        QVERIFY_EXCEPTION_THROWN(
            pages(u"repCsEstimateA4"_qs, ReportSamples::ordinary(), ReportSamples::ordinarySetup(0)), AppError);
    }

    void rowsFillPages_data() {
        QTest::addColumn<QString>("report");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("lines");
        QTest::addColumn<int>("count");
        QTest::newRow("one row") << u"repCsEstimateA4"_qs << 1 << 20 << 1;
        QTest::newRow("exactly a page") << u"repCsEstimateA4"_qs << 20 << 20 << 1;
        QTest::newRow("one more") << u"repCsEstimateA4"_qs << 21 << 20 << 2;
        QTest::newRow("exactly two pages") << u"repCsEstimateA4"_qs << 40 << 20 << 2;
        QTest::newRow("three rows fewer with the stamp") << u"repCsEstAskA4OnM"_qs << 18 << 20 << 2;
        QTest::newRow("exactly a page with the stamp") << u"repCsEstAskA4OnM"_qs << 17 << 20 << 1;
        QTest::newRow("setting not above three") << u"repCsEstAskA4OnM"_qs << 3 << 3 << 1;
        QTest::newRow("one row a page") << u"repCsEstPayB5"_qs << 4 << 1 << 4;
    }
    void rowsFillPages() {
        QFETCH(QString, report);
        QFETCH(int, rows);
        QFETCH(int, lines);
        QTEST(static_cast<int>(pages(report, ReportSamples::rows(rows), ReportSamples::ordinarySetup(lines)).size()),
              "count");
    }

    // Header, rows and totals stand on one page for every setting that an office would choose.
    void whatTheFormHoldsStandsOnOnePageOfEveryLayout() {
        for (const ReportClass& report : estimateDocuments())
            for (int lines = 1; lines <= 28; ++lines) {
                const int rows = lines > report.fewerLines ? lines - report.fewerLines : lines;
                const QList<ReportPage> made =
                    pages(report.name, ReportSamples::rows(rows), ReportSamples::ordinarySetup(lines));
                const QString told = u"%1 with %2 lines"_qs.arg(report.name).arg(lines);
                QVERIFY2(made.size() == 1, qPrintable(told));
                QVERIFY2(textsOf(made.first(), u"txtSuryo"_qs).size() == rows, qPrintable(told));
                QVERIFY2(textsOf(made.first(), u"lblEstSum"_qs).size() == 1, qPrintable(told));
            }
    }

    void moreLinesThanThePaperHoldsGoOverTheLeafWithTheirTotals() {
        for (const ReportClass& report : estimateDocuments())
            for (const int rows : {29, 34, 35, 36, 37, 60}) {
                const QList<ReportPage> made =
                    pages(report.name, ReportSamples::rows(rows), ReportSamples::ordinarySetup(60));
                qsizetype printed = 0;
                for (const ReportPage& page : made) {
                    const bool last = &page == &made.last();
                    const QString told = u"%1 with %2 rows"_qs.arg(report.name).arg(rows);
                    QVERIFY2(textsOf(page, u"lblContinued"_qs).isEmpty() == last, qPrintable(told));
                    QVERIFY2(textsOf(page, u"lblEstSum"_qs).isEmpty() != last, qPrintable(told));
                    QVERIFY2(!textsOf(page, u"txtSuryo"_qs).isEmpty(), qPrintable(told));
                    printed += textsOf(page, u"txtSuryo"_qs).size();
                }
                QCOMPARE(printed, rows);
            }
    }

    void everyPageRepeatsTheHeaderAndTellsItsNumber() {
        const QList<ReportPage> made =
            pages(u"repCsEstimateA4"_qs, ReportSamples::rows(21), ReportSamples::ordinarySetup());
        for (const ReportPage& page : made) QCOMPARE(textsOf(page, u"lblTitle"_qs), QStringList{u"見　積　書"_qs});
        QCOMPARE(textsOf(made.at(0), u"lblPageOf"_qs), QStringList{u"1 / 2"_qs});
        QCOMPARE(textsOf(made.at(1), u"lblPageOf"_qs), QStringList{u"2 / 2"_qs});
        QVERIFY(textsOf(made.at(0), u"lblEstSum"_qs).isEmpty());
        QVERIFY(!textsOf(made.at(1), u"lblEstSum"_qs).isEmpty());
    }

    void aDocumentOfOnePageHasNoPageNumber() { QVERIFY(!showsControl(u"repCsEstimateA4"_qs, u"lblPageOf"_qs)); }

    void everyClaimAndEveryCopyStartsOnItsOwnFullPage() {
        ReportRecordset records = csEstimateRecordset();
        ReportSamples::addDocument(records, 1, 1);
        ReportSamples::addDocument(records, 2, 1);
        ReportSamples::addDocument(records, 1, 2);
        ReportSamples::addDocument(records, 2, 2);
        const QList<ReportPage> made = pages(u"repCsEstAskA4NoM"_qs, records, ReportSamples::ordinarySetup());
        QStringList titles;
        for (const ReportPage& page : made) titles += textsOf(page, u"lblTitle"_qs);
        QCOMPARE(titles, (QStringList{u"請　求　書"_qs, u"請　求　書"_qs, u"請求書(控)"_qs, u"請求書(控)"_qs}));
    }

    void theCopyOfASingleClaimHasAPageOfItsOwn() {
        ReportRecordset records = csEstimateRecordset();
        ReportSamples::addDocument(records, 1, 1);
        ReportSamples::addDocument(records, 1, 2);
        const QList<ReportPage> made = pages(u"repCsEstPayA4"_qs, records, ReportSamples::ordinarySetup());
        QCOMPARE(made.size(), 2);
        QCOMPARE(textsOf(made.at(0), u"lblTitle"_qs), QStringList{u"領　収　書"_qs});
        QCOMPARE(textsOf(made.at(1), u"lblTitle"_qs), QStringList{u"領収書(控)"_qs});
        QCOMPARE(textsOf(made.at(1), u"txtPrice"_qs).size(), textsOf(made.at(0), u"txtPrice"_qs).size());
    }

    void theGroupKeyIsClaimCopyAndEstimate() {
        QCOMPARE(documentGroupKey(1, 1, u"R06-1"_qs), u"001見R06-1"_qs);
        QCOMPARE(documentGroupKey(12, 2, u"R06-1"_qs), u"012控R06-1"_qs);
    }

    void blankRowsPrintNothingButTheirLines() {
        const QList<ReportPage> made =
            pages(u"repCsEstimateA4"_qs, ReportSamples::rows(2), ReportSamples::ordinarySetup());
        QCOMPARE(textsOf(made.first(), u"txtSuryo"_qs), (QStringList{u"1"_qs, u"2"_qs}));
        int rules = 0;
        for (const ReportPageLine& line : made.first().lines) rules += line.width == 5 ? 1 : 0;
        QCOMPARE(rules, 20);
    }

    void prtTypeChoosesTheTitleOfAnItemSheet() {
        for (const QString& report : {u"repCsEstItemA4"_qs, u"repCsEstItemB5"_qs}) {
            const auto title = [&](int prtType) {
                return textsOf(
                    pages(report, ReportSamples::ordinary(), ReportSamples::ordinarySetup(), prtType).first(),
                    u"lblTitle"_qs);
            };
            QCOMPARE(title(1), QStringList{u"内　訳　書"_qs});
            QCOMPARE(title(2), QStringList{u"明　細　書"_qs});
        }
    }

    void theSettingNamesTheKindOfAccount_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QStringList>("printed");
        QTest::newRow("1") << u"1"_qs << QStringList{u"当座"_qs};
        QTest::newRow("2") << u"2"_qs << QStringList{u"普通"_qs};
        QTest::newRow("0") << u"0"_qs << QStringList();
        QTest::newRow("missing") << QString() << QStringList();
    }
    void theSettingNamesTheKindOfAccount() {
        QFETCH(QString, setting);
        DocumentSetup setup = ReportSamples::ordinarySetup();
        setup.accountKind = setting;
        for (const QString& report : {u"repCsEstAskA4NoM"_qs, u"repCsEstAskA4OnM"_qs, u"repCsEstAskB5"_qs})
            QTEST(textsOf(pages(report, ReportSamples::ordinary(), setup).first(), u"lblAccountKind"_qs), "printed");
    }

    void aBareNumberAmongThreeAccountsTakesTheKindOfTheSetting() {
        const ReportPage page =
            pages(u"repCsEstAskA4NoM2"_qs, ReportSamples::ordinary(), ReportSamples::ordinarySetup()).first();
        QCOMPARE(textsOf(page, u"lblAcntNo"_qs), QStringList{u"普通 1234567"_qs});
        QCOMPARE(textsOf(page, u"lblAcntNo3"_qs), QStringList{u"普通 1122334"_qs});
        QCOMPARE(textsOf(page, u"lblChkAcnt3"_qs), QStringList{u"ハルノ　フウタ"_qs});
        for (const QString& head : {u"lblChkAcntHead"_qs, u"lblChkAcntHead2"_qs, u"lblChkAcntHead3"_qs})
            QCOMPARE(textsOf(page, head), QStringList{u"口座名義"_qs});
    }

    void anAccountThatIsNotThereLeavesItsPlaceEmpty() {
        DocumentSetup setup = ReportSamples::ordinarySetup();
        for (const QString& value : {u"Bank3"_qs, u"Account3"_qs, u"Holder3"_qs}) setup.office[value].clear();
        const ReportPage page = pages(u"repCsEstAskA4NoM2"_qs, ReportSamples::ordinary(), setup).first();
        QVERIFY(!textsOf(page, u"lblBankHead2"_qs).isEmpty());
        for (const QString& control : {u"lblBankHead3"_qs, u"lblAcntNo3"_qs, u"lblChkAcntHead3"_qs, u"lblChkAcnt3"_qs})
            QVERIFY2(textsOf(page, control).isEmpty(), qPrintable(control));
    }

    void theInsurersInTheHeaderRepeatTheClaimBoxUnlessTurnedOff() {
        DocumentSetup setup = ReportSamples::ordinarySetup();
        const ReportPage on = pages(u"repCsEstAskA4NoM"_qs, ReportSamples::ordinary(), setup).first();
        setup.insurersInHeader = false;
        const ReportPage off = pages(u"repCsEstAskA4NoM"_qs, ReportSamples::ordinary(), setup).first();
        QCOMPARE(textsOf(on, u"txtIns5"_qs), textsOf(on, u"txtIns1"_qs));
        QVERIFY(textsOf(off, u"txtIns5"_qs).isEmpty());
        QVERIFY(textsOf(off, u"lblInsHead"_qs).isEmpty());
        QCOMPARE(boxesOf(on), boxesOf(off) + 1);
    }

    void theInvoiceWithStampHasTheBlankDateOfTodaysEra() {
        const ReportPage page =
            pages(u"repCsEstAskA4OnM"_qs, ReportSamples::ordinary(), ReportSamples::ordinarySetup()).first();
        QCOMPARE(textsOf(page, u"lblCheckDate"_qs), QStringList{u"令和　　年　　月　　日"_qs});
        QCOMPARE(textsOf(page, u"lblReceived"_qs), QStringList{u"受理日付印"_qs});
        QVERIFY(textsOf(page, u"txtEstNo"_qs).isEmpty());
    }

    void layoutsShowAndLeaveOutWhatTheirFamilyAsks_data() {
        QTest::addColumn<QString>("report");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<QStringList>("absent");
        const QStringList person{u"txtTel"_qs, u"txtSex"_qs, u"txtBirthday"_qs, u"txtFamilyType"_qs, u"txtInsured"_qs};
        QTest::newRow("estimate") << u"repCsEstimateA4"_qs << QStringList{u"txtCustNo"_qs, u"lblAddr"_qs} + person
                                  << QStringList{u"lblStamp"_qs};
        QTest::newRow("estimate 2") << u"repCsEstimate2A4"_qs << QStringList{u"txtCustNo"_qs, u"lblAddr"_qs} + person
                                    << QStringList();
        QTest::newRow("estimate B5") << u"repCsEstimateB5"_qs << QStringList{u"txtZip"_qs, u"txtAddr1"_qs}
                                     << QStringList{u"txtCustNo"_qs, u"lblAddr"_qs} + person;
        QTest::newRow("invoice") << u"repCsEstAskA4NoM"_qs
                                 << QStringList{u"lblAddr2"_qs, u"txtAskPrice1"_qs, u"lblChkAcntHead"_qs}
                                 << QStringList{u"lblReceived"_qs};
        QTest::newRow("invoice with accounts")
            << u"repCsEstAskA4NoM2"_qs << QStringList{u"lblBank"_qs,    u"lblBank2"_qs,    u"lblBank3"_qs,
                                                      u"lblChkAcnt"_qs, u"lblChkAcnt2"_qs, u"lblChkAcnt3"_qs}
            << QStringList{u"lblAccountKind"_qs};
        QTest::newRow("invoice B5") << u"repCsEstAskB5"_qs << QStringList{u"lblBank"_qs, u"lblCutOff"_qs}
                                    << QStringList{u"txtIns1"_qs, u"txtAskPrice1"_qs, u"txtSex"_qs, u"txtBirthday"_qs};
        QTest::newRow("receipt") << u"repCsEstPayA4"_qs << QStringList{u"lblStamp"_qs}
                                 << QStringList{u"lblNotValid"_qs};
        QTest::newRow("receipt 2") << u"repCsEstPay2A4"_qs << QStringList{u"lblStamp"_qs, u"lblNotValid"_qs}
                                   << QStringList();
        QTest::newRow("receipt B5") << u"repCsEstPayB5"_qs << QStringList{u"lblStamp"_qs, u"lblNoReissue"_qs}
                                    << QStringList();
        QTest::newRow("item") << u"repCsEstItemA4"_qs << QStringList{u"txtClaimNm"_qs, u"lblSamaBun"_qs}
                              << QStringList{u"txtPrtPrice"_qs, u"txtZip"_qs, u"txtAddr1"_qs, u"lblSentence"_qs};
        QTest::newRow("item B5") << u"repCsEstItemB5"_qs
                                 << QStringList{u"txtZip"_qs, u"txtAddr1"_qs, u"txtAddr2"_qs, u"lblCutOff"_qs}
                                 << QStringList{u"txtPrtPrice"_qs};
    }
    void layoutsShowAndLeaveOutWhatTheirFamilyAsks() {
        QFETCH(QString, report);
        QFETCH(QStringList, shown);
        QFETCH(QStringList, absent);
        for (const QString& control : shown) QVERIFY2(showsControl(report, control), qPrintable(control));
        for (const QString& control : absent) QVERIFY2(!showsControl(report, control), qPrintable(control));
    }

    void aCaptionWithoutAValueIsNotPrinted() {
        const QList<std::pair<QString, QString>> bare{{u"Zip"_qs, u"〒"_qs},
                                                      {u"Tel"_qs, u"電話番号："_qs},
                                                      {u"Sex"_qs, u"性別："_qs},
                                                      {u"Insured"_qs, u"被保険者名："_qs}};
        ReportRecordset records = ReportSamples::ordinary();
        for (const auto& [field, caption] : bare) records.Set(field, caption);
        for (const QString& report : {u"repCsEstimateA4"_qs, u"repCsEstAskA4OnM"_qs, u"repCsEstAskB5"_qs}) {
            const ReportPage page = pages(report, records, ReportSamples::ordinarySetup(1)).last();
            for (const auto& [field, caption] : bare)
                for (const ReportPageText& text : page.texts)
                    QVERIFY2(text.text != caption, qPrintable(report + u' ' + field));
        }
    }

    void amountsHaveYenBehindOnSmallPaperAndInvoices() {
        const auto sum = [](const QString& report) {
            return textsOf(pages(report, ReportSamples::ordinary(), ReportSamples::ordinarySetup()).first(),
                           u"txtEstSum"_qs);
        };
        QCOMPARE(sum(u"repCsEstimateA4"_qs), QStringList{u"312,540"_qs});
        QCOMPARE(sum(u"repCsEstimateB5"_qs), QStringList{u"312,540円"_qs});
        QCOMPARE(sum(u"repCsEstAskA4NoM"_qs), QStringList{u"312,540円"_qs});
    }
};

HALVANE_TEST(DocumentReportTest)
#include "DocumentReportTest.moc"
