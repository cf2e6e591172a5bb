// The estimate list in a large office against the engine's own shell, for the same statements in one run:
// list_bench FILE.ini
#include "base/AppError.h"
#include "base/Application.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "db/SqlDialect.h"
#include "estimates/EstimateManagers.h"
#include "operations/Managers.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int firstRows = 100;
constexpr int rowsOnScreen = 25;

struct ListCase {
    QString name;
    QString shown; // by the shell
    QString keys;  // by the list, which fetches the rows behind them
};

QList<ListCase> cases() {
    const QString id = u"[顧客見積情報].[見積ID]"_qs;
    const auto estimates = [](const QString& name, const QString& where, const QString& order) {
        return ListCase{name, clsCsEstimateManager::ListWithMst(where, order),
                        clsCsEstimateManager::KeysWithMst(where, order)};
    };
    const auto sorted = [&](const QString& name, const QString& term) {
        return estimates(name, {}, term + u" ASC, "_qs + id + u" ASC"_qs);
    };
    const QString reading = u" [顧客情報].[フリガナ1] LIKE '%ﾐ%'"_qs;
    const auto customers = [](const QString& name, const QString& where) {
        const QString keys = clsCustomerManager::KeysWithEst(where, u"[顧客情報].[顧客番号]"_qs);
        return ListCase{name, keys, keys};
    };
    return {estimates(u"all estimates"_qs, {}, id),
            estimates(u"estimates by reading"_qs, reading, id),
            customers(u"all customers"_qs, {}),
            customers(u"customers by reading"_qs, reading),
            sorted(u"by name"_qs, u"[顧客情報].[名前1]"_qs),
            sorted(u"by casting day"_qs, u"[顧客見積情報].[採型日]"_qs),
            sorted(u"by delivery"_qs, u"[顧客見積情報].[納品実績日]"_qs),
            sorted(u"by product"_qs, u"[顧客見積情報].[製品コード]"_qs),
            sorted(u"by estimate name"_qs, u"[顧客見積情報].[見積名称]"_qs),
            sorted(u"by amount"_qs, u"[顧客見積情報].[見積総合計]"_qs),
            sorted(u"by ordering party"_qs, u"[顧客カルテ].[受注先]"_qs),
            sorted(u"by status"_qs, u"[顧客見積情報].[処理区分]"_qs)};
}

// A running shell: the time from the statement to the line of its hundredth row, or its last.
class Shell {
public:
    explicit Shell(const ConnectionSettings& settings) : m_sqlite(settings.provider == Provider::SQLite) {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        if (m_sqlite) {
            m_process.start(u"sqlite3"_qs, {settings.path});
        } else {
            QStringList arguments{u"-X"_qs, u"-q"_qs, u"-A"_qs, u"-t"_qs, u"-d"_qs, settings.database};
            if (!settings.path.isEmpty()) arguments << u"-h"_qs << settings.path;
            if (!settings.user.isEmpty()) arguments << u"-U"_qs << settings.user;
            m_process.start(u"psql"_qs, arguments);
            m_process.write("\\set FETCH_COUNT 100\n");
        }
        m_process.write("SELECT 'ready';\n");
        readLines(1);
    }
    ~Shell() {
        m_process.kill();
        m_process.waitForFinished();
    }

    double millisecondsTo(const QString& statement) {
        QElapsedTimer timer;
        timer.start();
        m_process.write((statement + u";\nSELECT 'end';\n"_qs).toUtf8());
        readLines(firstRows);
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    QString words(const QString& statement) {
        return m_sqlite ? m_sqliteWords.translate(statement) : m_postgresWords.translate(statement);
    }

private:
    void readLines(int wanted) {
        for (int lines = 0; lines < wanted;) {
            if (!m_process.canReadLine() && !m_process.waitForReadyRead(60'000)) return;
            while (lines < wanted && m_process.canReadLine())
                if (++lines; m_process.readLine().trimmed() == "end") return;
        }
    }

    bool m_sqlite;
    QProcess m_process;
    SqliteDialect m_sqliteWords;
    PostgresDialect m_postgresWords;
};

double shellTime(const ConnectionSettings& settings, const QString& statement) {
    Shell shell(settings);
    return shell.millisecondsTo(shell.words(statement));
}

struct Figures {
    double first = 0, all = 0, end = 0, longestPause = 0;
    int rows = 0;
};

double since(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

KeyedList::Fetch fetchOf(bool customers) {
    if (customers)
        return [](const QStringList& keys) {
            QHash<QString, QStringList> rows;
            for (const clsCustomer& customer : gCustomerManager.customersOf(keys))
                rows.insert(clsCustomerManager::listKey(customer),
                            {customer.CustNo, customer.CustNm1, customer.CustKn1});
            return rows;
        };
    return [](const QStringList& keys) {
        QHash<QString, QStringList> rows;
        gCsEstimateManager.ForEachOf(
            keys, [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart&) {
                rows.insert(estimate.EstId, {estimate.EstNo, customer.CustNm1, estimate.EstSum});
            });
        return rows;
    };
}

void look(Grid& grid, int from) {
    for (int row = from; row < from + rowsOnScreen && row <= grid.rows(); ++row) grid.value(row, 0);
}

Figures play(Grid& grid, KeyedList& list, const QString& statement) {
    Figures figures;
    QElapsedTimer timer, tick;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] {
        figures.longestPause = std::max(figures.longestPause, since(tick));
        tick.restart();
    });
    bool shown = false;
    const auto connection = QObject::connect(&list, &KeyedList::shown, [&] {
        look(grid, 1);
        figures.first = since(timer);
        shown = true;
    });
    timer.start();
    tick.start();
    heart.start(1);
    list.show(statement);
    while (!shown || grid.isFilling()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(connection);
    figures.all = since(timer);
    figures.rows = grid.rows();
    QElapsedTimer jump;
    jump.start();
    look(grid, std::max(1, grid.rows() - rowsOnScreen));
    figures.end = since(jump);
    return figures;
}

QByteArray peakMemory() {
    QFile status(u"/proc/self/status"_qs);
    if (!status.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).simplified();
    return {};
}

void run(Connection& connection) {
    Grid grid;
    GridColumn column;
    grid.setColumns({column, column, column});
    QLabel count;
    std::printf("%-22s %9s %10s %7s %6s %10s %9s %9s\n", "list", "rows", "first ms", "shell", "ratio", "all ms",
                "end ms", "pause ms");
    KeyedList estimates(&grid, &count, connection.settings(), fetchOf(false));
    Grid customerGrid;
    customerGrid.setColumns({column, column, column});
    KeyedList customers(&customerGrid, &count, connection.settings(), fetchOf(true));
    play(grid, estimates, u"SELECT [見積ID] FROM [顧客見積情報] WHERE [見積ID] = ''"_qs); // both have their connection
    play(customerGrid, customers, u"SELECT [顧客ID] FROM [顧客情報] WHERE [顧客ID] = ''"_qs);
    for (const ListCase& one : cases()) {
        const bool person = one.name.contains(u"customers");
        // A shell of its own each time, as the rest of an answer is still on its way; the better of two.
        double best = shellTime(connection.settings(), one.shown);
        best = std::min(best, shellTime(connection.settings(), one.shown));
        const auto list = [&] {
            return person ? play(customerGrid, customers, one.keys) : play(grid, estimates, one.keys);
        };
        Figures figures = list();
        if (const Figures again = list(); again.first < figures.first) figures = again;
        std::printf("%-22s %9d %10.1f %7.1f %6.2f %10.1f %9.1f %9.1f\n", qPrintable(one.name), figures.rows,
                    figures.first, best, figures.first / best, figures.all, figures.end, figures.longestPause);
        std::fflush(stdout);
    }
    QElapsedTimer timer;
    timer.start();
    const qint64 rows = gCsEstimateManager.CountWithMst({});
    std::printf("count of %lld: %.1f ms; peak memory %s\n", rows, since(timer), peakMemory().constData());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2) return 2;
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(QString::fromLocal8Bit(argv[1]))));
        connection.open();
        setSystemDate({});
        Managers::prepare(connection);
        run(connection);
        Managers::release();
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "list_bench: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
