#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/CsEstimateFields.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportRecorder.h"
#include "support/ReportSamples.h"
#include "support/TestDatabase.h"

class ReportTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void documentsOfOneCommandFollowEachOther() {
        ReportRecorder recorder;
        Report estimate(u"repCsEstimateA4"_qs);
        estimate.Recordset(ReportSamples::ordinary());
        estimate.PrintReport(false);
        Report item(u"repCsEstItemB5"_qs);
        item.Recordset(ReportSamples::ordinary());
        item.PrtType(1);
        item.Show(1);
        QCOMPARE(recorder.documents(), (QStringList{u"repCsEstimateA4"_qs, u"repCsEstItemB5"_qs}));
        QVERIFY(recorder.pages().at(0).plainText().contains(u"見　積　書"));
        QVERIFY(recorder.pages().at(1).plainText().contains(u"内　訳　書"));
    }

    void aReportWithoutARecordSetEndsWithoutAPage() {
        ReportRecorder recorder;
        Report(u"repCsEstimateA4"_qs).PrintReport(false);
        Report empty(u"repCsEstPayA4"_qs);
        empty.Recordset(csEstimateRecordset());
        empty.Show(1);
        QVERIFY(recorder.documents().isEmpty());
    }

    void theSectionOfTheReportSetsItsMarginsAndCopies() {
        m_database->writeProfile(u"[repCsEstimateA4]\r\nCopies=2\r\nPageLeftMargin=0\r\nPageTopMargin=1000\r\n"_qs);
        ReportRecorder recorder;
        Report report(u"repCsEstimateA4"_qs);
        report.Recordset(ReportSamples::ordinary());
        report.PrintReport(false);
        const ReportJob& job = recorder.jobs().first();
        QCOMPARE(job.settings.copies, 2);
        QCOMPARE(job.title, u"見積書 R06-000123"_qs);
        for (const ReportPageText& text : job.pages.first().texts)
            if (text.control == u"txtClaimNm") QCOMPARE(text.room.x, 100);
        for (const ReportPageText& text : job.pages.first().texts) QVERIFY(text.room.y >= 1000);
    }

    void theOffsetMovesPreviewAndPrinterAlike() {
        const auto titleAt = [&](const QString& ini, bool printed) {
            m_database->writeProfile(ini);
            ReportRecorder recorder;
            Report report(u"repCsEstimateA4"_qs);
            report.Recordset(ReportSamples::ordinary());
            printed ? report.PrintReport(false) : report.Show(1);
            const ReportPage page = recorder.pages().first();
            for (const ReportPageText& text : page.texts)
                if (text.control == u"lblTitle") return text.room;
            return ReportRect();
        };
        const ReportRect plain = titleAt({}, true);
        const QString moved = u"[repCsEstimateA4]\r\nOffset=100,-20\r\n"_qs;
        QCOMPARE(titleAt(moved, true), plain.moved(567, -113)); // 10 mm to the right, 2 mm up
        QCOMPARE(titleAt(moved, false), plain.moved(567, -113));
        QCOMPARE(titleAt(u"[repCsEstimateA4]\r\nPrinter=P1\r\nOffset=1,1\r\nOffset P1=0,254\r\n"_qs, true),
                 plain.moved(0, 1440));
    }

    void anotherPrinterHasItsOwnPlace() {
        m_database->writeProfile(u"[repCsEstimateA4]\r\nOffset=254,0\r\nOffset P2=0,127\r\n"_qs);
        ReportRecorder recorder;
        Report report(u"repCsEstimateA4"_qs);
        report.Recordset(ReportSamples::ordinary());
        report.PrintReport(false);
        const ReportJob& job = recorder.jobs().first();
        const ReportRect here = job.pages.first().texts.first().room;
        QCOMPARE(pagesFor(u"P1"_qs, job).first().texts.first().room, here);
        QCOMPARE(pagesFor(u"P2"_qs, job).first().texts.first().room, here.moved(-1440, 720));
    }

    void aPaperWithoutRoomIsKnownBeforeItIsPrinted() {
        ReportRecorder recorder;
        ReportRecordset records = csEstimateRecordset();
        records.AddNew();
        records.Set(u"EstNo"_qs, u"1"_qs);
        records.Set(u"EstSum"_qs, 12'345'678);
        Report report(u"repCsEstWorkimateA4"_qs);
        report.Recordset(records);
        QVERIFY_EXCEPTION_THROWN(report.Compose(), ReportValueError);
        QCOMPARE(report.Title(), u"労災見積書 1"_qs);
        QVERIFY(recorder.documents().isEmpty());
    }

    // A header value without its longest text, or a misspelt name, would leave a layout untried.
    void everySampleNamesWhatItsClassShows() {
        for (const ReportClass& report : reportClasses()) {
            const ReportSample& sample = report.sample;
            const ReportParameters tried = ReportSamples::longestHeader(report, sample.given.first()).values;
            const ReportParameters values = report.readHeader().values;
            const ReportRecordset records = report.recordset();
            for (const QString& name : values.keys())
                QVERIFY2(tried.contains(name), qPrintable(report.name + u' ' + name));
            for (const QString& name : sample.sizes.keys() + sample.longest.keys())
                QVERIFY2(values.contains(name) || records.hasField(name), qPrintable(report.name + u' ' + name));
            for (const QStringList& kind : sample.rows)
                for (const QString& field : kind)
                    QVERIFY2(records.hasField(field), qPrintable(report.name + u' ' + field));
        }
    }

    void aValueOfTheScreenStandsOnThePaper() {
        ReportRecorder recorder;
        for (const int type : {1, 2}) {
            Report item(u"repCsEstItemA4"_qs);
            item.Recordset(ReportSamples::ordinary());
            item.Value(u"PrtType"_qs, QString::number(type));
            item.PrintReport(false);
        }
        QVERIFY(recorder.pages().at(0).plainText().contains(u"内　訳　書"));
        QVERIFY(recorder.pages().at(1).plainText().contains(u"明　細　書"));
        QCOMPARE(recorder.jobs().at(1).title, u"明細書 R06-000123"_qs);
    }

    void anUnknownClassIsAnError() { QVERIFY_EXCEPTION_THROWN(Report(u"repNothing"_qs), AppError); }
};

HALVANE_TEST(ReportTest)
#include "ReportTest.moc"
