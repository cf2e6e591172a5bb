#pragma once

#include "HalvaneTest.h"
#include "support/TestServer.h"

#include "db/ConnectionSettings.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <optional>

// Programs that work until they are killed. Each says a word whenever a piece of its work is done.
namespace Kills {

// How often a test kills: `ofTheDay`, or HALVANE_TEST_KILLS when the environment says so.
inline int count(int ofTheDay) {
    const int asked = qEnvironmentVariableIntValue("HALVANE_TEST_KILLS");
    return asked > 0 ? asked : ofTheDay;
}

// Lets the program come through its first piece of work and kills it at a random moment of the milliseconds that
// follow: of `longest`, or as many as the first piece took. The caller looks at QTest::currentTestFailed().
inline void startAndKill(const QString& program, const QStringList& words, std::optional<int> longest = {}) {
    QProcess worker;
    QElapsedTimer time;
    time.start();
    worker.start(program, words);
    QVERIFY2(worker.waitForReadyRead(patience), qPrintable(QString::fromUtf8(worker.readAllStandardError())));
    const int rest = longest.value_or(static_cast<int>(time.elapsed()));
    QTest::qSleep(QRandomGenerator::global()->bounded(rest + 1));
    ::kill(static_cast<pid_t>(worker.processId()), SIGKILL);
    QVERIFY(worker.waitForFinished(patience));
}

// A server notices only by and by that a program has gone.
inline void endSessions(const ConnectionSettings& office) {
    if (office.provider != Provider::PostgreSQL) return;
    TestServer::scalar(u"SELECT COUNT(pg_terminate_backend(pid, 10000)) FROM pg_stat_activity"
                       u" WHERE datname LIKE '%1%'"_qs.arg(office.database));
}

// The same for a program that works on an office, which nobody has open before and after.
inline void startAndKill(const QString& program, const QStringList& words, const ConnectionSettings& office) {
    endSessions(office);
    startAndKill(program, words);
    endSessions(office);
}

} // namespace Kills
