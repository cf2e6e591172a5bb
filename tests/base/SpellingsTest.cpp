#include "HalvaneTest.h"

#include "base/Spellings.h"

class SpellingsTest : public QObject {
    Q_OBJECT

private slots:
    void kanaInEachKind_data() {
        QTest::addColumn<QString>("typed");
        for (const QString& typed : {u"ﾊｼﾓﾄ"_qs, u"ハシモト"_qs, u"はしもと"_qs})
            QTest::addRow("%s", qPrintable(typed)) << typed;
    }
    void kanaInEachKind() {
        QFETCH(QString, typed);
        const QStringList found = spellings(typed);
        QCOMPARE(found.first(), typed);
        QCOMPARE(found.size(), 3);
        for (const QString& kind : {u"ﾊｼﾓﾄ"_qs, u"ハシモト"_qs, u"はしもと"_qs}) QVERIFY(found.contains(kind));
    }

    void soundMarksAndLongVowelsGoAlong() {
        const QStringList found = spellings(u"ﾊﾞｰｸﾞ"_qs);
        QVERIFY(found.contains(u"バーグ"_qs));
        QVERIFY(found.contains(u"ばーぐ"_qs));
        QVERIFY(spellings(u"ばーぐ"_qs).contains(u"ﾊﾞｰｸﾞ"_qs));
    }

    void lettersAndDigitsInBothWidths() {
        QVERIFY(spellings(u"Ａ１"_qs).contains(u"A1"_qs));
        QVERIFY(spellings(u"a1"_qs).contains(u"Ａ１"_qs));
        QVERIFY(spellings(u"a1"_qs).contains(u"ａ１"_qs));
        QVERIFY(spellings(u"ﾊｼ 2"_qs).contains(u"ハシ　２"_qs));
        QVERIFY(spellings(u"はし　２"_qs).contains(u"ﾊｼ 2"_qs));
    }

    void kanjiHaveOneSpelling() {
        QCOMPARE(spellings(u"橋本"_qs), QStringList{u"橋本"_qs});
        QCOMPARE(spellings(u"𠮷田"_qs), QStringList{u"𠮷田"_qs});
        QCOMPARE(spellings({}), QStringList{QString()});
    }
};

HALVANE_TEST(SpellingsTest)
#include "SpellingsTest.moc"
