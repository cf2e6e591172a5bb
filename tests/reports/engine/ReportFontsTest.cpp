#include "HalvaneTest.h"

#include "reports/engine/PaperGlyphs.h"
#include "reports/engine/ReportFonts.h"
#include "support/ReportSamples.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

class ReportFontsTest : public QObject {
    Q_OBJECT

private slots:
    void aMissingTypeIsNamed() {
        QCOMPARE(missingFonts({u"IPAexMincho"_qs, u"IPAexGothic"_qs}), QStringList());
        QCOMPARE(missingFonts({u"IPAex明朝"_qs, u"IPAexゴシック"_qs}), QStringList());
        QCOMPARE(missingFonts({u"IPAexMincho"_qs, u"Noto Sans CJK JP"_qs}), QStringList{u"IPAexゴシック"_qs});
        QCOMPARE(missingFonts({}), (QStringList{u"IPAex明朝"_qs, u"IPAexゴシック"_qs}));
    }

    void theTypesOfThisMachineAreNotReplaced() {
        assertPaperFonts();
        for (const bool gothic : {false, true})
            for (const PaperFace& face : paperFaces(gothic))
                QCOMPARE(QFontInfo(faceFont(face, 10)).family(), face.family);
    }

    void aTypeThatShouldStandInIsToldWhenItIsMissing() {
        QVERIFY(standInNotice({u"IPAexMincho"_qs, u"Noto Serif CJK JP"_qs}).contains(u"IPAmj明朝"));
        QCOMPARE(standInNotice({u"IPAmjMincho"_qs}), QString());
        QCOMPARE(standInNotice({u"IPAmj明朝"_qs}), QString());
        QCOMPARE(standInNotice(QFontDatabase::families()), QString());
    }

    void everyLetterTakesTheFirstFaceThatHasIt() {
        QStringList runs;
        for (const PaperRun& run : paperRuns(u"𠮷田　𠮷郎한"_qs, {})) {
            QString text = QString::fromLatin1(run.pdfName);
            for (const PaperGlyph& glyph : run.glyphs) text += u' ' + glyph.text;
            runs.append(text);
        }
        QCOMPARE(runs, (QStringList{u"IPAmjMincho 𠮷"_qs, u"IPAexMincho 田 　"_qs, u"IPAmjMincho 𠮷"_qs,
                                    u"IPAexMincho 郎"_qs, u"NotoSerifCJKjp-Regular 한"_qs}));
    }

    void aLetterThatStandsInHasItsPlaceOnTheSameLine() {
        const ReportFont font{false, 10, false, 30};
        QList<QPointF> places;
        for (const PaperRun& run : paperRuns(u"田𠮷田"_qs, font))
            for (const PaperGlyph& glyph : run.glyphs) places.append(glyph.at);
        QCOMPARE(places, (QList<QPointF>{{0, 0}, {230, 0}, {460, 0}}));
        QCOMPARE(measurePaperText(u"田𠮷田"_qs, font), 660.0);
    }

    void everyCharacterOfTheJapaneseStandardIsThere() {
        const QString all = ReportSamples::japaneseStandard();
        QVERIFY(all.size() > 11000);
        for (const bool gothic : {false, true})
            for (const PaperRun& run : paperRuns(all, {gothic, 10}))
                for (const PaperGlyph& glyph : run.glyphs) QVERIFY2(glyph.number != 0, qPrintable(glyph.text));
    }

    void marksStandOnTheirLetters() {
        const QList<PaperRun> runs = paperRuns(u"か\u3099ぎ"_qs, {});
        QCOMPARE(runs.size(), 1);
        QCOMPARE(runs.first().glyphs.size(), 2);
        QCOMPARE(runs.first().glyphs.first().number, paperRuns(u"が"_qs, {}).first().glyphs.first().number);
        QCOMPARE(runs.first().glyphs.last().at, QPointF(200, 0));
    }

    void whatIsNoLetterLeavesNoBox() {
        QVERIFY(paperRuns(u"\n"_qs, {}).isEmpty());
        const QList<PaperRun> runs = paperRuns(u"\u200B義\r\n肢"_qs, {});
        QCOMPARE(runs.size(), 1);
        QCOMPARE(runs.first().glyphs.size(), 2);
        QCOMPARE(runs.first().glyphs.last().at, QPointF(200, 0));
    }

    void theVariantOfAKanjiPrintsTheKanji() {
        const QList<PaperRun> runs = paperRuns(u"辻\U000E0100"_qs, {});
        QCOMPARE(runs.first().glyphs.size(), 1);
        QCOMPARE(runs.first().glyphs.first().number, paperRuns(u"辻"_qs, {}).first().glyphs.first().number);
        QCOMPARE(runs.first().glyphs.first().text, u"辻\U000E0100"_qs);
    }

    void aTextIsAsWideAsItsLetters_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("Japanese") << u"愛知県名古屋市、（栄）９丁目ソケット「型」・々ー"_qs;
        QTest::newRow("Latin letters") << u"AVATo ffi fl WAVE-100/45% (1,234.5)"_qs;
        QTest::newRow("half-width kana") << u"ｶﾞﾊﾟｿｹｯﾄ｡ﾞ"_qs;
        QTest::newRow("mark of its own") << u"か\u3099は\u309A"_qs;
        QTest::newRow("empty") << QString();
    }
    void aTextIsAsWideAsItsLetters() {
        QFETCH(QString, text);
        for (const bool gothic : {false, true})
            for (const double size : {5.0, 6.5, 8.0, 18.0}) {
                const double set = QFontMetricsF(faceFont(paperFaces(gothic).first(), size)).horizontalAdvance(text);
                QVERIFY(std::abs(measurePaperText(text, {gothic, size}) - set) < 0.5);
            }
    }

    void airStandsBetweenSpacedLettersOnly() {
        const ReportFont spaced{false, 10, false, 100};
        QCOMPARE(measurePaperText(u"義肢装"_qs, spaced), 800.0);
        QCOMPARE(measurePaperText(QString(), spaced), 0.0);
        QCOMPARE(measurePaperText(u"義肢"_qs, spaced.sized(5)), 300.0);
    }

    void anIdeographIsAsWideAsItsSize() { QCOMPARE(measurePaperText(u"義肢"_qs, {false, 10, false}), 400.0); }
};

HALVANE_TEST(ReportFontsTest)
#include "ReportFontsTest.moc"
