// The lists of a large office, played on their screens, against the engine's own shell, in one run:
// list_bench FILE.ini [WORD]    with a word, only the lists that have it in their name
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "customers/clsCustomerManager.h"
#include "customers/screens/CustomerSelection.h"
#include "customers/screens/frmCustomerList.h"
#include "db/SqlDialect.h"
#include "db/clsDbManager.h"
#include "estimates/EstimateManagers.h"
#include "estimates/screens/EstimateSearchPage.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "operations/Managers.h"
#include "support/OfficeDisplay.h"
#include "ui/ChoiceBox.h"
#include "ui/DialogSeams.h"
#include "ui/EntryField.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"
#include "ui/Style.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"
#include "ui/frmSelectList.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int firstRows = 100;
constexpr int rounds = 3;        // of each time the shortest counts,
constexpr int shortRounds = 20;  // of more rounds where a breath of the machine weighs
constexpr double shortTime = 15; // milliseconds
constexpr int restTime = 10;     // milliseconds
constexpr int looks = 40;        // on the way through a list
constexpr double ratioBound = 2;
constexpr double pauseBound = 200; // milliseconds
constexpr int memoryBound = 300;   // MiB

QString onlyWith;
bool isWanted(const QString& name) { return name.contains(onlyWith); }

bool goesOn(int round, double shortest) { return round < (shortest < shortTime ? shortRounds : rounds); }

double since(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

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

double shellTime(const QString& statement) {
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

void nextTurn(const std::function<void()>& work) {
    bool done = false;
    QTimer::singleShot(0, qApp, [&] {
        work();
        QTimer::singleShot(0, qApp, [&] { done = true; });
    });
    spinUntil([&] { return done; });
}

// Looks at the whole list: its end, and places all over it.
void scroll(Grid& grid, Figures& figures) {
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
void rest() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < restTime) QCoreApplication::processEvents(QEventLoop::AllEvents, restTime);
}

// A list from its start to its first rows; a whole round looks at all of it besides.
Figures play(Grid& grid, Painted& painted, bool whole, const std::function<void()>& start) {
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

int peakMemory() {
    QFile status(u"/proc/self/status"_qs);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).simplified().split(' ').first().toInt();
    return 0;
}

// --- the table of figures ---

bool allHold = true;

const char* verdict(bool holds) {
    allHold = allHold && holds;
    return holds ? "" : "  <-- above the bound";
}

void printHead() {
    std::printf("%-34s %8s %9s %9s %6s %9s %9s %9s %8s %9s %8s\n", "list", "rows", "first ms", "shell ms", "ratio",
                "its keys", "shown ms", "all ms", "end ms", "pause ms", "peak MiB");
}

// What the shell is given: the rows of a list as its screen shows them, and the keys alone, as the screen reads them
// ahead of the rows that are looked at.
struct Statements {
    QString list, keys;
};

void print(const QString& name, const Figures& figures, const Statements& statements) {
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
void takeRound(Figures& best, int round, const Once& once) {
    Figures figures = once(round < rounds);
    if (round >= rounds) figures.end = best.end;
    const double pause = std::max(figures.pause, best.pause);
    if (figures.first < best.first) best = figures;
    best.pause = pause;
}

Figures bestOf(const Once& once) {
    Figures best;
    for (int round = 0; goesOn(round, best.first); ++round) takeRound(best, round, once);
    return best;
}

// Of what goes two ways by turns.
std::pair<Figures, Figures> bestOfBoth(const Once& once) {
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

// --- the customer list ---

class CustomerLists {
public:
    CustomerLists() : m_grid(child<Grid>(m_screen, u"flxData"_qs)), m_painted(m_grid) {}

    void run() {
        m_screen.show();
        m_screen.Load();
        spinUntil([this] { return m_painted.done() && !m_grid->isFilling(); });
        auto* tabs = child<QTabBar>(m_screen, u"stKana"_qs);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            const SqlTerm range = SqlAnyOf({KanaTabFilter(u"[フリガナ1]"_qs, tab)});
            compare(u"customers, tab "_qs + tabs->tabText(tab), range.text(), byReading, [tabs, tab] {
                if (tabs->currentIndex() == tab)
                    emit tabs->currentChanged(tab);
                else
                    tabs->setCurrentIndex(tab);
            });
        }
        tabs->setCurrentIndex(0);
        for (const auto& [field, column, text] : {std::tuple{u"txtKana1"_qs, u"フリガナ1"_qs, u"ｽｽﾞ"_qs},
                                                  std::tuple{u"txtKana2"_qs, u"フリガナ2"_qs, u"ﾊﾅ"_qs}}) {
            auto* entry = child<EntryField>(m_screen, field);
            QString where = u"[%1] LIKE '%2%'"_qs.arg(column, text);
            const int tab = field == u"txtKana1" ? KanaTabOf(text) : 0;
            if (tab > 0) where = u"("_qs + KanaTabFilter(u"[フリガナ1]"_qs, tab).text() + u") AND "_qs + where;
            compare(u"customers, "_qs + field, where, byReading, [entry, text = text] {
                entry->setValue({});
                entry->setValue(text);
            });
            entry->setValue({});
            tabs->setCurrentIndex(0);
        }
        spinUntil([this] { return !m_grid->isFilling(); });
        for (int column = 0; column < m_grid->columns(); ++column) sortBoth(column);
    }

private:
    inline static const QString byReading = u"[フリガナ1] ASC, [フリガナ2] ASC, [顧客ID] ASC, [顧客枝番] ASC"_qs;

    static Statements statements(const QString& where, const QString& sort) {
        QString list = u"SELECT * FROM [顧客情報]"_qs;
        if (!where.isEmpty()) list += u" WHERE "_qs + where;
        return {list + u" ORDER BY "_qs + order, clsCustomerManager::Keys(where, order)};
    }

    void compare(const QString& name, const QString& where, const QString& sort, const std::function<void()>& start) {
        if (isWanted(name))
            print(name, bestOf([&](bool whole) { return play(*m_grid, m_painted, whole, start); }),
                  statements(where, order));
    }

    void sortBoth(int column) {
        static const QList<QStringList> terms{{u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[顧客枝番]"_qs, u"[顧客ID]"_qs},
                                              {u"[顧客番号]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[名前1]"_qs, u"[名前2]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[フリガナ1]"_qs, u"[フリガナ2]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[性別]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[都道府県]"_qs, u"[市区郡]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[市区郡]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs}};
        const QString name = u"customers by "_qs + m_grid->column(column).title;
        if (!isWanted(name)) return;
        m_grid->clearSortMark();
        const auto click = [&] { emit m_grid->headingClicked(column); };
        const auto [up, down] = bestOfBoth([&](bool whole) { return play(*m_grid, m_painted, whole, click); });
        print(name + u" ▲"_qs, up, statements({}, terms.at(column).join(u" ASC, "_qs) + u" ASC"_qs));
        print(name + u" ▼"_qs, down, statements({}, terms.at(column).join(u" DESC, "_qs) + u" DESC"_qs));
    }

    frmCustomerList m_screen;
    Grid* m_grid;
    Painted m_painted;
};

// --- the selection of a customer ---

class Selection {
public:
    Selection() {
        m_screen.Long = customerTable({});
        m_screen.Load();
        m_grid = child<Grid>(m_screen, u"flxData"_qs);
        m_painted = std::make_unique<Painted>(m_grid);
        m_screen.show();
        spinUntil([this] { return !m_grid->isFilling(); });
    }

    void run() {
        auto* field = child<TextField>(m_screen, u"txtSearch"_qs);
        for (const QString& text : {QString(), u"山本"_qs, u"岡崎市緑が丘7"_qs, u"-1234"_qs, u"ﾇﾇ"_qs}) {
            const QString name = u"selection of a customer, "_qs + (text.isEmpty() ? u"all"_qs : text);
            if (!isWanted(name)) continue;
            const SqlTerm where = text.isEmpty() ? SqlTerm() : clsCustomerManager::SelectContaining(text);
            const QString order = u"[フリガナ1],[フリガナ2],[顧客番号]"_qs;
            field->setText(text);
            const auto type = [field] { emit field->valueChanged(); };
            print(name, bestOf([&](bool whole) { return play(*m_grid, *m_painted, whole, type); }),
                  {clsCustomerManager::SelectList(where, order), clsCustomerManager::Keys(where, order)});
        }
    }

private:
    frmSelectList m_screen;
    Grid* m_grid;
    std::unique_ptr<Painted> m_painted;
};

// --- the estimate list ---

class EstimateLists {
public:
    EstimateLists()
        : m_tabs(child<QTabWidget>(m_screen, u"tabEstList"_qs)), m_page(m_screen.findChild<EstimateSearchPage*>()),
          m_customers(child<Grid>(m_screen, u"flxCustList"_qs)), m_estimates(child<Grid>(m_screen, u"flxEstList"_qs)),
          m_customersPainted(m_customers), m_estimatesPainted(m_estimates) {}

    void run() {
        m_screen.Load();
        m_screen.show();
        fill({});
        playEstimates(); // both have their connection
        playCustomers();
        for (const Search& search : searches()) {
            fill(search);
            const SqlTerm where = m_page->filter().condition();
            if (isWanted(u"estimates"_qs + search.name))
                print(u"estimates"_qs + search.name, bestOf([this](bool whole) { return playEstimates(whole); }),
                      statements(where, gCsEstimateManager.byKey()));
            if (isWanted(u"customers of estimates"_qs + search.name))
                print(
                    u"customers of estimates"_qs + search.name,
                    bestOf([this](bool whole) { return playCustomers(whole); }),
                    {clsCustomerManager::ListWithEst(where.text(), byNumber), // which joins all, as it may be asked to
                     clsCustomerManager::KeysWithEst(where, byNumber)});
        }
        if (isWanted(u"estimates of ticked customers"_qs)) ticked();
        fill({});
        playCustomers(); // without ticks
        playEstimates();
        for (int column = 0; column < m_estimates->columns(); ++column) sortBoth(column);
        count();
    }

private:
    using Fields = QList<std::pair<QString, QString>>;
    struct Search {
        QString name;
        Fields fields;
    };

    static Statements statements(const SqlTerm& where, const SqlTerm& sort) {
        return {clsCsEstimateManager::ListWithMst(where, order), clsCsEstimateManager::KeysWithMst(where, order)};
    }

    inline static const QString byNumber = u"[顧客情報].[顧客番号]"_qs;

    static QList<Search> searches() {
        return {{{}, {}},
                {u", name"_qs, {{u"txtName1"_qs, u"山"_qs}, {u"txtName2"_qs, u"子"_qs}}},
                {u", kana"_qs, {{u"txtKana1"_qs, u"ﾐ"_qs}}},
                {u", kana of nobody"_qs, {{u"txtKana1"_qs, u"ﾇﾇ"_qs}}},
                {u", number of the person"_qs, {{u"txtCsNo"_qs, u"900123"_qs}}},
                {u", birth"_qs, {{u"idtBirth"_qs, u"1970/01/05"_qs}}},
                {u", phone"_qs, {{u"txtTelNo"_qs, u"-1234"_qs}}},
                {u", zip"_qs, {{u"txtZip"_qs, u"123"_qs}}},
                {u", address"_qs, {{u"cboPref"_qs, u"愛知県"_qs}, {u"txtAddr"_qs, u"緑が丘7"_qs}}},
                {u", law"_qs, {{u"cboIns"_qs, u"2"_qs}}},
                {u", payer"_qs, {{u"txtClaimNm"_qs, u"請求先3"_qs}}},
                {u", law and payer code"_qs, {{u"cboIns"_qs, u"3"_qs}, {u"txtClaimCd"_qs, u"20"_qs}}},
                {u", estimate number"_qs, {{u"txtEstNo"_qs, u"9000123"_qs}}},
                {u", status"_qs, {{u"chkProcKbn_0"_qs, {}}, {u"chkProcKbn_2"_qs, {}}}},
                {u", product"_qs, {{u"txtProductCd"_qs, u"P012"_qs}}},
                {u", estimate name"_qs, {{u"txtProductNm"_qs, u"車椅子"_qs}}},
                {u", received in a month"_qs,
                 {{u"idtRecvDate_0"_qs, u"2024/04/01"_qs}, {u"idtRecvDate_1"_qs, u"2024/04/30"_qs}}},
                {u", cast in a year"_qs,
                 {{u"idtPickPtnDate_0"_qs, u"2023/04/01"_qs}, {u"idtPickPtnDate_1"_qs, u"2024/03/31"_qs}}},
                {u", disease"_qs, {{u"txtDiseaseNm"_qs, u"麻痺"_qs}}},
                {u", party code"_qs, {{u"txtOrderCd"_qs, u"10"_qs}}},
                {u", party"_qs, {{u"txtOrderNm"_qs, u"病院4"_qs}}}};
    }

    void fill(const Search& search) {
        m_tabs->setCurrentIndex(0);
        for (EntryField* field : m_page->findChildren<EntryField*>()) field->setValue({});
        for (ChoiceBox* box : m_page->findChildren<ChoiceBox*>()) box->clearChoice();
        for (QCheckBox* box : m_page->findChildren<QCheckBox*>()) box->setChecked(false);
        for (const auto& [name, value] : search.fields) {
            auto* widget = child<QWidget>(*m_page, name);
            if (auto* field = qobject_cast<EntryField*>(widget)) field->setValue(value);
            if (auto* tick = qobject_cast<QCheckBox*>(widget)) tick->setChecked(true);
            if (auto* box = qobject_cast<ChoiceBox*>(widget); box && !box->chooseByData(value)) box->setText(value);
        }
    }

    Figures turnTo(int page, Grid* grid, Painted& painted, bool whole) {
        m_tabs->setCurrentIndex(0);
        return play(*grid, painted, whole, [this, page] { m_tabs->setCurrentIndex(page); });
    }
    Figures playCustomers(bool whole = false) { return turnTo(1, m_customers, m_customersPainted, whole); }
    Figures playEstimates(bool whole = false) { return turnTo(2, m_estimates, m_estimatesPainted, whole); }

    void ticked() {
        fill({});
        playCustomers();
        QList<CustomerKey> keys;
        for (const int row : {1, 3, 150}) {
            m_customers->toggleCheck(row, 0);
            keys << CustomerKey{m_customers->value(row, 1), m_customers->value(row, 2)};
        }
        const SqlTerm where = withCustomers({}, keys);
        // From the customers themselves, as their page would be filled anew.
        const auto once = [this](bool whole) {
            const Figures figures =
                play(*m_estimates, m_estimatesPainted, whole, [this] { m_tabs->setCurrentIndex(2); });
            m_tabs->setCurrentIndex(0);
            return figures;
        };
        print(u"estimates of ticked customers"_qs, bestOf(once), statements(where, gCsEstimateManager.byKey()));
    }

    void sortBoth(int column) {
        const auto estimate = [](const QString& name) { return QList{SqlColumn{u"顧客見積情報"_qs, name}}; };
        static const QHash<int, QList<SqlColumn>> terms{
            {2, {{u"顧客情報"_qs, u"名前1"_qs}, {u"顧客情報"_qs, u"名前2"_qs}}},
            {4, estimate(u"採型日"_qs)},
            {5, estimate(u"納品実績日"_qs)},
            {6, estimate(u"製品コード"_qs)},
            {7, estimate(u"見積名称"_qs)},
            {8, estimate(u"見積総合計"_qs)},
            {9, {{u"顧客カルテ"_qs, u"受注先"_qs}}},
            {10, estimate(u"処理区分"_qs)}};
        const QString name = u"estimates by "_qs + m_estimates->column(column).title;
        if (!terms.contains(column) || !isWanted(name)) return;
        m_estimates->clearSortMark();
        const auto click = [&] { emit m_estimates->headingClicked(column); };
        const auto [up, down] =
            bestOfBoth([&](bool whole) { return play(*m_estimates, m_estimatesPainted, whole, click); });
        for (const auto& [mark, upwards, figures] : {std::tuple{u" ▲"_qs, true, up}, std::tuple{u" ▼"_qs, false, down}})
            print(name + mark, figures, statements({}, gCsEstimateManager.ListOrder(terms[column], upwards)));
    }

    void count() {
        const double shell = shellTime(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs);
        double best = 1e9;
        qint64 rows = 0;
        for (int round = 0; round < rounds; ++round) {
            QElapsedTimer timer;
            timer.start();
            rows = gCsEstimateManager.CountWithMst({});
            best = std::min(best, since(timer));
        }
        std::printf("%-34s %8lld %9.1f %9.1f %6.2f%s\n", "count of the estimates", rows, best, shell, best / shell,
                    verdict(best <= ratioBound * shell));
    }

    frmCsEstimateList m_screen;
    QTabWidget* m_tabs;
    EstimateSearchPage* m_page;
    Grid* m_customers;
    Grid* m_estimates;
    Painted m_customersPainted;
    Painted m_estimatesPainted;
};

void run() {
    printHead();
    CustomerLists().run();
    Selection().run();
    EstimateLists().run();
}

} // namespace

int main(int argc, char** argv) {
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
        std::fprintf(stderr, "list_bench: %s\n", qUtf8Printable(error.description()));
        return 2;
    }
}
