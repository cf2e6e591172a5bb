#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/ReportRows.h"

namespace {

// "r0" is the first record, "b0" a blank row that belongs to it.
QString spelled(const QList<ReportRow>& rows) {
    QStringList words;
    for (const ReportRow& row : rows) words.append((row.blank ? u'b' : u'r') + QString::number(row.record));
    return words.join(u' ');
}

// A page as the letters of its bands: P H D F Q R for page header, group header, detail, group footer, page footer and
// report footer, C for the close of a page that goes on, with its number within the document.
QString spelled(const QList<PlannedPage>& pages) {
    QStringList words;
    for (const PlannedPage& page : pages) {
        QString word;
        for (const PlacedBand& band : page.bands) word += u"PHDFQRC"[static_cast<int>(band.kind)];
        words.append(u"%1 %2/%3"_qs.arg(word).arg(page.number).arg(page.count));
    }
    return words.join(u", "_qs);
}

// Paper of 1000 twips without margins.
ReportLayout layout(int detail, bool groupOnNewPage, int groupHeader = 100, int groupFooter = 100) {
    ReportLayout layout;
    layout.paperWidth = 1000;
    layout.paperHeight = 1000;
    layout.groupOnNewPage = groupOnNewPage;
    const auto height = [&](ReportBandKind kind) -> int& { return layout.bands.at(static_cast<size_t>(kind)).height; };
    height(ReportBandKind::Detail) = detail;
    height(ReportBandKind::GroupHeader) = groupHeader;
    height(ReportBandKind::GroupFooter) = groupFooter;
    return layout;
}

} // namespace

class ReportRowsTest : public QObject {
    Q_OBJECT

private slots:
    void rowsArePaddedToFullPages_data() {
        QTest::addColumn<QString>("documents");
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("rows");
        QTest::newRow("no rows") << QString() << 3 << QString();
        QTest::newRow("one row") << u"A"_qs << 3 << u"r0 b0 b0"_qs;
        QTest::newRow("one below a page") << u"A A"_qs << 3 << u"r0 r1 b1"_qs;
        QTest::newRow("one above a page") << u"A A A A"_qs << 3 << u"r0 r1 r2 r3 b3 b3"_qs;
        QTest::newRow("two documents") << u"A B B"_qs << 2 << u"r0 b0 r1 r2"_qs;
        QTest::newRow("first document full") << u"A A B"_qs << 2 << u"r0 r1 r2 b2"_qs;
        QTest::newRow("lines per page 1") << u"A B B"_qs << 1 << u"r0 r1 r2"_qs;
    }
    void rowsArePaddedToFullPages() {
        QFETCH(QString, documents);
        QFETCH(int, lines);
        QTEST(spelled(paddedRows(documents.split(u' ', Qt::SkipEmptyParts), lines)), "rows");
    }

    void anExactMultipleGetsNoPaddingAndNoExtraPage() {
        const QStringList documents(6, u"A"_qs);
        const QList<ReportRow> rows = paddedRows(documents, 3);
        QCOMPARE(spelled(rows), u"r0 r1 r2 r3 r4 r5"_qs);
        QCOMPARE(spelled(planPages(layout(100, true), documents, rows, 3)), u"QPHDDD 1/2, QPHDDDF 2/2"_qs);
    }

    // Paper of 1000 twips: what header and totals leave, but no more than was asked for.
    void aFormTakesNoMoreRowsThanItsTotalsLeaveRoomFor() {
        QCOMPARE(rowsOfForm(layout(100, true), 9), 8);
        QCOMPARE(rowsOfForm(layout(100, true), 7), 7);
        QCOMPARE(rowsOfForm(layout(100, true, 100, 101), 9), 7);
        QCOMPARE(rowsOfForm(layout(900, true), 9), 1);
        QCOMPARE(rowsOfForm(layout(100, true), 0), 0);
        ReportLayout paper = layout(100, true);
        paper.margins = {50, 60, 0, 0};
        QCOMPARE(rowsOfForm(paper, 9), 6);
    }

    void linesPerPageOfZeroIsAnErrorThatNamesTheSetting() {
        for (const int lines : {0, -1}) {
            try {
                paddedRows({u"A"_qs}, lines);
                QFAIL("no error");
            } catch (const AppError& error) {
                QVERIFY(error.description().contains(u"No.13"));
            }
        }
    }

    void pagesBreak_data() {
        QTest::addColumn<ReportLayout>("layout");
        QTest::addColumn<QString>("groups"); // of each record
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("pages");
        QTest::newRow("no rows make no page") << layout(100, true) << QString() << 0 << QString();
        QTest::newRow("after the lines per page")
            << layout(100, true) << u"A A A"_qs << 2 << u"QPHDD 1/2, QPHDF 2/2"_qs;
        QTest::newRow("when the paper is full") << layout(400, true) << u"A A A"_qs << 9 << u"QPHDD 1/2, QPHDF 2/2"_qs;
        QTest::newRow("a group starts a page") << layout(100, true) << u"A B B"_qs << 0 << u"QPHDF 1/1, QPHDDF 1/1"_qs;
        QTest::newRow("a group goes on below") << layout(100, false) << u"A B B"_qs << 0 << u"QPHDFHDDF 1/1"_qs;
        QTest::newRow("no room for header and detail")
            << layout(300, false) << u"A B C"_qs << 0 << u"QPHDFHDF 1/2, QPHDF 2/2"_qs;
        QTest::newRow("no room for header, sole detail and footer")
            << layout(300, false) << u"A A B"_qs << 0 << u"QPHDDF 1/2, QPHDF 2/2"_qs;
        QTest::newRow("header and detail just fit")
            << layout(350, false) << u"A B B"_qs << 0 << u"QPHDFHD 1/2, QPHDF 2/2"_qs;
        QTest::newRow("header fits, detail does not")
            << layout(351, false) << u"A B B"_qs << 0 << u"QPHDF 1/2, QPHDDF 2/2"_qs;
        QTest::newRow("footer without room takes the last row along")
            << layout(450, true) << u"A A"_qs << 0 << u"QPHD 1/2, QPHDF 2/2"_qs;
        QTest::newRow("a detail higher than the paper")
            << layout(2000, true) << u"A A"_qs << 0 << u"QPHD 1/3, QPHD 2/3, QPHF 3/3"_qs;
    }
    void pagesBreak() {
        QFETCH(ReportLayout, layout);
        QFETCH(QString, groups);
        QFETCH(int, lines);
        const QStringList group = groups.split(u' ', Qt::SkipEmptyParts);
        QTEST(spelled(planPages(layout, group, plainRows(static_cast<int>(group.size())), lines)), "pages");
    }

    void bandsStandBelowEachOtherWithinTheMargins() {
        ReportLayout paper = layout(200, true);
        paper.margins = {50, 60, 0, 0};
        const QList<PlannedPage> pages = planPages(paper, {u"A"_qs, u"A"_qs}, plainRows(2));
        QList<int> tops;
        for (const PlacedBand& band : pages.first().bands) tops.append(band.top);
        QCOMPARE(tops, (QList<int>{940, 50, 50, 150, 350, 550}));
    }

    void aPageThatGoesOnIsClosedWhereThereIsRoom() {
        ReportLayout paper = layout(100, true);
        paper.bands.at(static_cast<size_t>(ReportBandKind::GroupContinued)).height = 50;
        const QStringList groups(3, u"A"_qs);
        QCOMPARE(spelled(planPages(paper, groups, plainRows(3), 2)), u"QPHDDC 1/2, QPHDF 2/2"_qs);
        paper.bands.at(static_cast<size_t>(ReportBandKind::Detail)).height = 450;
        QCOMPARE(spelled(planPages(paper, groups, plainRows(3), 2)), u"QPHDD 1/2, QPHDF 2/2"_qs);
    }

    void aReportFooterWithoutRoomTakesTheLastRowAlong() {
        ReportLayout paper = layout(400, false, 100, 200);
        paper.bands.at(static_cast<size_t>(ReportBandKind::ReportFooter)).height = 300;
        QCOMPARE(spelled(planPages(paper, {u"A"_qs, u"A"_qs}, plainRows(2))), u"QPHD 1/2, QPHDFR 2/2"_qs);
        paper = layout(200, false);
        paper.bands.at(static_cast<size_t>(ReportBandKind::ReportFooter)).height = 500;
        QCOMPARE(spelled(planPages(paper, {u"A"_qs, u"A"_qs}, plainRows(2))), u"QPHD 1/2, QPHDFR 2/2"_qs);
    }

    void aGroupThatGoesOverTheLeafRepeatsItsHead() {
        QCOMPARE(spelled(planPages(layout(300, false), {u"A"_qs, u"B"_qs, u"B"_qs}, plainRows(3))),
                 u"QPHDFHD 1/2, QPHDF 2/2"_qs);
    }

    void everyBandKnowsItsGroupAndTheRowsAboveIt() {
        const QList<PlannedPage> pages = planPages(layout(300, false), {u"A"_qs, u"B"_qs, u"B"_qs}, plainRows(3));
        QStringList known;
        for (const PlannedPage& page : pages)
            for (const PlacedBand& band : page.bands)
                known << u"%1-%2:%3"_qs.arg(band.group.first).arg(band.group.end).arg(band.done);
        QCOMPARE(known.join(u' '), u"1-3:2 0-1:0 0-1:0 0-1:1 0-1:1 1-3:1 1-3:2 1-3:3 1-3:2 1-3:2 1-3:3 1-3:3"_qs);
        QCOMPARE(pages.at(0).rows, (ReportSpan{0, 2}));
        QCOMPARE(pages.at(1).rows, (ReportSpan{2, 3}));
    }

    void aFormIsOnePageForEachGroup() {
        const QStringList groups{u"A"_qs, u"B"_qs, u"B"_qs};
        QCOMPARE(spelled(planPages(layout(100, false), groups, plainRows(3), 0, ReportRowPlan::Form)),
                 u"QPHDF 1/1, QPHDDF 1/1"_qs);
    }

    // An office moves the margins of a form until it meets the printed lines; the paper's edge is the bound.
    void aFormMayUseItsMarginsButNotMoreThanThePaper() {
        ReportLayout form = layout(700, false, 100, 100);
        form.name = u"repForm"_qs;
        form.margins = {90, 90, 0, 0};
        QCOMPARE(spelled(planPages(form, {u"A"_qs}, plainRows(1), 0, ReportRowPlan::Form)), u"QPHDF 1/1"_qs);
        form.margins.top = 101;
        try {
            planPages(form, {u"A"_qs}, plainRows(1), 0, ReportRowPlan::Form);
            QFAIL("no error");
        } catch (const AppError& error) {
            QVERIFY(error.description().contains(u"repForm.json の bands.groupFooter"));
        }
    }

    void theReportFooterComesOnceAtTheEnd() {
        ReportLayout paper = layout(100, true);
        paper.bands.at(static_cast<size_t>(ReportBandKind::ReportFooter)).height = 100;
        QCOMPARE(spelled(planPages(paper, {u"A"_qs, u"B"_qs}, plainRows(2))), u"QPHDF 1/1, QPHDFR 1/1"_qs);
    }
};

HALVANE_TEST(ReportRowsTest)
#include "ReportRowsTest.moc"
