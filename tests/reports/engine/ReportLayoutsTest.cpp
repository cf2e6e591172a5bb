#include "HalvaneTest.h"

#include "reports/ReportClasses.h"
#include "reports/engine/PaperGlyphs.h"
#include "reports/engine/ReportFonts.h"
#include "support/ReportSamples.h"

#include <QRectF>

namespace {

// Every test looks at the same pages, and fitting their texts is what takes its time.
QList<ReportPage> longestPages(const QString& name, const ReportParameters& given) {
    static QHash<QString, QList<ReportPage>> known;
    QStringList values;
    for (const QString& value : given.keys()) values << value + u'=' + given.value(value);
    values.sort();
    QList<ReportPage>& pages = known[name + u' ' + values.join(u' ')];
    const ReportClass& report = reportClass(name);
    if (!pages.isEmpty()) return pages;
    return pages = reportPages(report, loadReportLayout(name), ReportSamples::longest(report),
                               ReportSamples::longestHeader(report, given), measurePaperText);
}

// Where the ink of a text stands on the page.
QRectF inkOf(const ReportPageText& text) {
    QRectF ink;
    for (const PaperRun& run : paperRuns(text.text, text.font))
        for (const PaperGlyph& glyph : run.glyphs) ink |= run.font.boundingRect(glyph.number).translated(glyph.at);
    return {text.x + ink.x() * text.squeeze, text.baseline + ink.y(), ink.width() * text.squeeze, ink.height()};
}

QString told(const ReportPageText& text) { return u"%1 \"%2\""_qs.arg(text.control, text.text); }

} // namespace

// Every layout with all its texts as long as their fields: what fits here fits always.
class ReportLayoutsTest : public QObject {
    Q_OBJECT

    static void everyReport() {
        QTest::addColumn<QString>("report");
        QTest::addColumn<ReportParameters>("given");
        for (const ReportClass& report : reportClasses())
            for (const ReportParameters& given : report.sample.given)
                QTest::addRow("%s %s", qPrintable(report.name), qPrintable(QStringList(given.values()).join(u' ')))
                    << report.name << given;
    }

private slots:
    void initTestCase() { assertPaperFonts(); }

    void everyFieldOfALayoutIsInTheRecordSet() {
        int fields = 0;
        for (const ReportClass& report : reportClasses()) {
            const ReportRecordset records = report.recordset();
            for (const ReportBand& band : loadReportLayout(report.name).bands)
                for (const ReportTextItem& item : band.texts)
                    for (const QString& field : item.fields) {
                        QVERIFY2(records.hasField(field), qPrintable(report.name + u' ' + field));
                        ++fields;
                    }
        }
        QVERIFY(fields > 300);
    }

    // The pages that the tests below look at are the longest, and more than one where the paper goes on.
    void theLongestContentFillsItsPages() {
        for (const ReportClass& report : reportClasses())
            for (const ReportParameters& given : report.sample.given) {
                const qsizetype pages = longestPages(report.name, given).size();
                QVERIFY2(report.plan == ReportRowPlan::Form ? pages == 1 : pages > 1, qPrintable(report.name));
            }
    }

    void noTextLeavesItsControl_data() { everyReport(); }
    void noTextLeavesItsControl() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        constexpr double hair = 12; // twips: a stroke's swing beyond the advance
        for (const ReportPage& page : longestPages(report, given))
            for (const ReportPageText& text : page.texts) {
                const ReportRect& room = text.room;
                const QRectF allowed =
                    QRectF(room.x, room.y, room.width, room.height).adjusted(-hair, -hair, hair, hair);
                QVERIFY2(allowed.contains(inkOf(text)), qPrintable(told(text)));
            }
    }

    void noTwoTextsOverlap_data() { everyReport(); }
    void noTwoTextsOverlap() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        for (const ReportPage& page : longestPages(report, given)) {
            QList<QRectF> inks;
            for (const ReportPageText& text : page.texts) inks << inkOf(text);
            for (qsizetype i = 0; i < inks.size(); ++i)
                for (qsizetype j = i + 1; j < inks.size(); ++j)
                    QVERIFY2(!inks.at(i).intersects(inks.at(j)),
                             qPrintable(told(page.texts.at(i)) + u" / "_qs + told(page.texts.at(j))));
        }
    }

    void everythingStaysOnThePaper_data() { everyReport(); }
    void everythingStaysOnThePaper() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        for (const ReportPage& page : longestPages(report, given)) {
            const QRectF paper(0, 0, page.paperWidth, page.paperHeight);
            for (const ReportPageText& text : page.texts) QVERIFY2(paper.contains(inkOf(text)), qPrintable(told(text)));
            for (const ReportPageBox& box : page.boxes)
                QVERIFY(paper.contains(QRectF(box.at.x, box.at.y, box.at.width, box.at.height)));
            for (const ReportPageLine& line : page.lines)
                QVERIFY(paper.contains(QPointF(line.x1, line.y1)) && paper.contains(QPointF(line.x2, line.y2)));
        }
    }

    // A label whose words do not fit is a fault of the layout, not of the data.
    void theLayoutsOwnWordsAreNeverShrunk_data() { everyReport(); }
    void theLayoutsOwnWordsAreNeverShrunk() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        QHash<QString, double> sizes;
        for (const ReportBand& band : loadReportLayout(report).bands)
            for (const ReportTextItem& item : band.texts)
                if (!item.text.isEmpty() || item.hasWords) sizes.insert(item.name, item.font.size);
        for (const ReportPage& page : longestPages(report, given))
            for (const ReportPageText& text : page.texts)
                if (sizes.contains(text.control)) QCOMPARE(text.font.size, sizes.value(text.control));
    }

    void threeOrdinaryAccountsStandAtNinePoints() {
        ReportHeader header = documentHeader(ReportSamples::ordinarySetup());
        for (const QString& number : {u"1"_qs, u"2"_qs, u"3"_qs}) {
            header.values[u"Bank"_qs + number] = u"架空信用金庫　名古屋中央支店"_qs;
            header.values[u"Account"_qs + number] = u"普通 1234567"_qs;
            header.values[u"Holder"_qs + number] = u"カ）ミホンギシソウグセイサクシヨ"_qs;
        }
        const QString name = u"repCsEstAskA4NoM2"_qs;
        const QList<ReportPage> pages =
            reportPages(reportClass(name), loadReportLayout(name), ReportSamples::ordinary(), header, measurePaperText);
        int found = 0;
        for (const ReportPageText& text : pages.first().texts)
            if (text.control.startsWith(u"lblBank") || text.control.contains(u"Acnt")) {
                QVERIFY2(text.font.size >= 9 && text.squeeze == 1, qPrintable(told(text)));
                ++found;
            }
        QCOMPARE(found, 15);
    }

    // A person reads a page line by line, and so does who copies its text.
    void textsStandInReadingOrder_data() { everyReport(); }
    void textsStandInReadingOrder() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        const auto middle = [](const ReportRect& room) { return room.y + room.height / 2; };
        for (const ReportPage& page : longestPages(report, given))
            for (qsizetype i = 0; i < page.texts.size(); ++i)
                for (qsizetype j = i + 1; j < page.texts.size(); ++j) {
                    const ReportRect &a = page.texts.at(i).room, &b = page.texts.at(j).room;
                    const bool above = b.bottom() <= a.y, sameLine = std::abs(middle(a) - middle(b)) < 30;
                    QVERIFY2(!above && !(sameLine && b.x < a.x),
                             qPrintable(told(page.texts.at(i)) + u" / "_qs + told(page.texts.at(j))));
                }
    }

    // Smaller than this nobody reads; what is left to do is narrow the letters, and not by much.
    void theLongestTextsStayLegible_data() { everyReport(); }
    void theLongestTextsStayLegible() {
        QFETCH(QString, report);
        QFETCH(ReportParameters, given);
        for (const ReportPage& page : longestPages(report, given))
            for (const ReportPageText& text : page.texts) {
                QVERIFY2(text.font.size >= 5, qPrintable(told(text)));
                QVERIFY2(text.squeeze >= 0.65, qPrintable(u"%1 %2"_qs.arg(told(text)).arg(text.squeeze)));
            }
    }
};

HALVANE_TEST(ReportLayoutsTest)
#include "ReportLayoutsTest.moc"
