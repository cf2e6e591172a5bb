#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>

namespace {

constexpr int drawers = 8;

// The daily run draws fewer; HALVANE_DRAWS=1000 is the full load.
int drawsOfEach() {
    return qEnvironmentVariableIsSet("HALVANE_DRAWS") ? qEnvironmentVariableIntValue("HALVANE_DRAWS") : 100;
}

struct Worker {
    std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
    QList<qint64> numbers;
    qint64 longest = 0;

    void start(const QStringList& words) { process->start(QStringLiteral(HALVANE_NUMBER_WORKER), words); }
    bool finish() {
        const bool done = process->waitForFinished(-1) && process->exitStatus() == QProcess::NormalExit;
        for (const QByteArray& line : process->readAllStandardOutput().split('\n')) {
            if (line.startsWith("longest "))
                longest = line.mid(8).toLongLong();
            else if (!line.isEmpty())
                numbers << line.toLongLong();
        }
        return done && process->exitCode() == 0;
    }
    QByteArray complaint() { return process->readAllStandardError(); }
};

} // namespace

class NumberDrawingTest : public QObject {
    Q_OBJECT

private slots:
    // Eight machines draw from one series while a ninth saves orders with numbers of the same series. A save that is
    // taken back gives its number back, too, so that there is no gap at all.
    void manyMachinesNeverGetOneNumberTwice() {
        TestDatabase database(TestDatabase::Contents::Sample);
        database.writeProfile();
        const QString profile = database.folder() + u"/Halvane.ini"_qs;
        const QString stop = database.folder() + u"/stop"_qs;
        const qint64 before = lastNumber(database.connection());
        const QString estimates = u"SELECT COUNT(*) FROM [顧客見積情報]"_qs;
        const int saved = database.connection().scalar(estimates).toInt();

        QElapsedTimer timer;
        timer.start();
        Worker saver;
        saver.start({profile, u"save"_qs, stop});
        std::vector<Worker> workers(drawers);
        for (Worker& worker : workers) worker.start({profile, u"draw"_qs, QString::number(drawsOfEach())});
        for (Worker& worker : workers) QVERIFY2(worker.finish(), worker.complaint());
        const qint64 elapsed = timer.elapsed();
        QVERIFY(QFile(stop).open(QIODevice::WriteOnly));
        QVERIFY2(saver.finish(), saver.complaint());

        qint64 longest = saver.longest;
        QList<qint64> all = saver.numbers;
        for (const Worker& worker : workers) {
            QCOMPARE(worker.numbers.size(), drawsOfEach());
            all << worker.numbers;
            longest = qMax(longest, worker.longest);
        }
        std::sort(all.begin(), all.end());
        for (qsizetype i = 0; i < all.size(); ++i) QCOMPARE(all.at(i), before + 1 + i);
        QCOMPARE(lastNumber(database.connection()), all.last());
        QCOMPARE(database.connection().scalar(estimates).toInt(), saved + int(saver.numbers.size()));
        qInfo("%lld numbers in %lld ms, %lld orders saved, longest wait %lld ms", qint64(all.size()), elapsed,
              qint64(saver.numbers.size()), longest);
    }

    // Each code is stored by one of them, and told to all others as taken.
    void machinesThatStoreUnderOneNewCodeLeaveOneRow() {
        TestDatabase database;
        database.writeProfile(u"ConnectionTimeout=30\r\n"_qs);
        constexpr int machines = 4;
        const int codes = drawsOfEach() / 2;
        std::vector<Worker> workers(machines);
        for (Worker& worker : workers)
            worker.start({database.folder() + u"/Halvane.ini"_qs, u"codes"_qs, QString::number(codes)});
        QList<qint64> stored;
        for (Worker& worker : workers) {
            QVERIFY2(worker.finish(), worker.complaint());
            stored << worker.numbers;
        }
        QCOMPARE(stored.size(), codes);
        QCOMPARE(QSet<qint64>(stored.begin(), stored.end()).size(), codes);
        QCOMPARE(database.connection().scalar(u"SELECT COUNT(*) FROM [マスタ見積情報]"_qs).toInt(), codes);
        QCOMPARE(database.connection().scalar(u"SELECT COUNT(*) FROM [マスタ見積種目]"_qs).toInt(), codes);
    }

private:
    static qint64 lastNumber(Connection& connection) {
        return connection.scalar(u"SELECT [最終値] FROM [採番] WHERE [項目名] = '見積ID'"_qs).toLongLong();
    }
};

HALVANE_TEST(NumberDrawingTest)
#include "NumberDrawingTest.moc"
