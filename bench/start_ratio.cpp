// Starts the program up to its menu, and an empty window, in turn; fails when the menu takes more than the bound.
#include "base/AppError.h"
#include "operations/DatabaseCreation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int rounds = 30;
constexpr double bound = 5;

void makeOffice(const QString& folder) {
    DatabaseCreation::create(ConnectionSettings::sqliteFile(folder + u"/Halvane.db"_qs),
                             DatabaseCreation::Contents::WithSample);
    QFile ini(folder + u"/Halvane.ini"_qs);
    if (!ini.open(QIODevice::WriteOnly)) throw AppError(u"no INI file"_qs);
    ini.write("[DB]\r\nProvider=SQLite\r\nPath=.\r\nDatabase=Halvane.db\r\n[Log]\r\nPath=log\r\n");
}

// From the start of the process until it says that its window is painted.
double milliseconds(const QString& program, const QStringList& arguments) {
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    const bool shown = process.waitForReadyRead() && process.readAllStandardOutput().startsWith("shown");
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    if (!process.waitForFinished() || process.exitCode() != 0 || !shown)
        throw AppError(program + u": "_qs + QString::fromUtf8(process.readAllStandardError()));
    return elapsed;
}

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

int compare() {
    const QTemporaryDir office;
    makeOffice(office.path());
    QList<double> empty, menu;
    for (int i = 0; i <= rounds; ++i) {
        const double emptyTime = milliseconds(u"start_empty"_qs, {});
        const double menuTime = milliseconds(u"start_menu"_qs, {office.path()});
        if (i == 0) continue; // the first round fills the caches of the disk
        empty << emptyTime;
        menu << menuTime;
    }
    const double ratio = median(menu) / median(empty);
    std::printf("empty window %.1f ms, menu %.1f ms (medians of %d): ratio %.2f, bound %.0f\n", median(empty),
                median(menu), rounds, ratio, bound);
    return ratio <= bound ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication application(argc, argv);
    try {
        return compare();
    } catch (const AppError& error) {
        std::fprintf(stderr, "start_ratio: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
