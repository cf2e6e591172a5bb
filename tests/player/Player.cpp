#include "Player.h"

#include "Desk.h"
#include "StepTable.h"
#include "app/basMain.h"
#include "base/AppError.h"
#include "base/Arrangement.h"
#include "base/Dates.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"
#include "operations/screens/frmFirstStart.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QStringDecoder>
#include <QThread>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int turnsOfRest = 2;

// A file's text, whichever of the two codings and line ends it is in.
QString readText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw StepFailure{u"no file "_qs + path, u"the file"_qs};
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    if (utf8.hasError()) text = Text::fromCp932(bytes);
    return text.remove(u'\r');
}

void expectContains(const QString& found, const QString& text) {
    if (!found.contains(text)) throw StepFailure{found.trimmed(), text};
}

// A part of the note on a failure; of a long one, such as a page of paper or a log, its two ends.
QString noted(const QString& text) {
    constexpr int end = 10;
    QStringList lines = text.split(u'\n');
    const qsizetype between = lines.size() - 2 * end;
    if (between > 1) lines = lines.mid(0, end) << u"… %1 lines …"_qs.arg(between) << lines.mid(lines.size() - end);
    return lines.join(u"\n             "_qs);
}

} // namespace

Player::Player(Scenario scenario, PlayOptions options)
    : m_scenario(std::move(scenario)), m_options(std::move(options)), m_office(m_options.provider),
      m_answers(m_office.folder()), m_papers(m_options.papers) {
    Arrangement::keepIn({});
    m_answers.install();
    m_answers.onTrouble = [this](const QString& trouble) { fail({trouble, u"a prepared answer"_qs}); };
    seams().letEventsRun = [this] {
        const bool before = std::exchange(m_busy, true);
        QCoreApplication::processEvents();
        m_busy = before;
    };
}

bool Player::play() {
    const bool quits = QApplication::quitOnLastWindowClosed();
    QApplication::setQuitOnLastWindowClosed(false);
    m_baseLoopLevel = QThread::currentThread()->loopLevel() + 1;
    m_stepTime.start();
    schedule();
    m_loop.exec();
    QApplication::setQuitOnLastWindowClosed(quits);
    return !m_failed;
}

// --- the machine ---

// Every turn of the machine is a timer of its own, so that it goes on in the loop of a screen that a step opened; a
// timer's turn comes when no event is left.
void Player::schedule(int milliseconds) {
    auto* timer = new QTimer(this);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &Player::tick);
    connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(milliseconds);
}

void Player::tick() {
    beat();
    const bool leaving = QThread::currentThread()->loopLevel() > m_baseLoopLevel + Desk::modalScreens();
    if (m_busy || leaving) return schedule(1);
    if (!m_failed && !Desk::isAtRest()) {
        if (m_stepTime.elapsed() <= m_options.longestStep) return schedule(1);
        fail({u"no rest after %1 seconds"_qs.arg(m_options.longestStep / 1000.0), u"the screens at rest"_qs});
    }
    if (m_restingTurns++ < turnsOfRest) return schedule(); // what the last step set going had its turn
    m_restingTurns = 0;
    if (isOver()) return closeEverything();
    schedule();
    advance();
}

void Player::beat() {
    m_watchdog.beat(u"%1:%2: %3"_qs.arg(m_scenario.file).arg(currentLine()).arg(currentStep()),
                    Desk::openScreens().join(u" > "_qs));
}

bool Player::isOver() const { return m_failed || (m_continuations.empty() && m_next >= m_scenario.steps.size()); }

void Player::advance() {
    m_stepTime.start();
    if (m_continuations.empty()) return runStep(m_scenario.steps.at(m_next++));
    const auto work = std::move(m_continuations.front());
    m_continuations.pop_front();
    attempt(work);
}

void Player::runStep(const Step& step) {
    const StepKind* kind = kindOf(step);
    beat();
    if (kind->effect == StepKind::Acts) m_papers.forget();
    attempt([this, kind, &step] { kind->run(*this, step, argumentsOf(step, *kind)); });
}

void Player::attempt(const std::function<void()>& work) {
    try {
        work();
    } catch (const StepFailure& failure) {
        fail(failure);
    } catch (const AppError& error) {
        fail({error.description(), u"no error"_qs});
    }
}

// --- failure and end ---

int Player::currentLine() const { return m_next > 0 ? m_scenario.steps.at(m_next - 1).line : 0; }

QString Player::currentStep() const { return m_next > 0 ? m_scenario.steps.at(m_next - 1).text : QString(); }

void Player::fail(const StepFailure& failure) {
    if (m_failed) return;
    m_failed = true;
    m_continuations.clear();
    m_report =
        u"%1:%2: %3\n  found:     %4\n  expected:  %5\n  screens:   %6\n  messages:  %7\n"_qs.arg(m_scenario.file)
            .arg(currentLine())
            .arg(currentStep(), noted(failure.found), noted(failure.expected), Desk::openScreens().join(u" > "_qs),
                 m_answers.said().join(u'\n').replace(u"\n"_qs, u"\n             "_qs));
    if (m_options.outFolder.isEmpty() || !Desk::topmostOrNone()) return;
    const QString picture = outFile(QFileInfo(m_scenario.file).completeBaseName() + u"-failed"_qs, u"png"_qs);
    if (Desk::topmost()->grab().save(picture)) m_report += u"  picture:   %1\n"_qs.arg(picture);
}

// One screen in each turn, from the top, until the loop of this player is the innermost again.
void Player::closeEverything() {
    m_answers.giveWay();
    if (const QPointer<QWidget> top = Desk::topmostOrNone()) {
        top->close();
        if (top && top->isVisible()) top->hide();
        return schedule();
    }
    EndProgram();
    m_loop.quit();
}

// --- steps of the program as a whole ---

void Player::keepArrangement() { Arrangement::keepIn(QDir(m_office.folder()).filePath(u"arrangement.json"_qs)); }

void Player::startProgram() { Main(); }

void Player::startFirst() {
    const QString folder = QDir(m_office.folder()).filePath(u"Halvane"_qs);
    frmFirstStart first(folder, folder + u"-sample"_qs);
    if (first.exec() != QDialog::Accepted) return;
    seams().programFolder = [chosen = first.chosenFolder()] { return chosen; };
    Main();
}

void Player::stopProgram() {
    QWidget* top = Desk::topmost();
    if (top->objectName() != u"frmMenu") throw StepFailure{u"the open screen "_qs + top->objectName(), u"frmMenu"_qs};
    top->close();
}

// One screen in each turn, from the top: its loop ends, and no event tells it that it goes.
void Player::crashProgram() {
    QWidget* top = Desk::topmostOrNone();
    if (!top) return EndProgram(); // what a new start could not do without: the lock and the database let go
    top->hide();
    if (top->objectName() == u"frmMenu") top->deleteLater();
    then([this] { crashProgram(); });
}

void Player::setClock(const QString& day) {
    const auto date = parseDate(day);
    if (!date) throw StepFailure{day, u"a date"_qs};
    seams().now = [day = date->date()] { return QDateTime(day, QTime::currentTime()); };
}

void Player::writeIni(const QString& section, const QString& key, const QString& value) {
    if (gLogger) throw StepFailure{u"the program is running"_qs, u"ini before start"_qs};
    clsProfile(m_office.iniFile()).SaveValue(section, key, value);
}

void Player::writeFile(const QString& path, const QString& text) {
    const QString place = QDir(m_office.folder()).absoluteFilePath(path);
    QDir().mkpath(QFileInfo(place).path());
    QFile file(place);
    if (!file.open(QIODevice::WriteOnly)) throw StepFailure{u"the file cannot be written: "_qs + place, path};
    file.write(Text::toCp932(QString(text).replace(u"\n"_qs, u"\r\n"_qs)));
}

void Player::expectSql(const QString& select, const QString& value) {
    const QString found = m_office.scalar(select);
    if (found != value) throw StepFailure{found, value};
}

void Player::expectLog(const QString& text) {
    const QString folder = clsProfile().GetPath(u"Log"_qs, u"Path"_qs);
    const QString name = u"Log%1.txt"_qs.arg(currentDate().toString(u"yyyyMMdd"_qs));
    expectContains(readText(QDir(folder).filePath(name)), text);
}

void Player::expectFile(const QString& path, const QString& text) {
    expectContains(readText(QDir(m_office.folder()).absoluteFilePath(path)), text);
}

void Player::expectNoFile(const QString& path) {
    if (QFile::exists(QDir(m_office.folder()).absoluteFilePath(path))) throw StepFailure{path, u"no such file"_qs};
}

QString Player::outFile(const QString& name, const QString& suffix) const {
    const QDir folder(m_options.outFolder.isEmpty() ? m_office.folder() : m_options.outFolder);
    folder.mkpath(u"."_qs);
    return folder.filePath(name.endsWith(u'.' + suffix) ? name : name + u'.' + suffix);
}

void Player::takeShot(const QString& name) {
    const QString file = outFile(name, u"png"_qs);
    if (!Desk::topmost()->grab().save(file))
        throw StepFailure{u"the file cannot be written: "_qs + file, u"a picture"_qs};
}
