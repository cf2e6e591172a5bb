#include "Player.h"
#include "StepFailure.h"
#include "StepTable.h"
#include "base/AppError.h"
#include "reports/engine/ReportPdf.h"
#include "reports/engine/ReportRecorder.h"
#include "support/OfficeDisplay.h"
#include "support/TestServer.h"
#include "ui/Style.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <memory>

namespace {

constexpr int usageError = 2;

bool check(const Scenario& scenario) {
    for (const QString& fault : scenario.faults) std::printf("%s\n", qUtf8Printable(fault));
    return scenario.faults.isEmpty();
}

// Empty when the file holds, else the note on its failure.
QString play(const Scenario& scenario, const PlayOptions& options) {
    try {
        Player player(scenario, options);
        return player.play() ? QString() : player.report();
    } catch (const AppError& error) {
        return u"%1: %2\n"_qs.arg(scenario.file, error.description());
    }
}

bool playFile(const Scenario& scenario, const PlayOptions& options) {
    if (!check(scenario)) return false;
    const QString failure = play(scenario, options);
    std::printf("%s", qUtf8Printable(failure.isEmpty() ? u"ok %1\n"_qs.arg(scenario.file) : failure));
    std::fflush(stdout);
    return failure.isEmpty();
}

std::optional<Provider> providerOf(const QString& name) {
    if (name == u"SQLite") return Provider::SQLite;
    if (name == u"PostgreSQL") return Provider::PostgreSQL;
    return std::nullopt;
}

int usage(const QString& complaint) {
    std::fprintf(stderr, "halvane-play: %s\n", qUtf8Printable(complaint));
    return usageError;
}

void saveJobs(const QList<ReportJob>& jobs, const QString& file) {
    QStringList names;
    QList<ReportPage> pages;
    for (const ReportJob& job : jobs) {
        names << job.reportClass;
        pages += job.pages;
    }
    if (pages.isEmpty()) throw StepFailure{u"nothing was printed"_qs, u"printed pages"_qs};
    savePdf(pages, names.join(u' '), file);
}

// What the screens print stays in the recorder, and previews do not open: a scenario reads the pages instead. The last
// printed pages can be saved until others are printed.
PaperSource papersOf(ReportRecorder& recorder) {
    recorder.clear();
    auto last = std::make_shared<QList<ReportJob>>();
    PaperSource source;
    source.documents = [&recorder] {
        QList<PrintedDocument> documents;
        for (const ReportJob& job : recorder.jobs()) {
            PrintedDocument document{job.reportClass, {}};
            for (const ReportPage& page : job.pages) document.pages << page.plainText();
            documents << document;
        }
        return documents;
    };
    source.forget = [&recorder, last] {
        if (!recorder.jobs().isEmpty()) *last = recorder.jobs();
        recorder.clear();
    };
    source.savePdf = [&recorder, last](const QString& file) {
        saveJobs(recorder.jobs().isEmpty() ? *last : recorder.jobs(), file);
    };
    return source;
}

bool hasDisplay() { return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"); }

// Reading alone needs no display, and playing goes without one.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        for (const char* reading : {"--list", "--check", "--help"})
            if (qstrcmp(argv[i], reading) == 0) return std::make_unique<QCoreApplication>(argc, argv);
    if (!hasDisplay() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    useOfficeDisplay();
    auto application = std::make_unique<QApplication>(argc, argv);
    application->setApplicationName(u"Halvane"_qs);
    Style::apply(*application);
    return application;
}

} // namespace

int main(int argc, char** argv) {
    const auto application = makeApplication(argc, argv);
    QCommandLineParser line;
    line.setApplicationDescription(u"Plays the screens from text files."_qs);
    line.addHelpOption();
    const QCommandLineOption out(u"out"_qs, u"Folder for pictures and PDFs."_qs, u"DIR"_qs);
    const QCommandLineOption provider(u"provider"_qs, u"SQLite or PostgreSQL."_qs, u"NAME"_qs, u"SQLite"_qs);
    const QCommandLineOption list(u"list"_qs, u"Prints the steps with their meaning."_qs);
    const QCommandLineOption checkOnly(u"check"_qs, u"Reads the files without playing them."_qs);
    line.addOptions({out, provider, list, checkOnly});
    line.addPositionalArgument(u"FILE"_qs, u"Scenarios to play."_qs, u"FILE..."_qs);
    line.process(*application);

    if (line.isSet(list)) return std::printf("%s", qUtf8Printable(stepList())) < 0;
    if (line.positionalArguments().isEmpty()) return usage(u"no file given"_qs);
    const auto chosen = providerOf(line.value(provider));
    if (!chosen) return usage(u"unknown provider "_qs + line.value(provider));

    if (*chosen == Provider::PostgreSQL && !TestServer::isNamed()) return usage(TestServer::howToGetOne());

    std::optional<ReportRecorder> recorder;
    if (!line.isSet(checkOnly)) recorder.emplace();
    bool allHold = true;
    for (const QString& file : line.positionalArguments()) {
        const Scenario scenario = readScenario(file);
        const bool holds = line.isSet(checkOnly) ? check(scenario)
                                                 : playFile(scenario, {*chosen, line.value(out), papersOf(*recorder)});
        allHold = allHold && holds;
    }
    return allHold ? EXIT_SUCCESS : EXIT_FAILURE;
}
