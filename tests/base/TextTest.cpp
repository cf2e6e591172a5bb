#include "HalvaneTest.h"

#include "base/Text.h"

class TextTest : public QObject {
    Q_OBJECT
private slots:
    void readingInAnyKanaBecomesHalfWidthKatakana() {
        QCOMPARE(Text::toHalfKana(u"やまだ"_qs), u"ﾔﾏﾀﾞ"_qs);
        QCOMPARE(Text::toHalfKana(u"ヤマダ"_qs), u"ﾔﾏﾀﾞ"_qs);
        QCOMPARE(Text::toHalfKana(u"ﾔﾏﾀﾞ"_qs), u"ﾔﾏﾀﾞ"_qs);
    }
};

HALVANE_TEST(TextTest)
#include "TextTest.moc"
