#include "HalvaneTest.h"

#include "reports/ReportTextFit.h"

namespace {

// Every character is as wide as its size.
double square(const QString& text, const ReportFont& font) { return double(text.size()) * font.size * 20; }

ReportTextItem control(int width, int height, double size, bool wrap) {
    ReportTextItem item;
    item.at = {0, 0, width, height};
    item.font.size = size;
    item.wrap = wrap;
    return item;
}

QString spelled(const FittedText& fitted) {
    return u"%1 @%2 x%3"_qs.arg(fitted.lines.join(u'/')).arg(fitted.size).arg(fitted.squeeze, 0, 'f', 2);
}

} // namespace

class ReportTextFitTest : public QObject {
    Q_OBJECT

private slots:
    void textsFit_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<ReportTextItem>("item");
        QTest::addColumn<QString>("fitted");
        QTest::newRow("with room") << u"あいう"_qs << control(600, 260, 10, false) << u"あいう @10 x1.00"_qs;
        QTest::newRow("shrinks") << u"あいう"_qs << control(500, 260, 10, false) << u"あいう @8 x1.00"_qs;
        QTest::newRow("too high for the strip") << u"あ"_qs << control(500, 120, 10, false) << u"あ @6 x1.00"_qs;
        QTest::newRow("squeezed at the smallest size")
            << u"あいうえお"_qs << control(250, 260, 10, false) << u"あいうえお @5 x0.50"_qs;
        QTest::newRow("wraps before it shrinks")
            << u"あいうえ"_qs << control(400, 400, 10, true) << u"あい/うえ @10 x1.00"_qs;
        QTest::newRow("shrinks, then wraps")
            << u"あいうえ"_qs << control(300, 260, 10, true) << u"あい/うえ @6.5 x1.00"_qs;
        QTest::newRow("keeps words together")
            << u"abc def"_qs << control(800, 400, 10, true) << u"abc /def @10 x1.00"_qs;
        QTest::newRow("breaks a word that is too wide")
            << u"abcdef"_qs << control(600, 400, 10, true) << u"abc/def @10 x1.00"_qs;
        QTest::newRow("no closing mark at the start")
            << u"あい、うえ"_qs << control(600, 400, 10, true) << u"あい、/うえ @10 x1.00"_qs;
        QTest::newRow("one line a little smaller rather than two")
            << u"あいうえおかきくけこ"_qs << control(1700, 400, 10, true) << u"あいうえおかきくけこ @8.5 x1.00"_qs;
        QTest::newRow("two lines rather than one much smaller")
            << u"足部足部足部足部足部"_qs << control(1400, 400, 10, true) << u"足部足部足部/足部足部 @10 x1.00"_qs;
        QTest::newRow("keeps Japanese words together")
            << u"右短下肢装具採寸"_qs << control(1000, 400, 10, true) << u"右短下肢/装具採寸 @10 x1.00"_qs;
        QTest::newRow("a little smaller rather than a parted word")
            << u"リハビリテーション病院"_qs << control(1700, 400, 10, true) << u"リハビリテーション/病院 @9 x1.00"_qs;
        QTest::newRow("a parted word rather than much smaller")
            << u"リハビリテーション病院"_qs << control(1200, 400, 10, true) << u"リハビリテー/ション病院 @10 x1.00"_qs;
        QTest::newRow("a parted word rather than hard to read")
            << u"リハビリテーション病院"_qs << control(1020, 240, 6, true) << u"リハビリテーショ/ン病院 @6 x1.00"_qs;
        QTest::newRow("short words part behind a comma")
            << u"社会,国民,後期,身体"_qs << control(1120, 400, 8, true) << u"社会,国民,/後期,身体 @8 x1.00"_qs;
        QTest::newRow("a date parts behind its year")
            << u"令和　６年１１月１２日"_qs << control(840, 400, 7, true) << u"令和　６年/１１月１２日 @7 x1.00"_qs;
        QTest::newRow("an even share parts at a blank")
            << u"あいうえ　おかきくけこさし"_qs << control(2000, 400, 10, true)
            << u"あいうえ　/おかきくけこさし @10 x1.00"_qs;
        QTest::newRow("no last line of a single character")
            << u"あいうえおかきくけ"_qs << control(800, 600, 10, true) << u"あいう/えおか/きくけ @10 x1.00"_qs;
    }
    void textsFit() {
        QFETCH(QString, text);
        QFETCH(ReportTextItem, item);
        QTEST(spelled(fitText(text, item, square)), "fitted");
    }

    // The part form of a complete part: over 14 bytes 7 points, from 18 bytes 8 points on more lines.
    void theByteLengthChoosesTheSize_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::newRow("14 bytes") << u"あいうえおかき"_qs << 9.0;
        QTest::newRow("15 bytes") << u"あいうえおかきa"_qs << 7.0;
        QTest::newRow("17 bytes") << u"あいうえおかきくa"_qs << 7.0;
        QTest::newRow("18 bytes") << u"あいうえおかきくけ"_qs << 8.0;
        QTest::newRow("half-width kana count once") << u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾ"_qs << 9.0;
    }
    void theByteLengthChoosesTheSize() {
        QFETCH(QString, text);
        ReportTextItem item = control(20000, 400, 9, true);
        item.sizes = {{14, 7}, {17, 8}};
        QTEST(fitText(text, item, square).size, "size");
    }

    void noTextIsEverCut() {
        const QString text = u"義肢装具製作所"_qs.repeated(12);
        for (int width = 40; width < 4000; width += 97)
            for (int height = 60; height < 600; height += 61)
                for (const bool wrap : {false, true}) {
                    const FittedText fitted = fitText(text, control(width, height, 12, wrap), square);
                    QCOMPARE(fitted.lines.join(QString()), text);
                    for (const QString& line : fitted.lines)
                        QVERIFY(square(line, {false, fitted.size, false}) * fitted.squeeze <= width + 1);
                }
    }

    void aBaselineCentresTheEmBox() {
        // 200 twips of type in a strip of 300: 50 above it, 176 of ascent.
        QCOMPARE(centredBaseline(1000, 300, 10), 1226);
    }
};

HALVANE_TEST(ReportTextFitTest)
#include "ReportTextFitTest.moc"
