// A master estimate of 60 lines taken into an order by its code, on the screen, against the statements that it takes
// alone, in one run:
// take_bench FILE.ini
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/clsDbManager.h"
#include "estimates/screens/frmCsEstimate.h"
#include "master/MasterDraft.h"
#include "operations/Managers.h"
#include "support/MasterSamples.h"
#include "support/OfficeDisplay.h"
#include "ui/DialogSeams.h"
#include "ui/Grid.h"
#include "ui/Style.h"
#include "ui/TextField.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTabWidget>

#include <cstdio>

namespace {

constexpr int rounds = 15; // of each time the shortest counts
constexpr int makeLines = 40, partsLines = 20;
constexpr int settling = 20; // milliseconds
constexpr double ratioBound = 3;
const QString code = u"bench-60"_qs;

double since(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

// Counts the paints of a grid.
class Paints : public QObject {
public:
    explicit Paints(Grid* grid) { grid->viewport()->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

struct Figures {
    double work = 1e9;    // until the rows stand in the grid
    double painted = 1e9; // until they are seen
    int paints = 0;
    QStringList statements;
};

void settle() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < settling) QCoreApplication::processEvents(QEventLoop::AllEvents, settling);
}

Figures takeOnce(TextField& field, Paints& paints) {
    field.setValue({});
    settle();
    Figures figures;
    gDbManager.Connection().onStatement = [&](const QString& statement) { figures.statements << statement; };
    paints.count = 0;
    QElapsedTimer timer;
    timer.start();
    field.setValue(code);
    figures.work = since(timer);
    while (paints.count == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    figures.painted = since(timer);
    gDbManager.Connection().onStatement = {};
    settle();
    figures.paints = paints.count;
    return figures;
}

double statementsAlone(const QStringList& statements) {
    QElapsedTimer timer;
    timer.start();
    for (const QString& statement : statements) {
        Recordset rows = gDbManager.Connection().query(statement);
        const qsizetype columns = rows.fields().size();
        while (rows.next())
            for (int column = 0; column < columns; ++column) (void)rows.value(column);
    }
    return since(timer);
}

QString storeMaster() {
    MasterDraft draft = MasterSamples::master(code, makeLines);
    for (int i = 0; i < partsLines; ++i)
        draft.composition.item(1).parts << MasterSamples::partsLine(u"足継手"_qs, u"遊動"_qs, u"KO"_qs, u"500"_qs);
    if (saveMaster(gDbManager.Connection(), draft, [](const QString&) { return false; }) != MasterSave::Saved)
        throw AppError(u"the master estimate was refused"_qs);
    return draft.master.ProductId;
}

bool run() {
    frmCsEstimate editor;
    editor.show();
    if (!editor.Load()) throw AppError(u"the editor does not open"_qs);
    editor.findChild<QTabWidget*>(u"tabCsEst"_qs)->setCurrentIndex(2);
    auto* grid = editor.findChild<Grid*>(u"flxMkElm"_qs);
    auto* field = editor.findChild<TextField*>(u"txtProductCd"_qs);
    Paints paints(grid);
    Figures best;
    double alone = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const Figures figures = takeOnce(*field, paints);
        if (grid->text(makeLines, 6) != u"300") throw AppError(u"the lines are not in the grid"_qs);
        best.work = std::min(best.work, figures.work);
        best.painted = std::min(best.painted, figures.painted);
        best.paints = std::max(best.paints, figures.paints);
        best.statements = figures.statements;
        alone = std::min(alone, statementsAlone(figures.statements));
    }
    const double ratio = best.work / alone;
    const bool holds = ratio <= ratioBound && best.paints == 1;
    std::printf("%d lines, %d statements: in the grid after %.2f ms, painted %d times, seen after %.2f ms; "
                "statements alone %.2f ms; ratio %.2f%s\n",
                makeLines + partsLines, static_cast<int>(best.statements.size()), best.work, best.paints, best.painted,
                alone, ratio, holds ? "" : "  <-- above the bound");
    return holds;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    useOfficeDisplay();
    QApplication application(argc, argv);
    if (argc != 2) return 2;
    Text::assertConverters();
    Style::apply(application);
    fillSeamsWithDialogs();
    const QFileInfo ini(QString::fromLocal8Bit(argv[1]));
    seams().programFolder = [folder = ini.absolutePath()] { return folder; };
    seams().message = [](const MessageBoxRequest& request) -> qint16 { qFatal("%s", qUtf8Printable(request.text)); };
    try {
        gLogger = std::make_unique<clsLogger>();
        setSystemDate({});
        gDbManager.DBOpen();
        Managers::prepare(gDbManager.Connection());
        const QString master = storeMaster();
        const bool holds = run();
        deleteMaster(gDbManager.Connection(), master);
        Managers::release();
        gDbManager.DBClose();
        return holds ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const AppError& error) {
        std::fprintf(stderr, "take_bench: %s\n", qUtf8Printable(error.description()));
        return 2;
    }
}
