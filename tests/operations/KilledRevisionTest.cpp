#include "HalvaneTest.h"
#include "support/Kills.h"
#include "support/PriceSamples.h"
#include "support/TestDatabase.h"

#include "price/clsKDBManager.h"

#include <QDir>
#include <QTest>

namespace {

int kills() { return Kills::count(4); }

} // namespace

// The power goes, or the program is killed, at any moment of a price revision.
class KilledRevisionTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    // A master estimate one line of which is two of the first element of the price files.
    static QString masterOfTheFirstElement(Connection& office) {
        const QString id = office.scalar(u"SELECT MIN([製品ID]) FROM [マスタ見積基本製作要素]"_qs);
        office.execute(
            u"UPDATE [マスタ見積種目] SET [種目] = '下肢装具', [採型区分] = 'E-9' WHERE [製品ID] = '%1'"_qs.arg(id));
        office.execute(u"UPDATE [マスタ見積基本製作要素] SET [製作要素] = '要素1', [原材料等] = '皮革', [数量] = 2"
                       " WHERE [製品ID] = '%1'"_qs.arg(id));
        return id;
    }

    static void verifyYear(Connection& office, const QHash<QString, int>& prices, int rows, const QString& master) {
        if (!TestDatabase::isPostgres()) QCOMPARE(office.engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
        const QString year = office.scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = 20"_qs);
        QVERIFY2(prices.contains(year), qPrintable(year));
        const int price = prices.value(year);
        const int sum = rows * price + rows * (rows + 1) / 2;
        for (const QString& table : {u"価格加算"_qs, u"価格部品"_qs})
            QCOMPARE(office.scalar(u"SELECT SUM([新価格]) FROM [%1]"_qs.arg(table)).toInt(), sum);
        for (const QString& table : {u"価格基本"_qs, u"価格要素"_qs})
            QCOMPARE(office.scalar(u"SELECT SUM([新価格３]) FROM [%1]"_qs.arg(table)).toInt(), sum);
        QCOMPARE(office.scalar(u"SELECT COUNT(*) FROM [価格種目]"_qs).toInt(), rows);
        QCOMPARE(office.scalar(u"SELECT [部品コード] FROM [価格部品] WHERE [ID] > 9000000"_qs), u"OWN"_qs);
        QCOMPARE(office.scalar(u"SELECT COUNT(*) FROM [マスタ見積情報] WHERE [価格設定年度] <> '%1'"_qs.arg(year)),
                 u"0"_qs);
        QCOMPARE(
            office.scalar(u"SELECT MIN([大人価格]) FROM [マスタ見積基本製作要素] WHERE [製品ID] = '%1'"_qs.arg(master))
                .toInt(),
            2 * (price + 1));
        QCOMPARE(office.scalar(u"SELECT COUNT(*) FROM [基本要素選択]"_qs).toInt(), 5 + 1 + 2 * rows);
        for (const QString& table : Schema::priceTables())
            QVERIFY(!office.tableExists(clsKDBManager::ownRowsTable(table)));
    }

private slots:
    void init() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample); }
    void cleanup() { m_database.reset(); }

    // The prices, the year, the choices and the master estimates are those of one year, and of one as a whole.
    void thePricesAreThoseOfOneYear() {
        const QHash<QString, int> prices{{u"2027"_qs, 1000}, {u"2028"_qs, 5000}};
        constexpr int rows = 200;
        const QString folder = m_database->folder() + u"/years"_qs;
        for (auto year = prices.begin(); year != prices.end(); ++year)
            PriceSamples::writeYear(QDir(folder).filePath(year.key()), PriceSamples::largeFiles(rows, year.value()));
        m_database->writeProfile(u"ConnectionTimeout=30\r\n"_qs + PriceSamples::profile);
        Connection& office = m_database->connection();
        office.execute(
            u"INSERT INTO [価格部品] ([ID],[種目],[部品コード],[新価格]) VALUES (9000001,'義足','OWN',0)"_qs);
        const QString master = masterOfTheFirstElement(office);
        office.close();
        for (int i = 0; i < kills(); ++i) {
            // The first revision of each round is the one that follows a killed one, and comes through.
            Kills::startAndKill(QStringLiteral(HALVANE_OFFICE_KEEPER), {u"revision"_qs, m_database->folder(), folder},
                                m_database->settings());
            if (QTest::currentTestFailed()) return;
            verifyYear(*m_database->another(), prices, rows, master);
            if (QTest::currentTestFailed()) return;
        }
        qInfo("%d kills", kills());
    }
};

HALVANE_TEST(KilledRevisionTest)
#include "KilledRevisionTest.moc"
