#include "HalvaneTest.h"

#include "reports/engine/ReportFonts.h"

#include <QFontInfo>

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

    void anIdeographIsAsWideAsItsSize() { QCOMPARE(measurePaperText(u"義肢"_qs, {false, 10, false}), 400.0); }
};

HALVANE_TEST(ReportFontsTest)
#include "ReportFontsTest.moc"
