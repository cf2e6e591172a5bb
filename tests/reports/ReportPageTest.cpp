#include "HalvaneTest.h"

#include "reports/ReportPage.h"

class ReportPageTest : public QObject {
    Q_OBJECT

    static ReportPageText at(const QString& control, const QString& text, int x, int baseline, const ReportRect& room) {
        return {control, text, {}, x, baseline, 100, 1, room};
    }

private slots:
    void plainTextReadsFromTopToBottomAndLeftToRight() {
        ReportPage page;
        page.texts = {at(u"c"_qs, u"下"_qs, 0, 900, {0, 800, 1, 1}), at(u"b"_qs, u"右"_qs, 500, 100, {500, 0, 1, 1}),
                      at(u"a"_qs, u"左"_qs, 0, 100, {0, 0, 1, 1})};
        QCOMPARE(page.plainText(), u"左\n右\n下"_qs);
    }

    // Letters of two sizes stand on one line although their baselines differ a little.
    void aShiftedPageMovesWithAllThatStandsOnIt() {
        ReportPage page;
        page.paperWidth = 1000;
        page.texts.append({u"lbl"_qs, u"text"_qs, {}, 10, 20, 5, 1, {10, 5, 30, 20}});
        page.lines.append({1, 2, 3, 4, 5, true});
        page.boxes.append({{1, 2, 30, 40}, 5, false, 10});
        const ReportPage moved = shifted({page}, 100, -50).first();
        QCOMPARE(moved.paperWidth, 1000);
        QCOMPARE(moved.texts.first().x, 110);
        QCOMPARE(moved.texts.first().baseline, -30);
        QCOMPARE(moved.texts.first().room, (ReportRect{110, -45, 30, 20}));
        QCOMPARE(moved.lines.first().x2, 103);
        QCOMPARE(moved.lines.first().y1, -48);
        QVERIFY(moved.lines.first().dashed);
        QCOMPARE(moved.boxes.first().at, (ReportRect{101, -48, 30, 40}));
        QCOMPARE(moved.boxes.first().shade, 10);
    }

    void aLineIsReadFromLeftToRightWhateverItsSizes() {
        const QList<ReportPageText> read = inReadingOrder({at(u"sum"_qs, u"1,000"_qs, 900, 205, {900, 100, 400, 160}),
                                                           at(u"next"_qs, u"次"_qs, 0, 420, {0, 320, 400, 160}),
                                                           at(u"head"_qs, u"合計"_qs, 0, 215, {0, 100, 800, 180})});
        QStringList words;
        for (const ReportPageText& text : read) words << text.text;
        QCOMPARE(words, QStringList({u"合計"_qs, u"1,000"_qs, u"次"_qs}));
    }

    void aTextBrokenInsideOfItsControlIsWholeAgain() {
        const ReportRect room{0, 0, 400, 400};
        ReportPage page;
        page.texts = {at(u"name"_qs, u"短下肢"_qs, 0, 100, room), at(u"name"_qs, u"装具"_qs, 0, 300, room),
                      at(u"other"_qs, u"隣"_qs, 500, 200, {500, 0, 400, 400})};
        QCOMPARE(page.plainText(), u"短下肢装具\n隣"_qs);
    }

    void theSameControlOfTwoRowsStaysApart() {
        ReportPage page;
        page.texts = {at(u"price"_qs, u"1"_qs, 0, 100, {0, 0, 400, 200}),
                      at(u"price"_qs, u"2"_qs, 0, 300, {0, 200, 400, 200})};
        QCOMPARE(page.plainText(), u"1\n2"_qs);
    }
};

HALVANE_TEST(ReportPageTest)
#include "ReportPageTest.moc"
