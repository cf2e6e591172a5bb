#pragma once

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/SqlDialect.h"
#include "db/clsDbManager.h"
#include "operations/Managers.h"
#include "support/OfficeDisplay.h"
#include "ui/DialogSeams.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"
#include "ui/Style.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScrollBar>
#include <QTimer>

#include <cstdio>

// Lists on their screens, timed against the engine's own shell.

constexpr int firstRows = 100;
constexpr int rounds = 3;        // of each time the shortest counts,
constexpr int shortRounds = 20;  // of more rounds where a breath of the machine weighs
constexpr double shortTime = 15; // milliseconds
constexpr int restTime = 10;     // milliseconds
constexpr int looks = 40;        // on the way through a list
constexpr double ratioBound = 2;
constexpr double pauseBound = 200; // milliseconds
constexpr int memoryBound = 300;   // MiB

inline QString onlyWith;
inline bool isWanted(const QString& name) { return name.contains(onlyWith); }

inline bool goesOn(int round, double shortest) { return round < (shortest < shortTime ? shortRounds : rounds); }

inline double since(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

// --- the engine's own shell ---

// The shell in a process of its own, up to the line of the hundredth row of a statement, or its last.
class Shell {
public:
    explicit Shell(const ConnectionSettings& settings) : m_sqlite(settings.provider == Provider::SQLite) {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_timer.start();
        if (m_sqlite) {
            m_process.start(u"sqlite3"_qs, {settings.path});
        } else {
            QStringList arguments{u"-X"_qs, u"-q"_qs, u"-A"_qs, u"-t"_qs, u"-d"_qs, settings.database};
            if (!settings.path.isEmpty()) arguments << u"-h"_qs << settings.path;
            if (!settings.user.isEmpty()) arguments << u"-U"_qs << settings.user;
            m_process.start(u"psql"_qs, arguments);
            m_process.write("\\set FETCH_COUNT 100\n"); // else it takes all rows before it shows the first
        }
        m_process.write("SELECT 'ready';\n");
        readLines(1);
    }
    ~Shell() {
        m_process.kill();
        m_process.waitForFinished();
    }

    // In milliseconds, from the start of the shell.
    double timeOf(const QString& statement) {
        const QString words = m_sqlite ? m_sqliteWords.translate(statement) : m_postgresWords.translate(statement);
        m_process.write((words + u";\nSELECT 'end';\n"_qs).toUtf8());
        readLines(firstRows);
        return since(m_timer);
    }

private:
    void readLines(int wanted) {
        for (int lines = 0; lines < wanted;) {
            if (!m_process.canReadLine() && !m_process.waitForReadyRead(60'000)) throw AppError(u"no answer"_qs);
            while (lines < wanted && m_process.canReadLine())
                if (++lines; m_process.readLine().trimmed() == "end") return;
        }
    }

    bool m_sqlite;
    QProcess m_process;
    QElapsedTimer m_timer;
    SqliteDialect m_sqliteWords;
    PostgresDialect m_postgresWords;
};

inline double shellTime(const QString& statement) {
    double best = 1e9;
    for (int round = 0; goesOn(round, best); ++round)
        best = std::min(best, Shell(gDbManager.Connection().settings()).timeOf(statement));
    return best;
}

// --- the screen ---

// Beats as long as the window answers.
class Heart {
public:
    Heart() {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_tick.start();
        m_timer.start(1);
    }
    double longestPause() {
        beat();
        return m_longest;
    }

private:
    void beat() {
        m_longest = std::max(m_longest, since(m_tick));
        m_tick.restart();
    }

    QTimer m_timer;
    QElapsedTimer m_tick;
    double m_longest = 0;
};

// Tells when the rows of a new list have been painted, which is when an operator sees them.
class Painted : public QObject {
public:
    explicit Painted(Grid* grid) {
        auto* list = grid->findChild<KeyedList*>();
        connect(list, &KeyedList::shown, this, [this] {
            m_arrived = true;
            m_shown = since(m_timer);
        });
        grid->viewport()->installEventFilter(this);
    }
    void restart() {
        m_arrived = m_done = false;
        m_timer.start();
    }
    double shown() const { return m_shown; } // the rows are known
    bool done() const { return m_done; }

    bool eventFilter(QObject*, QEvent* event) override {
        if (m_arrived && event->type() == QEvent::Paint) {
            m_arrived = false;
            QTimer::singleShot(0, this, [this] { m_done = true; }); // when the painting is done
        }
        return false;
    }

private:
    QElapsedTimer m_timer;
    double m_shown = 0;
    bool m_arrived = false;
    bool m_done = false;
};

struct Figures {
    double first = 1e9, shown = 0, all = 0, end = 0, pause = 0;
    int rows = 0;
};

template <class Condition> void spinUntil(Condition condition) {
    while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

inline void nextTurn(const std::function<void()>& work) {
    bool done = false;
    QTimer::singleShot(0, qApp, [&] {
        work();
        QTimer::singleShot(0, qApp, [&] { done = true; });
    });
    spinUntil([&] { return done; });
}

// Looks at the whole list: its end, and places all over it.
inline void scroll(Grid& grid, Figures& figures) {
    QScrollBar* bar = grid.verticalScrollBar();
    QElapsedTimer timer;
    timer.start();
    nextTurn([&] { bar->setValue(bar->maximum()); });
    nextTurn([&] { grid.viewport()->repaint(); });
    figures.end = since(timer);
    for (int look = looks; look >= 0; --look)
        nextTurn([&] { bar->setValue(static_cast<int>(qint64(bar->maximum()) * look / looks)); });
}

// What the round before left to be done is done.
inline void rest() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < restTime) QCoreApplication::processEvents(QEventLoop::AllEvents, restTime);
}

// A list from its start to its first rows; a whole round looks at all of it besides.
inline Figures play(Grid& grid, Painted& painted, bool whole, const std::function<void()>& start) {
    rest();
    Figures figures;
    Heart heart;
    QElapsedTimer timer;
    painted.restart();
    timer.start();
    nextTurn(start);
    spinUntil([&] { return painted.done(); });
    figures.first = since(timer);
    figures.shown = painted.shown();
    spinUntil([&] { return !grid.isFilling(); });
    figures.all = since(timer);
    figures.rows = grid.rows();
    if (whole) scroll(grid, figures);
    figures.pause = heart.longestPause();
    return figures;
}

inline int peakMemory() {
    QFile status(u"/proc/self/status"_qs);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).simplified().split(' ').first().toInt();
    return 0;
}

// --- the table of figures ---

inline bool allHold = true;

inline const char* verdict(bool holds) {
    allHold = allHold && holds;
    return holds ? "" : "  <-- above the bound";
}

inline void printHead() {
    std::printf("%-34s %8s %9s %9s %6s %9s %9s %9s %8s %9s %8s\n", "list", "rows", "first ms", "shell ms", "ratio",
                "its keys", "shown ms", "all ms", "end ms", "pause ms", "peak MiB");
}

// What the shell is given: the rows of a list as its screen shows them, and the keys alone, as the screen reads them
// ahead of the rows that are looked at.
struct Statements {
    QString list, keys;
};

inline void print(const QString& name, const Figures& figures, const Statements& statements) {
    const double shell = shellTime(statements.list);
    const double ratio = figures.first / shell;
    const int memory = peakMemory();
    const bool holds = ratio <= ratioBound && figures.pause <= pauseBound && memory <= memoryBound * 1024;
    std::printf("%-34s %8d %9.1f %9.1f %6.2f %9.1f %9.1f %9.1f %8.1f %9.1f %8d%s\n", qPrintable(name), figures.rows,
                figures.first, shell, ratio, shellTime(statements.keys), figures.shown, figures.all, figures.end,
                figures.pause, memory / 1024, verdict(holds));
    std::fflush(stdout);
}

using Once = std::function<Figures(bool whole)>;

// The round with the soonest rows; the longest pause of all, and the end of a whole one.
inline void takeRound(Figures& best, int round, const Once& once) {
    Figures figures = once(round < rounds);
    if (round >= rounds) figures.end = best.end;
    const double pause = std::max(figures.pause, best.pause);
    if (figures.first < best.first) best = figures;
    best.pause = pause;
}

inline Figures bestOf(const Once& once) {
    Figures best;
    for (int round = 0; goesOn(round, best.first); ++round) takeRound(best, round, once);
    return best;
}

// Of what goes two ways by turns.
inline std::pair<Figures, Figures> bestOfBoth(const Once& once) {
    Figures up, down;
    for (int round = 0; goesOn(round, std::min(up.first, down.first)); ++round)
        for (Figures* best : {&up, &down}) takeRound(*best, round, once);
    return {up, down};
}

template <class Widget> Widget* child(const QWidget& parent, const QString& name) {
    auto* found = parent.findChild<Widget*>(name);
    if (!found) throw AppError(u"no control "_qs + name);
    return found;
}

// The program of a benchmark of lists: FILE.ini [WORD].
inline int runLists(int argc, char** argv, void (*run)()) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    useOfficeDisplay();
    QApplication application(argc, argv);
    if (argc != 2 && argc != 3) return 2;
    if (argc == 3) onlyWith = QString::fromLocal8Bit(argv[2]);
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
        run();
        Managers::release();
        gDbManager.DBClose();
        return allHold ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], qUtf8Printable(error.description()));
        return 2;
    }
}
