#include "HalvaneTest.h"

#include "base/Money.h"
#include "support/Raised.h"

#include <limits>

class MoneyTest : public QObject {
    Q_OBJECT

private slots:
    void wholeYenRoundTiesToEven_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("yen");
        const auto row = [](const char* text, qint64 yen) { QTest::newRow(text) << QString::fromLatin1(text) << yen; };
        row("0.5", 0);
        row("1.5", 2);
        row("2.5", 2);
        row("2.4999", 2);
        row("2.5001", 3);
        row("-0.5", 0);
        row("-1.5", -2);
        row("-2.5", -2);
        row("-2.5001", -3);
        row("1234", 1234);
    }
    void wholeYenRoundTiesToEven() {
        QFETCH(QString, text);
        QFETCH(qint64, yen);
        QCOMPARE(Money::parse(text).toYen(), yen);
    }

    void fourDecimalsRoundTiesToEven_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("kept");
        const auto row = [](const char* text, const char* kept) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(kept);
        };
        row("0.00005", "0");
        row("0.00015", "0.0002");
        row("0.00025", "0.0002");
        row("0.000250", "0.0002");
        row("0.0002500001", "0.0003");
        row("-0.00015", "-0.0002");
        row("0.00004999", "0");
        row("1.10", "1.1");
        row("007", "7");
        row("+5.", "5");
        row(".5", "0.5");
    }
    void fourDecimalsRoundTiesToEven() {
        QFETCH(QString, text);
        QFETCH(QString, kept);
        QCOMPARE(Money::parse(text).toText(), kept);
    }

    void textThatIsNoNumberIsRefused_data() {
        QTest::addColumn<QString>("text");
        for (const char* text : {"", " ", "abc", "1,234", "12円", "1e3", "1.2.3", "--1", "-", ".", "0x10"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }
    void textThatIsNoNumberIsRefused() {
        QFETCH(QString, text);
        const auto error = errorOf([&] { Money::parse(text); });
        QVERIFY(error);
        QCOMPARE(error->number(), 13);
    }

    void leadingNumberOfATextCounts_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("amount");
        QTest::newRow("separators") << u"1,234,567円"_qs << u"1234567"_qs;
        QTest::newRow("blanks ahead") << u"  -12.5x"_qs << u"-12.5"_qs;
        QTest::newRow("none") << u"円"_qs << u"0"_qs;
        QTest::newRow("empty") << QString() << u"0"_qs;
    }
    void leadingNumberOfATextCounts() {
        QFETCH(QString, text);
        QFETCH(QString, amount);
        QCOMPARE(Money::leadingNumber(text).toText(), amount);
    }

    void percentagesRoundTiesToEvenInDecimals_data() {
        QTest::addColumn<QString>("percent");
        QTest::addColumn<qint64>("yen");
        QTest::addColumn<qint64>("part");
        QTest::newRow("tie that a binary fraction misses") << u"70"_qs << qint64(10245) << qint64(7172);
        QTest::newRow("tie, down") << u"50"_qs << qint64(5) << qint64(2);
        QTest::newRow("tie, up") << u"50"_qs << qint64(7) << qint64(4);
        QTest::newRow("negative tie") << u"50"_qs << qint64(-5) << qint64(-2);
        QTest::newRow("negative, up") << u"-30"_qs << qint64(6) << qint64(-2);
        QTest::newRow("decimals") << u"33.33"_qs << qint64(10000) << qint64(3333);
        QTest::newRow("full width") << u"３０"_qs << qint64(1000) << qint64(300);
        QTest::newRow("empty") << QString() << qint64(1000) << qint64(0);
        QTest::newRow("large") << u"9999.99"_qs << qint64(2147483647) << qint64(214748149952);
    }
    void percentagesRoundTiesToEvenInDecimals() {
        QFETCH(QString, percent);
        QFETCH(qint64, yen);
        QTEST(Money::percentage(percent, yen), "part");
    }

    void fullWidthDigitsCount() {
        QCOMPARE(Money::parse(u"－１，２３４．５"_qs.remove(u'，')).toText(), u"-1234.5"_qs);
        QCOMPARE(Money::leadingNumber(u"１，２３４円"_qs).toText(), u"1234"_qs);
    }

    void largestAmountsKeepEveryDigit_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("largest") << u"922337203685477.5807"_qs;
        QTest::newRow("smallest but one") << u"-922337203685477.5807"_qs;
    }
    void largestAmountsKeepEveryDigit() {
        QFETCH(QString, text);
        QCOMPARE(Money::parse(text).toText(), text);
    }

    void smallestAmountIsWritten() {
        const Money smallest = Money::ofTenThousandths(std::numeric_limits<qint64>::min());
        QCOMPARE(smallest.toText(), u"-922337203685477.5808"_qs);
        QCOMPARE(smallest.toYen(), -922337203685478);
    }

    void amountBeyondTheRangeIsAnError_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("above") << u"922337203685477.5808"_qs;
        QTest::newRow("rounded above") << u"922337203685477.58075"_qs;
        QTest::newRow("below") << u"-922337203685478"_qs;
        QTest::newRow("many digits") << QString(60, u'9');
    }
    void amountBeyondTheRangeIsAnError() {
        QFETCH(QString, text);
        const auto error = errorOf([&] { Money::parse(text); });
        QVERIFY(error);
        QCOMPARE(error->number(), 6);
    }

    void sumBeyondTheRangeIsAnError() {
        const Money largest = Money::ofTenThousandths(std::numeric_limits<qint64>::max());
        const Money smallest = Money::ofTenThousandths(std::numeric_limits<qint64>::min());
        const Money little = Money::ofTenThousandths(1);
        QVERIFY(errorOf([&] { (void)(largest + little); }));
        QVERIFY(errorOf([&] { (void)(smallest - little); }));
        QVERIFY(errorOf([] { Money::yen(std::numeric_limits<qint64>::max()); }));
        QCOMPARE((largest - largest).toText(), u"0"_qs);
    }

    void amountsAddAndCompareExactly() {
        Money sum;
        for (int i = 0; i < 10; ++i) sum += Money::parse(u"0.1"_qs);
        QVERIFY(sum == Money::yen(1));
        QVERIFY(Money::parse(u"-0.0001"_qs) < Money());
        QCOMPARE((Money::yen(3) - Money::parse(u"0.0001"_qs)).toText(), u"2.9999"_qs);
    }
};

HALVANE_TEST(MoneyTest)
#include "MoneyTest.moc"
