#include "HalvaneTest.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/clsProfile.h"
#include "support/MessageQueue.h"
#include "support/ProgramFolder.h"
#include "support/Raised.h"

#include <QDir>

#include <limits>

class basCommonTest : public QObject {
    Q_OBJECT

private slots:
    void eraFormOfADate_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QString& value, const QString& format, const QString& text) {
            QTest::newRow(name) << value << format << text;
        };
        const QString longForm = u"ggge年m月d日"_qs;
        row("no date", u"2024/02/30"_qs, longForm, {});
        row("empty", {}, longForm, {});
        row("last Heisei day", u"2019/04/30"_qs, u"ggg"_qs, u"平成"_qs);
        row("last Heisei minute", u"2019/04/30 23:59:00"_qs, u"ggg"_qs, u"平成"_qs);
        row("first Reiwa moment", u"2019/05/01 0:00:00"_qs, u"ggg"_qs, u"令和"_qs);
        row("first Reiwa day", u"2019/05/01"_qs, longForm, u"令和1年5月1日"_qs);
        row("two digits", u"2019/05/01"_qs, u"ggge年mm月dd日"_qs, u"令和1年05月01日"_qs);
        row("year alone", u"2024/12/31"_qs, u"e"_qs, u"6"_qs);
        row("month alone", u"2024/05/01"_qs, u"m"_qs, u"5"_qs);
        row("day alone", u"2024/05/01"_qs, u"d"_qs, u"1"_qs);
        row("Heisei year", u"2019/01/07"_qs, longForm, u"平成31年1月7日"_qs);
        row("Heisei two digits", u"1989/02/03"_qs, u"ggge年mm月dd日"_qs, u"平成1年02月03日"_qs);
        row("first Heisei day", u"1989/01/08"_qs, u"ggg"_qs, u"平成"_qs);
        row("last Showa day", u"1989/01/07"_qs, longForm, u"昭和64年1月7日"_qs);
        row("first Showa day", u"1926/12/25"_qs, longForm, u"昭和1年12月25日"_qs);
        row("last Taisho day", u"1926/12/24"_qs, longForm, u"大正15年12月24日"_qs);
        row("first Taisho day", u"1912/07/30"_qs, u"ggge"_qs, u"大正1"_qs);
        row("last Meiji day", u"1912/07/29"_qs, u"ggge"_qs, u"明治45"_qs);
        row("other signs stay", u"2024/05/09"_qs, u"(ggg) e/m/d"_qs, u"(令和) 6/5/9"_qs);
    }
    void eraFormOfADate() {
        QFETCH(QString, value);
        QFETCH(QString, format);
        QTEST(FormatEraDate(value, format), "text");
    }

    void eraLettersHaveTheirBase_data() {
        QTest::addColumn<char>("letter");
        QTest::addColumn<int>("base");
        QTest::newRow("r") << 'r' << 2018;
        QTest::newRow("h") << 'h' << 1988;
        QTest::newRow("s") << 's' << 1925;
        QTest::newRow("t") << 't' << 1911;
        QTest::newRow("m") << 'm' << 1867;
        QTest::newRow("capital") << 'H' << 1988;
        QTest::newRow("another") << 'x' << 0;
    }
    void eraLettersHaveTheirBase() {
        QFETCH(char, letter);
        QTEST(eraBaseYear(QLatin1Char(letter)), "base");
    }

    void enteredDatesAreChecked_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("date");
        const auto row = [](const char* text, const char* date) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(date);
        };
        row("", "");
        row("   ", "");
        row("17521231", "");
        row("17530101", "1753/01/01");
        row("1752/12/31", "");
        row("20240230", "");
        row("20240229", "2024/02/29");
        row("20230229", "");
        row("2024/2/9", "2024/2/9");
        row("2024/02/09  ", "2024/02/09");
        row("2024022", "");
        row("202402299", "");
        row("abcdefgh", "");
        row("2024/13/01", "");
        row("a/b/c", "");
        row("2024-2-9", "");
    }
    void enteredDatesAreChecked() {
        QFETCH(QString, text);
        QTEST(CheckDate(text), "date");
    }

    void typedDatesAreUnderstood_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QDate>("date");
        const auto row = [](const char* typed, const QDate& date) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << date;
        };
        row("2005/3/1", {2005, 3, 1});
        row("20050301", {2005, 3, 1});
        row("h170301", {2005, 3, 1});
        row("H17.3.1", {2005, 3, 1});
        row("R6.4.1", {2024, 4, 1});
        row("r010501", {2019, 5, 1});
        row("s64/1/7", {1989, 1, 7});
        row("２００５／３／１", {2005, 3, 1});
        row("ｒ６．４．１", {2024, 4, 1});
        row("", {});
        row("h179999", {});
        row("x170301", {});
        row("2005/3", {});
        row("20051301", {});
        row("今日", {});
    }
    void typedDatesAreUnderstood() {
        QFETCH(QString, typed);
        QFETCH(QDate, date);
        QCOMPARE(parseTypedDate(typed).value_or(QDate()), date);
    }

    void datesReadInTheirForms_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* text, const char* written) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(written);
        };
        row("2005/3/1", "2005/03/01");
        row("2005-03-01", "2005/03/01");
        row("2005/03/01 9:05", "2005/03/01 9:05:00");
        row("2005/03/01 09:05:09", "2005/03/01 9:05:09");
        row("2005/03/01 0:00:00", "2005/03/01");
        row("0100/01/01", "0100/01/01");
        row("0000/01/01", "");
        row("2005/02/29", "");
        row("2005/03/01 24:00:00", "");
        row("2005/03/01 9", "");
        row("05/3/1", "");
        row("２００５/3/1", "");
        row("x", "");
    }
    void datesReadInTheirForms() {
        QFETCH(QString, text);
        const auto value = parseDate(text);
        QTEST(value ? dateText(*value) : QString(), "written");
    }

    void ageInWholeYears_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<int>("age");
        const auto row = [](const char* name, const QString& from, const QString& to, int age) {
            QTest::newRow(name) << from << to << age;
        };
        row("day before the leap birthday", u"2000/02/29"_qs, u"2024/02/28"_qs, 23);
        row("day behind the leap birthday", u"2000/02/29"_qs, u"2024/03/01"_qs, 24);
        row("birthday", u"2000/05/10"_qs, u"2024/05/10"_qs, 24);
        row("day before", u"2000/05/10"_qs, u"2024/05/09"_qs, 23);
        row("month before", u"2000/05/10"_qs, u"2024/04/30"_qs, 23);
        row("same day", u"2000/05/10"_qs, u"2000/05/10"_qs, 0);
        row("backwards", u"2024/05/10"_qs, u"2000/05/10"_qs, 0);
        row("no date", u"x"_qs, u"2000/05/10"_qs, 0);
        row("empty", u"2000/05/10"_qs, {}, 0);
    }
    void ageInWholeYears() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, age);
        QCOMPARE(int(CalcAge(from, to)), age);
    }

    void numericTextHoldsItsSignsOnly_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("whenEmpty");
        QTest::addColumn<bool>("numeric");
        QTest::newRow("blank, true") << u"   "_qs << true << true;
        QTest::newRow("blank, false") << QString() << false << false;
        QTest::newRow("digits") << u"123"_qs << false << true;
        QTest::newRow("order is not checked") << u"1-2,3"_qs << false << true;
        QTest::newRow("signs") << u"+-.,"_qs << false << true;
        QTest::newRow("letter") << u"1a"_qs << true << false;
        QTest::newRow("full-width digit") << u"１"_qs << true << false;
        QTest::newRow("blank inside") << u"1 2"_qs << true << false;
        QTest::newRow("line break") << u"1\n"_qs << true << false;
    }
    void numericTextHoldsItsSignsOnly() {
        QFETCH(QString, text);
        QFETCH(bool, whenEmpty);
        QTEST(IsNumericText(text, whenEmpty), "numeric");
    }

    void postalCodeGetsItsHyphen_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("zip");
        QTest::newRow("seven digits") << u"1234567"_qs << u"123-4567"_qs;
        QTest::newRow("three digits") << u"123"_qs << u"123"_qs;
        QTest::newRow("four digits") << u"1234"_qs << u"123-4"_qs;
        QTest::newRow("has one") << u"12-34567"_qs << u"12-34567"_qs;
        QTest::newRow("signs of two units") << u"12𠮷4567"_qs << u"12𠮷-4567"_qs;
        QTest::newRow("three signs of two units") << u"𠮷𠮷𠮷"_qs << u"𠮷𠮷𠮷"_qs;
        QTest::newRow("empty") << QString() << QString();
    }
    void postalCodeGetsItsHyphen() {
        QFETCH(QString, text);
        QTEST(FormatZip(text), "zip");
    }

    void namesJoinWithAnIdeographicBlank_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<QString>("joined");
        QTest::newRow("both") << u"山田  "_qs << u"太郎 "_qs << u"山田　太郎"_qs;
        QTest::newRow("first alone") << u"山田"_qs << u"  "_qs << u"山田"_qs;
        QTest::newRow("second alone") << QString() << u"太郎"_qs << u"太郎"_qs;
        QTest::newRow("none") << QString() << QString() << QString();
    }
    void namesJoinWithAnIdeographicBlank() {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QTEST(JoinWithSpace(first, second), "joined");
    }

    void numbersRoundTiesToEven_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("rounded");
        QTest::newRow("0.5") << 0.5 << 0;
        QTest::newRow("1.5") << 1.5 << 2;
        QTest::newRow("2.5") << 2.5 << 2;
        QTest::newRow("-0.5") << -0.5 << 0;
        QTest::newRow("-1.5") << -1.5 << -2;
        QTest::newRow("largest") << 2147483647.4 << 2147483647;
        QTest::newRow("smallest") << -2147483648.5 << int(-2147483648LL);
    }
    void numbersRoundTiesToEven() {
        QFETCH(double, value);
        QTEST(ToInt(value), "rounded");
    }

    void numberBeyondItsRangeIsAnError_data() {
        QTest::addColumn<double>("value");
        QTest::newRow("above") << 2147483647.5;
        QTest::newRow("below") << -2147483649.0;
        QTest::newRow("no number") << qQNaN();
        QTest::newRow("infinite") << qInf();
    }
    void numberBeyondItsRangeIsAnError() {
        QFETCH(double, value);
        const auto error = errorOf([&] { ToInt(value); });
        QVERIFY(error);
        QCOMPARE(error->number(), 6);
        QVERIFY(errorOf([&] { ToInt16(value); }));
    }

    void sixteenBitsHaveTheirRange() {
        QCOMPARE(int(ToInt16(32767.4)), 32767);
        QVERIFY(errorOf([] { ToInt16(32767.5); }));
        QCOMPARE(int(ToInt16(u"-32768"_qs)), -32768);
        QVERIFY(errorOf([] { ToInt16(u"x"_qs); }));
    }

    void textThatIsNoNumberIsAnError() {
        for (const QString& text : {QString(), u" "_qs, u"1,000"_qs, u"1円"_qs, u"1e3"_qs}) {
            const auto error = errorOf([&] { ToInt(text); });
            QVERIFY(error);
            QCOMPARE(error->number(), 13);
        }
        QCOMPARE(ToInt(u" 12.5 "_qs), 12);
    }

    void fullWidthDigitsCountEverywhere() {
        QCOMPARE(Val(u"１，２３４．５円"_qs), 1234.5);
        QCOMPARE(ToInt(u"－１２"_qs), -12);
        QCOMPARE(int(ToInt16(u"３"_qs)), 3);
        QCOMPARE(formatThousands(u"１２３４"_qs), u"1,234"_qs);
        QCOMPARE(narrowNumber(u"１２ー３"_qs), u"12-3"_qs);
    }

    void leadingNumberIsTaken() {
        QCOMPARE(Val(u"1,234.5円"_qs), 1234.5);
        QCOMPARE(Val(u" -7x"_qs), -7.0);
        QCOMPARE(Val(u"円"_qs), 0.0);
        QCOMPARE(leadingNumberText(u"1,2a"_qs), u"12"_qs);
    }

    void plainNumbersAreWritten() {
        QCOMPARE(numberText(1234.50), u"1234.5"_qs);
        QCOMPARE(numberText(-0.00000000001), u"0"_qs);
        QCOMPARE(numberText(9000001), u"9000001"_qs);
        QCOMPARE(numberText(1e15), u"1000000000000000"_qs);
    }

    void thousandsAreSeparated_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("formatted");
        QTest::newRow("0") << u"0"_qs << u"0"_qs;
        QTest::newRow("999") << u"999"_qs << u"999"_qs;
        QTest::newRow("1000") << u"1000"_qs << u"1,000"_qs;
        QTest::newRow("-1234567") << u"-1234567"_qs << u"-1,234,567"_qs;
        QTest::newRow("ties to even") << u"2.5"_qs << u"2"_qs;
        QTest::newRow("separated already") << u"12,345.6円"_qs << u"12,346"_qs;
        QTest::newRow("empty") << QString() << u"0"_qs;
    }
    void thousandsAreSeparated() {
        QFETCH(QString, text);
        QTEST(formatThousands(text), "formatted");
        QCOMPARE(formatWhole(text), formatThousands(text).remove(u','));
    }

    void separatorsLeaveDecimalsAlone() {
        QCOMPARE(groupThousands(u"1234567.8901"_qs), u"1,234,567.8901"_qs);
        QCOMPARE(groupThousands(u"-0.5"_qs), u"-0.5"_qs);
        QCOMPARE(groupThousands(u"-123456"_qs), u"-123,456"_qs);
        QCOMPARE(groupThousands(u"999"_qs), u"999"_qs);
        QCOMPARE(groupThousands({}), QString());
    }

    void largestNumbersAreSeparatedOrRefused() {
        QCOMPARE(formatThousands(std::numeric_limits<qint64>::min()), u"-9,223,372,036,854,775,808"_qs);
        QCOMPARE(formatThousands(qint64(-999)), u"-999"_qs);
        QVERIFY(errorOf([] { formatThousands(QString(30, u'9')); }));
        QVERIFY(errorOf([] { formatWhole(QString(30, u'9')); }));
    }

    void momentsAreFormatted() {
        const QString moment = u"2024/03/09 7:05:02"_qs;
        QCOMPARE(formatDate(moment, u"yyyymmddhhnnss"_qs), u"20240309070502"_qs);
        QCOMPARE(formatDate(moment, u"yyyy/mm/dd"_qs), u"2024/03/09"_qs);
        QCOMPARE(formatDate(u"x"_qs, u"yyyy"_qs), QString());
    }

    void backupFolderIsMadeOnlyWhenNotConfigured() {
        ProgramFolder folder;
        folder.writeProfile("[Backup]\r\nPath=elsewhere\r\n");
        QCOMPARE(GetBackupFolder(), folder.path(u"elsewhere"_qs));
        QVERIFY(!folder.has(u"elsewhere"_qs));
        folder.writeProfile("");
        QCOMPARE(GetBackupFolder(), folder.path(u"backup"_qs));
        QVERIFY(folder.has(u"backup"_qs));
        QCOMPARE(GetDefaultBackupFolder(), folder.path(u"backup"_qs));
    }

    void databasePathJoinsFolderAndFile() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=data\\sub\\\r\nDatabase=office.db\r\n");
        QCOMPARE(QDir::cleanPath(GetDbFilePath()), folder.path(u"data/sub/office.db"_qs));
    }

    // The file of a second installation stands in that one's folder.
    void databasePathIsThatOfItsOwnProfile() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=data\r\nDatabase=a.db\r\n");
        QVERIFY(QDir(folder.path()).mkpath(u"other"_qs));
        folder.write(u"other/Halvane.ini"_qs, "[DB]\r\nPath=data\r\nDatabase=b.db\r\n");
        const clsProfile other(folder.path(u"other/Halvane.ini"_qs));
        QCOMPARE(GetDbFilePath(other), folder.path(u"other/data/b.db"_qs));
        folder.writeProfile("[DB]\r\nPath=\r\nDatabase=a.db\r\n");
        QCOMPARE(GetDbFilePath(), folder.path(u"a.db"_qs));
    }

    void systemDateTakesTheOverrideWhenItIsADate_data() {
        QTest::addColumn<QString>("configured");
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("month");
        QTest::addColumn<QString>("day");
        QTest::newRow("override") << u"2005/4/1"_qs << u"2005"_qs << u"04"_qs << u"01"_qs;
        QTest::newRow("empty") << QString() << u"2024"_qs << u"03"_qs << u"10"_qs;
        QTest::newRow("no date") << u"2005/13/1"_qs << u"2024"_qs << u"03"_qs << u"10"_qs;
    }
    void systemDateTakesTheOverrideWhenItIsADate() {
        QFETCH(QString, configured);
        FixedClock clock(u"2024/03/10 12:00:00"_qs);
        setSystemDate(configured);
        QTEST(gSysYear, "year");
        QTEST(gSysMonth, "month");
        QTEST(gSysDay, "day");
    }

    void versionHasTwoForms() {
        QCOMPARE(programVersion(), u"2.2.6"_qs);
        QCOMPARE(programVersionCode(), u"020206"_qs);
    }
};

HALVANE_TEST(basCommonTest)
#include "basCommonTest.moc"
