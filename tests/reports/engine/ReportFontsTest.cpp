#include "HalvaneTest.h"

#include "reports/engine/ReportFonts.h"

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
        QVERIFY(QFontInfo(paperFont({false, 10, false})).family().startsWith(u"IPAex"));
        QVERIFY(QFontInfo(paperFont({true, 10, false})).family().startsWith(u"IPAex"));
    }

    void aTextIsAsWideAsThePrinterSetsIt_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("Japanese") << u"愛知県名古屋市、（栄）９丁目ソケット「型」・々ー"_qs;
        QTest::newRow("Latin letters") << u"AVATo ffi fl WAVE-100/45% (1,234.5)"_qs;
        QTest::newRow("half-width kana") << u"ｶﾞﾊﾟｿｹｯﾄ｡ﾞ"_qs;
        QTest::newRow("two units") << u"𠮷田　𩸽"_qs;
        QTest::newRow("mark of its own") << u"か\u3099は\u309A"_qs;
        QTest::newRow("variant of a kanji") << u"辻\U000E0100葛\U000E0100"_qs;
        QTest::newRow("empty") << QString();
    }
    void aTextIsAsWideAsThePrinterSetsIt() {
        QFETCH(QString, text);
        for (const bool gothic : {false, true})
            for (const double size : {5.0, 6.5, 8.0, 18.0}) {
                const ReportFont font{gothic, size, false};
                const double set = QFontMetricsF(paperFont(font)).horizontalAdvance(text);
                QVERIFY(std::abs(measurePaperText(text, font) - set) < 0.5);
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
