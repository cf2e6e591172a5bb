#include "HalvaneTest.h"

#include "base/Application.h"
#include "reports/ReportText.h"
#include "support/MessageQueue.h"

class ReportTextTest : public QObject {
    Q_OBJECT

private slots:
    void init() { setSystemDate(u"2024/11/03"_qs); }

    void numbersTakeTheirForm_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("printed");
        QTest::newRow("thousands") << QVariant(1234567) << u"#,##0"_qs << u"1,234,567"_qs;
        QTest::newRow("zero amount") << QVariant(0) << u"#,##0"_qs << u"0"_qs;
        QTest::newRow("zero quantity") << QVariant(0) << u"#,###"_qs << QString();
        QTest::newRow("zero quantity with words") << QVariant(0) << u"#,###個"_qs << QString();
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
