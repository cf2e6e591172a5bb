#include "HalvaneTest.h"
#include "support/EstimateSamples.h"
#include "support/TestDatabase.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>

namespace {

constexpr int killsOfTheDay = 15;
constexpr int longestRun = 120; // milliseconds of saving before a kill

int kills() {
    const int asked = qEnvironmentVariableIntValue("HALVANE_TEST_KILLS");
    return asked > 0 ? asked : killsOfTheDay;
}

// Starts the saver and kills it at a random moment after its first order.
void saveAndKill(const QString& iniFile) {
    QProcess saver;
    saver.start(QStringLiteral(HALVANE_ORDER_SAVER), {iniFile});
    QVERIFY2(saver.waitForReadyRead(patience), qPrintable(QString::fromUtf8(saver.readAllStandardError())));
    QTest::qSleep(static_cast<int>(QRandomGenerator::global()->bounded(longestRun)));
    ::kill(static_cast<pid_t>(saver.processId()), SIGKILL);
    QVERIFY(saver.waitForFinished(patience));
}

} // namespace

// The power goes, or the program is killed, at any moment of a save.
class CrashSafetyTest : public QObject {
    Q_OBJECT

private:
    static QString orphansOf(Connection& connection, const QString& table) {
        return connection.scalar(
            u"SELECT COUNT(*) FROM [%1] LEFT JOIN [顧客見積情報] ON [%1].[見積ID] = [顧客見積情報].[見積ID] "
            u"WHERE [顧客見積情報].[見積ID] IS NULL"_qs.arg(table));
    }

    static QHash<QString, int> rowsByOrder(Connection& connection, const QString& table) {
        QHash<QString, int> counts;
        Recordset rows =
            connection.query(u"SELECT [見積ID], COUNT(*) AS CNT FROM [%1] GROUP BY [見積ID]"_qs.arg(table));
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
};

HALVANE_TEST(CrashSafetyTest)
#include "CrashSafetyTest.moc"
