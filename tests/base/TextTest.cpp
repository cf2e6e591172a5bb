#include "HalvaneTest.h"

#include "base/Text.h"

#include <algorithm>
#include <random>

class TextTest : public QObject {
    Q_OBJECT

private slots:
    void readingInAnyKanaBecomesHalfWidthKatakana_data() {
        QTest::addColumn<QString>("typed");
        QTest::newRow("hiragana") << u"やまだ"_qs;
        QTest::newRow("katakana") << u"ヤマダ"_qs;
        QTest::newRow("half-width katakana") << u"ﾔﾏﾀﾞ"_qs;
    }
    void readingInAnyKanaBecomesHalfWidthKatakana() {
        QFETCH(QString, typed);
        QCOMPARE(Text::toHalfKana(typed), u"ﾔﾏﾀﾞ"_qs);
    }

    void readingKeepsItsOtherSigns_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("reading");
        QTest::newRow("long vowel") << u"ジョー"_qs << u"ｼﾞｮｰ"_qs;
        QTest::newRow("small kana") << u"きょうっぱ"_qs << u"ｷｮｳｯﾊﾟ"_qs;
        QTest::newRow("vu") << u"ヴァ"_qs << u"ｳﾞｧ"_qs;
        QTest::newRow("kanji stays") << u"山だ"_qs << u"山ﾀﾞ"_qs;
        QTest::newRow("ideographic blank") << u"や　ま"_qs << u"ﾔ ﾏ"_qs;
        QTest::newRow("empty") << QString() << QString();
    }
    void readingKeepsItsOtherSigns() {
        QFETCH(QString, typed);
        QFETCH(QString, reading);
        QCOMPARE(Text::toHalfKana(typed), reading);
    }

    void widthsConvertBothWays_data() {
        QTest::addColumn<QString>("narrow");
        QTest::addColumn<QString>("wide");
        QTest::newRow("digits") << u"1234567890"_qs << u"１２３４５６７８９０"_qs;
        QTest::newRow("letters") << u"ABCxyz"_qs << u"ＡＢＣｘｙｚ"_qs;
        QTest::newRow("kana") << u"ｱｲｳｶﾞﾊﾟ"_qs << u"アイウガパ"_qs;
        QTest::newRow("signs") << u"-/.,()"_qs << u"－／．，（）"_qs;
        QTest::newRow("blank") << u" "_qs << u"　"_qs;
        QTest::newRow("character of two units stays") << u"𠮷1"_qs << u"𠮷１"_qs;
    }
    void widthsConvertBothWays() {
        QFETCH(QString, narrow);
        QFETCH(QString, wide);
        QCOMPARE(Text::toHalfWidth(wide), narrow);
        QCOMPARE(Text::toFullWidth(narrow), wide);
    }

    void codePageConvertsBothWays_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const QString& text, const char* hex) {
            QTest::newRow(name) << text << QByteArray::fromHex(hex);
        };
        row("ASCII", u"Az09\\~|"_qs, "417a30395c7e7c");
        row("half-width kana", u"ｱﾝﾞﾟ｡"_qs, "b1dddedfa1");
        row("hiragana", u"あん"_qs, "82a082f1");
        row("trail byte is a backslash", u"表ソ能"_qs, "955c835c945c");
        row("NEC circled digit", u"①⑳"_qs, "87408753");
        row("NEC company sign", u"㈱"_qs, "878a");
        row("NEC roman number", u"Ⅲ"_qs, "8756");
        row("NEC metric sign", u"㎡"_qs, "8775");
        row("IBM small roman number", u"ⅲ"_qs, "fa42");
        row("IBM ladder high", u"髙"_qs, "fbfc");
        row("IBM cape", u"﨑"_qs, "fab1");
        row("IBM first kanji", u"纊"_qs, "fa5c");
        row("IBM last kanji", u"黑"_qs, "fc4b");
        row("wave dash of Windows", u"～"_qs, "8160");
        row("full-width minus", u"－"_qs, "817c");
        row("parallel lines", u"∥"_qs, "8161");
        row("horizontal bar", u"―"_qs, "815c");
        row("cent, pound, not", u"￠￡￢"_qs, "8191819281ca");
        row("full-width yen", u"￥"_qs, "818f");
        row("full-width tilde letters", u"￣＿"_qs, "81508151");
        row("line break and tabulator", u"\r\n\t"_qs, "0d0a09");
    }
    void codePageConvertsBothWays() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(Text::toCp932(text).toHex(), bytes.toHex());
        QCOMPARE(Text::fromCp932(bytes), text);
        QCOMPARE(Text::cp932Length(text), int(bytes.size()));
    }

    void otherSpellingsReachTheSameBytes_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("wave dash") << u"\u301C"_qs << QByteArray::fromHex("8160");
        QTest::newRow("minus") << u"\u2212"_qs << QByteArray::fromHex("817c");
        QTest::newRow("double vertical line") << u"\u2016"_qs << QByteArray::fromHex("8161");
        QTest::newRow("em dash") << u"\u2014"_qs << QByteArray::fromHex("815c");
    }
    void otherSpellingsReachTheSameBytes() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(Text::toCp932(text).toHex(), bytes.toHex());
    }

    void selectedCharactersOfNecGoBackAsThoseOfIbm() {
        QCOMPARE(Text::fromCp932(QByteArray::fromHex("ed40")), u"纊"_qs);
        QCOMPARE(Text::toCp932(u"纊"_qs), QByteArray::fromHex("fa5c"));
        QCOMPARE(Text::fromCp932(QByteArray::fromHex("eef9")), u"￢"_qs);
    }

    void everyCharacterOfTheCodePageComesBack() {
        int characters = 0;
        for (int lead = 0x81; lead <= 0xfc; ++lead) {
            if (lead >= 0xa0 && lead <= 0xdf) continue;
            for (int trail = 0x40; trail <= 0xfc; ++trail) {
                const QByteArray bytes{std::initializer_list<char>{char(lead), char(trail)}.begin(), 2};
                const QString text = Text::fromCp932(bytes);
                if (text.size() != 1 || text.contains(QChar::ReplacementCharacter)) continue;
                ++characters;
                QCOMPARE(Text::fromCp932(Text::toCp932(text)), text);
            }
        }
        QVERIFY(characters > 7000);
    }

    void characterOutsideTheCodePageBecomesAQuestionMark_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("emoji") << u"a😀b"_qs << QByteArray("a?b");
        QTest::newRow("kanji of two units") << u"𠮷田"_qs << QByteArray::fromHex("3f9363");
        QTest::newRow("Hangul") << u"한"_qs << QByteArray("?");
        QTest::newRow("lone high half") << QString(QChar(0xD842)) + u'x' << QByteArray("?x");
        QTest::newRow("lone low half") << u'x' + QString(QChar(0xDFB7)) << QByteArray("x?");
        QTest::newRow("none is left out") << u"é한z"_qs << QByteArray("??z");
    }
    void characterOutsideTheCodePageBecomesAQuestionMark() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(Text::toCp932(text), bytes);
    }

    void lettersAndNumbersBecomeNarrow_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("narrow");
        QTest::newRow("postal code") << u"４９８－００１７"_qs << u"498-0017"_qs;
        QTest::newRow("long vowel behind a digit") << u"０９０ー１２３４"_qs << u"090-1234"_qs;
        QTest::newRow("narrow long vowel behind a digit") << u"090ｰ1234"_qs << u"090-1234"_qs;
        QTest::newRow("long vowel of a word") << u"モールドＢー５"_qs << u"モールドBー5"_qs;
        QTest::newRow("kana stay") << u"アブミ　ａ＠ｂ．ｊｐ"_qs << u"アブミ a@b.jp"_qs;
        QTest::newRow("nothing") << QString() << QString();
    }
    void lettersAndNumbersBecomeNarrow() {
        QFETCH(QString, typed);
        QTEST(Text::toNarrowLetters(typed), "narrow");
    }

    void missingCharactersAreTold_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("missing");
        QTest::newRow("none") << u"山田①髙?　x"_qs << QString();
        QTest::newRow("each once, in order") << u"😀𠮷a😀𠮷"_qs << u"😀、𠮷"_qs;
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("wave dash is no such one") << u"\u301C\u2212"_qs << QString();
        QTest::newRow("variant of a kanji") << u"辻\U000E0100田"_qs << u"辻（異体字 U+E0100）"_qs;
        QTest::newRow("variant of a sign") << u"①\uFE0F"_qs << u"①（異体字 U+FE0F）"_qs;
        QTest::newRow("variant of a missing kanji") << u"𠮷\U000E0101"_qs << u"𠮷、𠮷（異体字 U+E0101）"_qs;
        QTest::newRow("the same variant twice")
            << u"辻\U000E0100葛\U000E0100辻\U000E0100"_qs << u"辻（異体字 U+E0100）、葛（異体字 U+E0100）"_qs;
        QTest::newRow("zero-width blank") << u"港\u200B区"_qs << u"港（見えない文字 U+200B）"_qs;
        QTest::newRow("zero-width joiner") << u"葉\u200D"_qs << u"葉（見えない文字 U+200D）"_qs;
        QTest::newRow("byte order mark at the start") << u"\uFEFF山田"_qs << u"（見えない文字 U+FEFF）"_qs;
        QTest::newRow("two of them") << u"山\u200B\u200C"_qs
                                     << u"山（見えない文字 U+200B）、山（見えない文字 U+200C）"_qs;
        QTest::newRow("Hangul filler") << u"山\u3164"_qs << u"山（見えない文字 U+3164）"_qs;
        QTest::newRow("blank that does not break") << u"港\u00A0区"_qs << u"港（見えない文字 U+00A0）"_qs;
        QTest::newRow("end of line of another kind") << u"港\u2028区"_qs << u"港（見えない文字 U+2028）"_qs;
        QTest::newRow("voiced mark of its own") << u"か\u3099"_qs << u"か（合成文字 U+3099）"_qs;
    }
    void missingCharactersAreTold() {
        QFETCH(QString, text);
        QFETCH(QString, missing);
        QCOMPARE(Text::missingInCp932(text).join(u'、'), missing);
    }

    void codePointsStandForWhatIsMissing() {
        QCOMPARE(Text::withCodePoints(u"𠮷田 髙橋 辻\U000E0100"_qs), u"U+20BB7田 髙橋 辻U+E0100"_qs);
        QCOMPARE(Text::withCodePoints(u"\u00E9?"_qs), u"U+00E9?"_qs);
    }

    void phrasesKeepTheirWordsWhole_data() {
        QTest::addColumn<QString>("phrases");
        QTest::newRow("orthosis") << u"(修理)|右|短|下肢|装具|採寸"_qs;
        QTest::newRow("katakana") << u"例示|リハビリテーション|病院"_qs;
        QTest::newRow("date") << u"令和　|６年|１１月　|３日"_qs;
        QTest::newRow("names of laws") << u"社会,|国民,|後期"_qs;
        QTest::newRow("Latin letters") << u"PTB式|下腿|義足"_qs;
        QTest::newRow("character of two units") << u"𠮷|田"_qs;
        QTest::newRow("empty") << QString();
    }
    void phrasesKeepTheirWordsWhole() {
        QFETCH(QString, phrases);
        QCOMPARE(Text::phrases(QString(phrases).remove(u'|')).join(u'|'), phrases);
    }

    void damagedBytesReadWithoutHarm_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("lead byte at the end") << QByteArray::fromHex("4182");
        QTest::newRow("bad trail byte") << QByteArray::fromHex("82200a41");
        QTest::newRow("bytes of no meaning") << QByteArray::fromHex("80a0fdfeff41");
        QTest::newRow("zero byte") << QByteArray::fromHex("410042");
    }
    void damagedBytesReadWithoutHarm() {
        QFETCH(QByteArray, bytes);
        QVERIFY(Text::fromCp932(bytes).contains(u'A'));
    }

    void anyBytesReadWithoutHarm() {
        quint32 seed = 20260301;
        for (int round = 0; round < 2000; ++round) {
            QByteArray bytes;
            for (int i = 0; i < round % 40; ++i) {
                seed = seed * 1664525 + 1013904223;
                bytes += char(seed >> 24);
            }
            const QString text = Text::fromCp932(bytes);
            QVERIFY(text.size() <= bytes.size());
            QCOMPARE(text.isEmpty(), bytes.isEmpty());
        }
    }

    void onlyPlainBlanksAreTrimmedAtTheEnd_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("trimmed");
        QTest::newRow("blanks") << u"  a b  "_qs << u"  a b"_qs;
        QTest::newRow("ideographic blank stays") << u"a　"_qs << u"a　"_qs;
        QTest::newRow("line break stays") << u"a\n"_qs << u"a\n"_qs;
        QTest::newRow("blanks alone") << u"   "_qs << QString();
    }
    void onlyPlainBlanksAreTrimmedAtTheEnd() {
        QFETCH(QString, text);
        QFETCH(QString, trimmed);
        QCOMPARE(Text::rightTrimmed(text), trimmed);
    }

    void platformHasItsJapaneseConverters() { Text::assertConverters(); }

    void signsAreCountedNotUnits() {
        const QString text = u"𠮷野家"_qs;
        QCOMPARE(Text::signs(text), 3);
        QCOMPARE(Text::first(text, 2), u"𠮷野"_qs);
        const QString torn = text.mid(1); // its first half is gone
        QCOMPARE(Text::signs(torn), 3);
        QCOMPARE(Text::first(torn, 1), torn.left(1));
        QCOMPARE(Text::first(text.left(1) + u"野"_qs, 2), text.left(1) + u"野"_qs);
    }

    void halvesOfSignsAreFound() {
        const QString sign = u"𠮷"_qs;
        QCOMPARE(Text::loneHalf(u"a"_qs + sign), -1);
        QCOMPARE(Text::loneHalf(u"a"_qs + sign.left(1)), 1);
        QCOMPARE(Text::loneHalf(sign + sign.mid(1)), 2);
        QCOMPARE(Text::loneHalf(sign.mid(1) + sign.left(1)), 0);
        QCOMPARE(Text::wholeSigns(sign + sign.left(1) + u"'"_qs), sign + u"\uFFFD'"_qs);
        QCOMPARE(Text::wholeSigns(sign.mid(1) + sign), u"\uFFFD"_qs + sign);
    }

    // Whatever is pasted, one line of whole signs comes out, and of that the same again.
    void anyTextBecomesOneLineOfWholeSigns() {
        std::mt19937 random(7);
        const QStringList pieces{u"山"_qs,
                                 u"𠮷"_qs,
                                 u" "_qs,
                                 u"　"_qs,
                                 u"\t"_qs,
                                 u"\r\n"_qs,
                                 u"\u2028"_qs,
                                 u"\u0001"_qs,
                                 QString(QChar(0xD842)),
                                 QString(QChar(0xDFB7)),
                                 u"a"_qs};
        for (int round = 0; round < 3000; ++round) {
            QString text;
            for (auto n = random() % 12; n > 0; --n)
                text += pieces.at(static_cast<qsizetype>(random() % pieces.size()));
            const QString line = Text::oneLine(text);
            QCOMPARE(Text::loneHalf(line), -1);
            QCOMPARE(Text::oneLine(line), line);
            QVERIFY(
                std::none_of(line.begin(), line.end(), [](QChar sign) { return sign < u' ' || sign == u'\u2028'; }));
            QCOMPARE(Text::loneHalf(Text::wholeSigns(text)), -1);
            QCOMPARE(Text::signs(Text::wholeSigns(text)), Text::signs(text));
        }
    }
};

HALVANE_TEST(TextTest)
#include "TextTest.moc"
