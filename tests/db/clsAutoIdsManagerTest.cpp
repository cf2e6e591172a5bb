#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/Application.h"
#include "db/clsAutoIdsManager.h"

#include <QSet>

#include <thread>

namespace {

void setSeries(Connection& connection, const QString& last, int digits, const QString& year) {
    connection.execute(u"DELETE FROM [採番]"_qs);
    connection.execute(u"INSERT INTO 採番 ([項目名], [最終値], [桁], [年度]) VALUES ('x''s', '%1', %2, %3)"_qs.arg(
        last, QString::number(digits), year.isEmpty() ? u"NULL"_qs : u'\'' + year + u'\''));
}

QString series(Connection& connection) {
    Recordset rows = connection.query(u"SELECT [最終値], [年度] FROM [採番]"_qs);
    return rows.next() ? rows.value(0) + u'/' + rows.value(1) : QString();
}

} // namespace

class clsAutoIdsManagerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Empty); }
    void cleanupTestCase() { m_database.reset(); }
    void cleanup() { setSystemDate({}); }

    void numbersFollow_data() {
        QTest::addColumn<QString>("last");
        QTest::addColumn<int>("digits");
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("drawn");
        QTest::addColumn<QString>("kept");
        const auto row = [](const char* name, const QString& last, int digits, const QString& year,
                            const QString& drawn,
                            const QString& kept) { QTest::newRow(name) << last << digits << year << drawn << kept; };
        row("yearly series in a new year", u"000123"_qs, 6, u"2023"_qs, u"000001"_qs, u"000001/2024"_qs);
        row("yearly series in its year", u"000123"_qs, 6, u"2024"_qs, u"000124"_qs, u"000124/2024"_qs);
        row("series without a year", u"000123"_qs, 6, {}, u"000124"_qs, u"000124/"_qs);
        row("year of blanks", u"000123"_qs, 6, u"   "_qs, u"000124"_qs, u"000124/   "_qs);
        row("width grows", u"999999"_qs, 6, {}, u"1000000"_qs, u"1000000/"_qs);
        row("longer than its digits", u"9000000"_qs, 3, {}, u"9000001"_qs, u"9000001/"_qs);
        row("no padding", u"7"_qs, 0, {}, u"8"_qs, u"8/"_qs);
        row("empty last value", u""_qs, 4, {}, u"0001"_qs, u"0001/"_qs);
        row("later year goes back as well", u"000009"_qs, 6, u"2025"_qs, u"000001"_qs, u"000001/2024"_qs);
    }
    void numbersFollow() {
        QFETCH(QString, last);
        QFETCH(int, digits);
        QFETCH(QString, year);
        setSystemDate(u"2024/04/01"_qs);
        setSeries(m_database->connection(), last, digits, year);
        QTEST(manager().GetNewId(u"x's"_qs), "drawn");
        QTEST(series(m_database->connection()), "kept");
    }

    void dateOverrideDecidesTheYear() {
        FixedClock clock(u"2024/03/10"_qs);
        setSystemDate(u"2005/04/01"_qs);
        setSeries(m_database->connection(), u"000005"_qs, 6, u"2024"_qs);
        QCOMPARE(manager().GetNewId(u"x's"_qs), u"000001"_qs);
        QCOMPARE(series(m_database->connection()), u"000001/2005"_qs);
    }

    // A machine left on over New Year beside one that was started since.
    void newYearIsNoticedUnderWay() {
        FixedClock clock(u"2026/12/31 17:00:00"_qs);
        setSystemDate({});
        setSeries(m_database->connection(), u"000120"_qs, 6, u"2026"_qs);
        clsAutoIdsManager leftOn = manager();
        QCOMPARE(leftOn.GetNewId(u"x's"_qs), u"000121"_qs);
        clock.set(u"2027/01/04 9:00:00"_qs);
        QCOMPARE(leftOn.GetNewId(u"x's"_qs), u"000001"_qs);
        QCOMPARE(gSysYear, u"2027"_qs);
        QCOMPARE(leftOn.GetNewId(u"x's"_qs), u"000002"_qs);
        QCOMPARE(series(m_database->connection()), u"000002/2027"_qs);
    }

    void clockSetBackDoesNotStartTheSeriesOver() {
        FixedClock clock(u"2031/04/01"_qs);
        setSystemDate({});
        setSeries(m_database->connection(), u"000120"_qs, 6, u"2026"_qs);
        clsAutoIdsManager numbers = manager();
        QCOMPARE(numbers.GetNewId(u"x's"_qs), u"000001"_qs);
        clock.set(u"2026/04/01"_qs);
        QCOMPARE(numbers.GetNewId(u"x's"_qs), u"000002"_qs);
        QCOMPARE(series(m_database->connection()), u"000002/2031"_qs);
    }

    void damagedSeriesDoesNotStartAnew() {
        setSeries(m_database->connection(), u"00x005"_qs, 6, {});
        QCOMPARE(raised([&] { manager().GetNewId(u"x's"_qs); }), u"データ型が一致しません。"_qs);
        QCOMPARE(series(m_database->connection()), u"00x005/"_qs);
        QCOMPARE(m_database->connection().transactionDepth(), 0);
    }

    void unknownSeriesGivesNothing() {
        setSeries(m_database->connection(), u"000005"_qs, 6, {});
        QCOMPARE(manager().GetNewId(u"y"_qs), QString());
        QCOMPARE(series(m_database->connection()), u"000005/"_qs);
        QCOMPARE(m_database->connection().transactionDepth(), 0);
    }

    void drawIsUndoneWithTheCallersTransaction() {
        Connection& connection = m_database->connection();
        setSeries(connection, u"000005"_qs, 6, {});
        clsAutoIdsManager numbers = manager();
        connection.begin();
        QCOMPARE(numbers.GetNewId(u"x's"_qs), u"000006"_qs);
        QCOMPARE(numbers.GetNewId(u"x's"_qs), u"000007"_qs);
        connection.rollback();
        QCOMPARE(numbers.GetNewId(u"x's"_qs), u"000006"_qs);
    }

    void machinesNeverDrawOneNumber() {
        constexpr int machines = 4, draws = 15;
        setSeries(m_database->connection(), u"000000"_qs, 6, {});
        std::vector<std::thread> threads;
        std::vector<QStringList> drawn(machines);
        ConnectionSettings settings = m_database->settings();
        settings.timeout = 60;
        for (int i = 0; i < machines; ++i)
            threads.emplace_back([&, i] {
                Connection connection(settings);
                connection.open();
                clsAutoIdsManager numbers;
                numbers.Prepare(connection);
                for (int n = 0; n < draws; ++n) drawn[i] << numbers.GetNewId(u"x's"_qs);
            });
        for (std::thread& thread : threads) thread.join();
        QSet<QString> numbers;
        for (const QStringList& list : drawn) numbers += QSet<QString>(list.begin(), list.end());
        QCOMPARE(numbers.size(), machines * draws);
        QCOMPARE(series(m_database->connection()), u"%1/"_qs.arg(machines * draws, 6, 10, QChar(u'0')));
    }

private:
    clsAutoIdsManager manager() {
        clsAutoIdsManager numbers;
        numbers.Prepare(m_database->connection());
        return numbers;
    }

    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(clsAutoIdsManagerTest)
#include "clsAutoIdsManagerTest.moc"
