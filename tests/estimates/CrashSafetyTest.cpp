#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/Kills.h"
#include "support/MasterSamples.h"
#include "support/TestDatabase.h"

#include <QTest>

namespace {

int kills() { return Kills::count(15); }

// `what` says what is saved, see the program.
void saveAndKill(const QString& iniFile, const QString& what = {}) {
    Kills::startAndKill(QStringLiteral(HALVANE_ORDER_SAVER), {iniFile, what}, 120);
}

} // namespace

// The power goes, or the program is killed, at any moment of a save.
class CrashSafetyTest : public QObject {
    Q_OBJECT

private:
    static QString orphansOf(Connection& connection, const QString& table, const QString& owners = u"顧客見積情報"_qs,
                             const QString& key = u"見積ID"_qs) {
        return connection.scalar(u"SELECT COUNT(*) FROM [%1] LEFT JOIN [%2] ON [%1].[%3] = [%2].[%3] "
                                 u"WHERE [%2].[%3] IS NULL"_qs.arg(table, owners, key));
    }

    static QHash<QString, int> rowsByOrder(Connection& connection, const QString& table,
                                           const QString& key = u"見積ID"_qs) {
        QHash<QString, int> counts;
        Recordset rows = connection.query(u"SELECT [%1], COUNT(*) AS CNT FROM [%2] GROUP BY [%1]"_qs.arg(key, table));
        while (rows.next()) counts.insert(rows.value(0), rows.value(1).toInt());
        return counts;
    }

    static int wholeEstimates(Connection& connection) {
        const QHash<QString, int> lines = rowsByOrder(connection, u"顧客見積基本製作要素"_qs);
        const QHash<QString, int> claims = rowsByOrder(connection, u"顧客見積請求"_qs);
        int whole = 0;
        Recordset estimates = connection.query(u"SELECT [見積ID], [見積名称] FROM [顧客見積情報]"_qs);
        while (estimates.next()) {
            const QString id = estimates.value(0);
            if (EstimateSamples::nameFor(lines.value(id), claims.value(id)) != estimates.value(1)) return -1;
            ++whole;
        }
        return whole;
    }

    // How many master estimates there are; -1 when one is not as one save left it.
    static int wholeMasters(Connection& connection) {
        const QHash<QString, int> lines = rowsByOrder(connection, u"マスタ見積基本製作要素"_qs, u"製品ID"_qs);
        const QHash<QString, int> items = rowsByOrder(connection, u"マスタ見積種目"_qs, u"製品ID"_qs);
        int whole = 0;
        Recordset masters = connection.query(u"SELECT [製品ID], [製品名称], [大人価格] FROM [マスタ見積情報]"_qs);
        while (masters.next()) {
            const int count = lines.value(masters.value(0));
            const bool fits = MasterSamples::nameFor(count) == masters.value(1) &&
                              masters.value(2) == QString::number(300 * count) && items.value(masters.value(0)) == 1;
            if (!fits) return -1;
            ++whole;
        }
        return whole;
    }

private slots:
    void everyOrderIsWholeOrNotAtAllAfterKills() {
        TestDatabase database;
        database.writeProfile(u"ConnectionTimeout=30\r\n"_qs);
        int before = 0;
        for (int i = 0; i < kills(); ++i) {
            saveAndKill(database.folder() + u"/Halvane.ini"_qs);
            if (QTest::currentTestFailed()) return;
            const auto connection = database.another();
            if (!TestDatabase::isPostgres()) QCOMPARE(connection->engineScalar(u"PRAGMA integrity_check"_qs), u"ok"_qs);
            for (const QString& table : {u"顧客見積種目"_qs, u"顧客見積基本製作要素"_qs, u"顧客見積請求"_qs})
                QCOMPARE(orphansOf(*connection, table), u"0"_qs);
            const int estimates = wholeEstimates(*connection);
            QVERIFY2(estimates > before, qPrintable(u"%1 whole estimates after %2"_qs.arg(estimates).arg(before)));
            before = estimates;
        }
        qInfo("%d kills, %d orders stored", kills(), before);
    }

    void everyMasterIsWholeOrNotAtAllAfterKills() {
        TestDatabase database;
        database.writeProfile(u"ConnectionTimeout=30\r\n"_qs);
        int before = 0;
        for (int i = 0; i < kills(); ++i) {
            saveAndKill(database.folder() + u"/Halvane.ini"_qs, u"masters"_qs);
            if (QTest::currentTestFailed()) return;
            const auto connection = database.another();
            for (const QString& table : {u"マスタ見積種目"_qs, u"マスタ見積基本製作要素"_qs})
                QCOMPARE(orphansOf(*connection, table, u"マスタ見積情報"_qs, u"製品ID"_qs), u"0"_qs);
            QCOMPARE(
                connection->scalar(u"SELECT COUNT(*) FROM [マスタ見積情報] AS A INNER JOIN [マスタ見積情報] AS B ON "
                                   u"A.[製品コード] = B.[製品コード] WHERE A.[製品ID] < B.[製品ID]"_qs),
                u"0"_qs);
            const int masters = wholeMasters(*connection);
            QVERIFY2(masters > before, qPrintable(u"%1 whole masters after %2"_qs.arg(masters).arg(before)));
            before = masters;
        }
        qInfo("%d kills, %d masters stored", kills(), before);
    }
};

HALVANE_TEST(CrashSafetyTest)
#include "CrashSafetyTest.moc"
