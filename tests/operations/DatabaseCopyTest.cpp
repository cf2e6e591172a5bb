#include "HalvaneTest.h"
#include "support/TestDatabase.h"
#include "support/TestServer.h"

#include "base/AppError.h"
#include "operations/DatabaseCopy.h"

#include <QFile>
#include <QTest>

namespace {

// A new place for a database on the named engine, taken away at the end. The source's engine is that of the test's
// entry, so that the two entries together go in all four directions.
class Target {
public:
    explicit Target(const QString& engine) {
        if (engine == u"SQLite") {
            settings = ConnectionSettings::sqliteFile(m_folder.filePath(u"copy.db"_qs));
            return;
        }
        settings = TestServer::database(u"halvane_copy_%1"_qs.arg(QCoreApplication::applicationPid()));
    }
    ~Target() {
        if (settings.provider == Provider::PostgreSQL) TestServer::drop(settings.database);
    }

    bool exists() const {
        if (settings.provider == Provider::SQLite) return QFile::exists(settings.path);
        return TestServer::has(settings.database);
    }
    std::unique_ptr<Connection> open() const {
        auto connection = std::make_unique<Connection>(settings);
        connection->open();
        return connection;
    }

    ConnectionSettings settings;

private:
    QTemporaryDir m_folder;
};

QStringList contents(Connection& connection, const Schema::Table& table) {
    QStringList lines;
    Recordset rows = connection.query(u"SELECT * FROM [%1]"_qs.arg(table.name));
    while (rows.next()) {
        QStringList fields;
        for (const Schema::Column& column : table.columns)
            fields << (rows.isNull(column.name) ? u"NULL"_qs : u'"' + rows.value(column.name) + u'"');
        lines << fields.join(u',');
    }
    lines.sort();
    return lines;
}

const DatabaseCopy::Comparison* lineOf(const QList<DatabaseCopy::Comparison>& lines, const QString& table) {
    for (const auto& line : lines)
        if (line.table == table) return &line;
    return nullptr;
}

} // namespace

class DatabaseCopyTest : public QObject {
    Q_OBJECT

    static void bothEngines() {
        QTest::addColumn<QString>("engine");
        QTest::newRow("to SQLite") << u"SQLite"_qs;
        QTest::newRow("to PostgreSQL") << u"PostgreSQL"_qs;
    }

private slots:
    void everyRowOfTheSampleOfficeArrives_data() { bothEngines(); }
    void everyRowOfTheSampleOfficeArrives() {
        QFETCH(QString, engine);
        TestDatabase source(TestDatabase::Contents::Sample);
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        const auto copy = target.open();
        for (const Schema::Table& table : Schema::tables())
            QCOMPARE(contents(*copy, table), contents(source.connection(), table));
    }

    void closingTableHoldsRowsAndYenOfBothSides_data() { bothEngines(); }
    void closingTableHoldsRowsAndYenOfBothSides() {
        QFETCH(QString, engine);
        TestDatabase source(TestDatabase::Contents::Sample);
        const Target target(engine);
        const auto lines = DatabaseCopy::copy(source.settings(), target.settings);
        QCOMPARE(lines.size(), Schema::tables().size());
        const auto* claims = lineOf(lines, u"顧客見積請求"_qs);
        QVERIFY(claims && claims->agrees() && claims->to.rows > 100);
        const QString sum = u"SELECT SUM([%1]) FROM [顧客見積請求]"_qs;
        const qint64 yen = source.connection().scalar(sum.arg(u"請求金額"_qs)).toLongLong() +
                           source.connection().scalar(sum.arg(u"領収金額"_qs)).toLongLong();
        QVERIFY(yen > 0);
        QCOMPARE(claims->to.yen, QString::number(yen));
    }

    void unusualValuesArriveAsTheyWere_data() { bothEngines(); }
    void unusualValuesArriveAsTheyWere() {
        QFETCH(QString, engine);
        TestDatabase source;
        source.connection().execute(
            u"INSERT INTO [顧客情報] ([顧客ID], [顧客枝番], [名前1], [名前2], [住所1], [登録日], [更新日], [備考]) "
            u"VALUES ('%_[]', -2147483648, '𠮷田🦿', '', 'O''Brien \"\\', #1753/01/01#, #2026/02/28 23:59:59#, NULL)"_qs);
        source.connection().execute(u"INSERT INTO [顧客見積情報] ([見積ID], [耐用年数], [合計], [見積総合計]) "
                                    u"VALUES ('1', 1.5, -0.25, 900000000000000)"_qs);
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        const auto copy = target.open();
        for (const QString& table : {u"顧客情報"_qs, u"顧客見積情報"_qs})
            QCOMPARE(contents(*copy, *Schema::table(table)), contents(source.connection(), *Schema::table(table)));
    }

    void issuedKeysGoOnBehindRowsThatAreGone_data() { bothEngines(); }
    void issuedKeysGoOnBehindRowsThatAreGone() {
        QFETCH(QString, engine);
        TestDatabase source;
        const QString insert = u"INSERT INTO [主治医] ([主治医]) VALUES ('山田')"_qs;
        const QString highest = u"SELECT MAX([主治医No]) FROM [主治医]"_qs;
        for (int i = 0; i < 3; ++i) source.connection().execute(insert);
        source.connection().execute(u"DELETE FROM [主治医] WHERE [主治医No] = 3"_qs);
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        const auto copy = target.open();
        QCOMPARE(copy->scalar(highest), u"2"_qs);
        copy->execute(insert);
        QCOMPARE(copy->scalar(highest), u"4"_qs);
    }

    void issuedKeysOfAnEmptyTableStartAtOne_data() { bothEngines(); }
    void issuedKeysOfAnEmptyTableStartAtOne() {
        QFETCH(QString, engine);
        TestDatabase source;
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        const auto copy = target.open();
        copy->execute(u"INSERT INTO [主治医] ([主治医]) VALUES ('山田')"_qs);
        QCOMPARE(copy->scalar(u"SELECT MAX([主治医No]) FROM [主治医]"_qs), u"1"_qs);
    }

    void ownRowsOfABrokenOffRevisionGoAlong_data() { bothEngines(); }
    void ownRowsOfABrokenOffRevisionGoAlong() {
        QFETCH(QString, engine);
        TestDatabase source;
        source.connection().createTable(*Schema::table(u"価格加算"_qs), u"価格加算_個別"_qs);
        source.connection().execute(u"INSERT INTO [価格加算_個別] ([ID], [新価格]) VALUES (9000001, 1200)"_qs);
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        QCOMPARE(target.open()->scalar(u"SELECT [新価格] FROM [価格加算_個別]"_qs), u"1200"_qs);
    }

    void existingDatabaseIsNotTouched_data() { bothEngines(); }
    void existingDatabaseIsNotTouched() {
        QFETCH(QString, engine);
        TestDatabase source;
        const Target target(engine);
        DatabaseCopy::copy(source.settings(), target.settings);
        target.open()->execute(u"UPDATE [企業情報] SET [企業名] = '先客'"_qs);
        QVERIFY_EXCEPTION_THROWN(DatabaseCopy::copy(source.settings(), target.settings), AppError);
        QCOMPARE(target.open()->scalar(u"SELECT [企業名] FROM [企業情報]"_qs), u"先客"_qs);
    }

    void failureHalfwayLeavesNothing_data() { bothEngines(); }
    void failureHalfwayLeavesNothing() {
        QFETCH(QString, engine);
        TestDatabase source;
        source.connection().execute(u"DROP TABLE [企業情報]"_qs); // the last one to be copied
        const Target target(engine);
        QVERIFY_EXCEPTION_THROWN(DatabaseCopy::copy(source.settings(), target.settings), AppError);
        QVERIFY(!target.exists());
    }

    // Parts of a yen that only a file can hold.
    void differingTotalsLeaveNothing() {
        if (TestDatabase::isPostgres()) QSKIP("A server holds no such parts, and nothing to copy them from.");
        TestDatabase source;
        for (int i = 0; i < 3; ++i)
            source.connection().execute(
                u"INSERT INTO [顧客見積情報] ([見積ID], [合計]) VALUES ('%1', 0.00003)"_qs.arg(i));
        const Target target(u"PostgreSQL"_qs);
        try {
            DatabaseCopy::copy(source.settings(), target.settings);
            QFAIL("copied");
        } catch (const AppError& error) {
            QVERIFY(error.description().contains(u"一致しません"_qs));
            QVERIFY(error.description().contains(u"0.0001"_qs));
        }
        QVERIFY(!target.exists());
    }

    void nobodyWritesToTheSourceMeanwhile() {
        TestDatabase source;
        ConnectionSettings impatient = source.settings();
        impatient.timeout = 1;
        Connection other(impatient);
        other.open();
        const Target target(u"SQLite"_qs);
        bool refused = false;
        bool asked = false;
        DatabaseCopy::copy(source.settings(), target.settings, DatabaseCopy::Others::Wait, [&](const QString& line) {
            if (asked || !line.startsWith(u"顧客カルテ"_qs)) return;
            asked = true;
            try {
                other.execute(u"UPDATE [企業情報] SET [企業名] = '割込'"_qs);
            } catch (const AppError&) {
                refused = true;
            }
        });
        QVERIFY(refused);
        QCOMPARE(target.open()->scalar(u"SELECT COUNT(*) FROM [企業情報] WHERE [企業名] = '割込'"_qs), u"0"_qs);
    }

    void reportMarksWhatDiffers() {
        using DatabaseCopy::Comparison;
        const QStringList lines =
            DatabaseCopy::report({Comparison{u"法別"_qs, {15, u"0"_qs}, {15, u"0"_qs}},
                                  Comparison{u"顧客見積請求"_qs, {2, u"300"_qs}, {2, u"299"_qs}}});
        QCOMPARE(lines.size(), 3);
        QVERIFY(!lines.at(1).contains(u"不一致"_qs));
        QVERIFY(lines.at(2).contains(u"300"_qs) && lines.at(2).contains(u"299"_qs));
        QVERIFY(lines.at(2).endsWith(u"不一致"_qs));
    }
};

HALVANE_TEST(DatabaseCopyTest)
#include "DatabaseCopyTest.moc"
