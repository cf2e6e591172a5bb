#pragma once

#include "Answers.h"
#include "Office.h"
#include "Papers.h"
#include "Scenario.h"
#include "StepFailure.h"
#include "Watchdog.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>

#include <deque>
#include <functional>

struct PlayOptions {
    Provider provider = Provider::SQLite;
    QString outFolder; // empty: pictures and PDFs go with the office
    PaperSource papers;
    int longestStep = 10'000; // milliseconds
};

// Plays one scenario against the real screens. A step runs from the event loop whenever that is at rest, in whatever
// modal loop is the innermost; a step that opens a screen stays unfinished below the steps that work on it.
class Player : public QObject {
    Q_OBJECT

public:
    Player(Scenario scenario, PlayOptions options);

    // Plays to the end or to the first failure, and leaves no screen open. True when all steps hold.
    bool play();
    // The note on the failure; empty when all held.
    QString report() const { return m_report; }

    // --- for the steps ---
    Office& office() { return m_office; }
    Answers& answers() { return m_answers; }
    Papers& papers() { return m_papers; }
    // Does something more when the loop has come to rest, still as part of the running step.
    void then(std::function<void()> work) { m_continuations.push_back(std::move(work)); }
    // As the program does on a machine of its own; otherwise every window stands as it was drawn.
    void keepArrangement();
    void startProgram();
    // In a folder of its own below that of the scenario; the program then works in the one that was chosen.
    void startFirst();
    void stopProgram();
    void crashProgram();
    // Stops the calendar at this day; the hours go on.
    void setClock(const QString& day);
    void writeFile(const QString& path, const QString& text);
    void writeIni(const QString& section, const QString& key, const QString& value);
    void expectSql(const QString& select, const QString& value);
    void expectLog(const QString& text);
    void expectFile(const QString& path, const QString& text);
    void expectNoFile(const QString& path);
    void takeShot(const QString& name);
    QString outFile(const QString& name, const QString& suffix) const;

private:
    void schedule(int milliseconds = 0);
    void tick();
    void advance();
    void runStep(const Step& step);
    void attempt(const std::function<void()>& work);
    void fail(const StepFailure& failure);
    void closeEverything();
    bool isOver() const;
    int currentLine() const;
    QString currentStep() const;
    void beat();

    Scenario m_scenario;
    PlayOptions m_options;
    Office m_office;
    Answers m_answers;
    Papers m_papers;
    QEventLoop m_loop;
    QElapsedTimer m_stepTime;
    Watchdog m_watchdog;
    std::deque<std::function<void()>> m_continuations;
    qsizetype m_next = 0;
    int m_baseLoopLevel = 0;
    int m_restingTurns = 0;
    bool m_busy = false; // long work lets events run: it is no rest
    bool m_failed = false;
    QString m_report;
};
