#include "HalvaneTest.h"

#include "base/Application.h"
#include "reports/ReportText.h"
#include "support/MessageQueue.h"

class ReportTextTest : public QObject {
    Q_OBJECT

private slots:
    void datesReadByTheirForm_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QString& value, const QString& form, const QString& text) {
            QTest::newRow(name) << value << form << text;
        };
        row("western", u"2005/03/01"_qs, u"yyyy/mm/dd"_qs, u"2005/03/01"_qs);
        row("with words", u"2005/03/01"_qs, u"yyyy年mm月dd日"_qs, u"2005年03月01日"_qs);
        row("with points", u"2005/03/01"_qs, u"yyyy.mm.dd"_qs, u"2005.03.01"_qs);
        row("era", u"2005/03/01"_qs, u"ggg e年m月d日"_qs, u"平成 17年3月1日"_qs);
        row("letter", u"2004/12/01"_qs, u"gee.mm.dd"_qs, u"H16.12.01"_qs);
        row("last day of an era", u"2019/04/30"_qs, u"gee.mm.dd"_qs, u"H31.04.30"_qs);
        row("first day of an era", u"2019/05/01"_qs, u"gee.mm.dd"_qs, u"R01.05.01"_qs);
        row("showa", u"1956/05/14"_qs, u"gee.mm.dd"_qs, u"S31.05.14"_qs);
        row("taisho", u"1926/12/24"_qs, u"gee.mm.dd"_qs, u"T15.12.24"_qs);
        row("meiji", u"1912/07/29"_qs, u"gee.mm.dd"_qs, u"M45.07.29"_qs);
        row("with a time", u"2024/11/03 9:05:00"_qs, u"gee.mm.dd"_qs, u"R06.11.03"_qs);
        row("no date", u"未定"_qs, u"yyyy/mm/dd"_qs, QString());
        row("no date in an era", QString(), u"ggge年"_qs, QString());
    }
    void datesReadByTheirForm() {
        QFETCH(QString, value);
        QFETCH(QString, form);
        QTEST(ReportText::date(value, form), "text");
    }

    void aDateFormHasLettersOfADate() {
        for (const QString& form : {u"yyyy"_qs, u"mm/dd"_qs, u"ggge年"_qs, u"gee.mm.dd"_qs})
            QVERIFY2(ReportText::isDateForm(form), qPrintable(form));
        for (const QString& form : {QString(), u"#,##0"_qs, u"年月日"_qs})
            QVERIFY2(!ReportText::isDateForm(form), qPrintable(form));
    }

    void init() { setSystemDate(u"2024/11/03"_qs); }

    void numbersTakeTheirForm_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("printed");
        QTest::newRow("thousands") << QVariant(1234567) << u"#,##0"_qs << u"1,234,567"_qs;
        QTest::newRow("zero amount") << QVariant(0) << u"#,##0"_qs << u"0"_qs;
        QTest::newRow("zero quantity") << QVariant(0) << u"#,###"_qs << QString();
        QTest::newRow("zero quantity with words") << QVariant(0) << u"#,###個"_qs << QString();
        QTest::newRow("quantity with decimals") << QVariant(1234.5) << u"#,###.#"_qs << u"1,234.5"_qs;
        QTest::newRow("quantity with two decimals") << QVariant(0.25) << u"#,###.#"_qs << u"0.25"_qs;
        QTest::newRow("whole quantity") << QVariant(1234.0) << u"#,###.#"_qs << u"1,234"_qs;
        QTest::newRow("no quantity") << QVariant(0.0) << u"#,###.#"_qs << QString();
        QTest::newRow("yen behind") << QVariant(1000) << u"#,##0円"_qs << u"1,000円"_qs;
        QTest::newRow("negative") << QVariant(-1234) << u"#,##0"_qs << u"-1,234"_qs;
        QTest::newRow("half rounds away from zero") << QVariant(2.5) << u"#,##0"_qs << u"3"_qs;
        QTest::newRow("negative half") << QVariant(-2.5) << u"#,##0"_qs << u"-3"_qs;
        QTest::newRow("never set") << QVariant() << u"#,##0円"_qs << QString();
        QTest::newRow("plain digits") << QVariant(12345) << u"0"_qs << u"12345"_qs;
        QTest::newRow("no form") << QVariant(u"下腿義足"_qs) << QString() << u"下腿義足"_qs;
        QTest::newRow("rate without form") << QVariant(10.5) << QString() << u"10.5"_qs;
    }
    void numbersTakeTheirForm() {
        QFETCH(QVariant, value);
        QFETCH(QString, form);
        QTEST(ReportText::number(value, form), "printed");
    }

    void issueDatesTakeTheirForm_data() {
        QTest::addColumn<QString>("date");
        QTest::addColumn<int>("form");
        QTest::addColumn<QString>("printed");
        QTest::newRow("full date") << u"2024/11/03"_qs << 1 << u"令和　６年１１月　３日"_qs;
        QTest::newRow("year and month") << u"2024/11/03"_qs << 2 << u"令和　６年１１月　　日"_qs;
        QTest::newRow("year") << u"2024/01/03"_qs << 3 << u"令和　６年　　月　　日"_qs;
        QTest::newRow("era alone") << u"2024/01/03"_qs << 4 << u"令和　　年　　月　　日"_qs;
        QTest::newRow("first year") << u"2019/05/01"_qs << 1 << u"令和　１年　５月　１日"_qs;
        QTest::newRow("last day of the era before") << u"2019/04/30"_qs << 1 << u"平成３１年　４月３０日"_qs;
        QTest::newRow("day and month of two digits") << u"2028/12/31"_qs << 1 << u"令和１０年１２月３１日"_qs;
    }
    void issueDatesTakeTheirForm() {
        QFETCH(QString, date);
        QFETCH(int, form);
        QTEST(ReportText::issueDate(date, form, false), "printed");
    }

    void anEmptyDateWithTheFlagGivesTheBlankFormOfTodaysEra() {
        QCOMPARE(ReportText::issueDate({}, 1, true), u"令和　　年　　月　　日"_qs);
        FixedClock clock(u"2019/04/30"_qs);
        setSystemDate(u"2024/11/03"_qs); // the override is not today
        QCOMPARE(ReportText::issueDate({}, 1, true), u"平成　　年　　月　　日"_qs);
    }

    void anEmptyDateWithoutTheFlagGivesNothing() { QCOMPARE(ReportText::issueDate({}, 1, false), QString()); }
};

HALVANE_TEST(ReportTextTest)
#include "ReportTextTest.moc"
