// One machine of an office under load, as a process of its own.
//
//   number_worker FILE.ini draw COUNT   draws that many numbers of the series 見積ID, as fast as it can
//   number_worker FILE.ini save STOP    saves orders until the file STOP exists; takes every third one back
//   number_worker FILE.ini codes COUNT  stores master estimates under that many codes, the same on every machine
//
// Writes each number that it has got for good on a line, then "longest", the milliseconds of the longest wait. An error
// that an operator would have seen goes to standard error, and the process fails.
#include "support/EstimateSamples.h"
#include "support/MasterSamples.h"

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

QString saveEstimate(Connection& connection, bool takeBack) {
    Transaction transaction(connection);
    EstimateDraft draft = EstimateSamples::order(5, 2);
    saveEstimate(connection, draft, {});
    if (takeBack) return {};
    transaction.commit();
    const QString number = draft.estimate.EstId;
    gCsEstimateManager.UpdPayDate(number, u"2026/10/30"_qs, u"1"_qs, false); // a write without a transaction
    return number;
}

void saveEstimates(Connection& connection, const QString& stopFile) {
    for (int i = 1; !QFile::exists(stopFile); ++i) {
        QString number;
        timed([&] { number = saveEstimate(connection, i % 3 == 0); });
        if (!number.isEmpty()) keep(number);
    }
}

void storeCodes(Connection& connection, int count) {
    for (int i = 0; i < count; ++i) {
        MasterDraft draft = MasterSamples::master(u"M-%1"_qs.arg(i), 1 + i % 5);
        MasterSave came = MasterSave::Refused;
        timed([&] { came = saveMaster(connection, draft, [](const QString&) { return false; }); });
        if (came == MasterSave::Saved) keep(draft.master.ProductId);
        if (came != MasterSave::Saved && came != MasterSave::WrongCode) throw AppError(u"refused"_qs);
    }
}

void work(const QStringList& words) {
    setSystemDate({});
    Connection connection(ConnectionSettings::fromProfile(clsProfile(words.at(1))));
    connection.open();
    Managers::prepare(connection);
    if (words.at(2) == u"draw")
        drawNumbers(words.at(3).toInt());
    else if (words.at(2) == u"codes")
        storeCodes(connection, words.at(3).toInt());
    else
        saveEstimates(connection, words.at(3));
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
