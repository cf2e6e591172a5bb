// One machine of an office under load, as a process of its own.
//
//   number_worker FILE.ini draw COUNT   draws that many numbers of the series 見積ID, as fast as it can
//   number_worker FILE.ini save STOP    saves orders until the file STOP exists; takes every third one back
//
// Writes each number that it has got for good on a line, then "longest", the milliseconds of the longest wait. An error
// that an operator would have seen goes to standard error, and the process fails.
#include "base/AppError.h"
#include "base/Application.h"
#include "base/clsProfile.h"
#include "db/clsAutoIdsManager.h"
#include "estimates/EstimateManagers.h"
#include "operations/Managers.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

namespace {

qint64 longest = 0;

template <class Step> void timed(Step step) {
    QElapsedTimer timer;
    timer.start();
    step();
    longest = qMax(longest, timer.elapsed());
}

void keep(const QString& number) { std::printf("%s\n", qUtf8Printable(number)); }

void drawNumbers(int count) {
    for (int i = 0; i < count; ++i) {
        QString number;
        timed([&] { number = gAutoIdsManager.GetNewId(u"見積ID"_qs); });
        if (number.isEmpty()) throw AppError(u"no number"_qs);
        keep(number);
    }
}

clsCsEstimate newEstimate() {
    clsCsEstimate estimate;
    estimate.CustId = u"00000001"_qs;
    estimate.CustSubId = u"1"_qs;
    estimate.ChartNo = u"1"_qs;
    estimate.EstNm = u"短下肢装具"_qs;
    estimate.ProcKbnNo = u"9"_qs;
    estimate.EstSum = u"54000"_qs;
    return estimate;
}

QList<clsCsEstAsk> claimsOf(const clsCsEstimate& estimate) {
    QList<clsCsEstAsk> claims;
    for (const QString& number : {u"1"_qs, u"2"_qs}) {
        clsCsEstAsk claim;
        claim.EstId = estimate.EstId;
        claim.AskNo = number;
        claim.AskPrice = u"27000"_qs;
        claims << claim;
    }
    return claims;
}

QString saveOrder(Connection& connection, bool takeBack) {
    Transaction transaction(connection);
    clsCsEstimate estimate = newEstimate();
    gCsEstimateManager.SaveData(estimate);
    gCsEstAskManager.SaveData(claimsOf(estimate));
    if (takeBack) return {};
    transaction.commit();
    gCsEstimateManager.UpdPayDate(estimate.EstId, u"2026/10/30"_qs, u"1"_qs, false); // a write without a transaction
    return estimate.EstId;
}

void saveOrders(Connection& connection, const QString& stopFile) {
    for (int i = 1; !QFile::exists(stopFile); ++i) {
        QString number;
        timed([&] { number = saveOrder(connection, i % 3 == 0); });
        if (!number.isEmpty()) keep(number);
    }
}

void work(const QStringList& words) {
    setSystemDate({});
    Connection connection(ConnectionSettings::fromProfile(clsProfile(words.at(1))));
    connection.open();
    Managers::prepare(connection);
    if (words.at(2) == u"draw") drawNumbers(words.at(3).toInt());
    else saveOrders(connection, words.at(3));
    Managers::release();
    std::printf("longest %lld\n", longest);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    if (words.size() != 4) return 2;
    try {
        work(words);
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
