// What keeping the office costs, against the engine's own shell in the same run.
//   keeping_bench FILE.ini check     the check of the amounts, and the shell with its three statements
//   keeping_bench FILE.ini postal    125,000 rows into the postal book, and the shell's own import with the indexes
//   keeping_bench FILE.ini backup    a backup while eight machines save, and the longest that one of them waited
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Dates.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsProfile.h"
#include "db/SqlDialect.h"
#include "operations/Backup.h"
#include "operations/BackupFiles.h"
#include "operations/clsSearchAbnormal.h"
#include "reference/clsZipManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int postalRows = 125'000;
constexpr int machines = 8;

double secondsOf(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1e9;
}

double shell(const ConnectionSettings& office, const QString& script) {
    QProcess process;
    const bool isFile = office.provider == Provider::SQLite;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    return secondsOf([&] {
        if (isFile)
            process.start(u"sqlite3"_qs, {office.path});
        else
            process.start(u"psql"_qs, {u"-qX"_qs, u"-h"_qs, office.path, u"-U"_qs, office.user, office.database});
        process.write(script.toUtf8());
        process.closeWriteChannel();
        if (!process.waitForFinished(-1) || process.exitCode() != 0) throw AppError(u"the shell failed"_qs);
    });
}

void tell(const char* what, double ours, double theirs, double bound) {
    std::printf("%s: %.2f s, the shell %.2f s, ratio %.2f (bound %.1f)\n", what, ours, theirs, ours / theirs, bound);
    if (ours / theirs > bound) throw AppError(u"above the bound"_qs);
}

void check(Connection& office) {
    QString script;
    office.onStatement = {};
    double ours = 0;
    for (const QString& statement : clsSearchAbnormal::wholeStatements())
        script += (office.settings().provider == Provider::SQLite ? SqliteDialect().translate(statement)
                                                                  : PostgresDialect().translate(statement)) +
                  u";\n"_qs;
    const double theirs = shell(office.settings(), script);
    ours = secondsOf([&] {
        clsSearchAbnormal search;
        search.Prepare(office);
        if (search.WriteKanseiLost() && search.WriteKihonLost()) search.WriteBothLost();
    });
    tell("check", ours, theirs, 1.5);
}

void postal(Connection& office) {
    QTemporaryDir folder;
    QFile published(folder.filePath(u"KEN_ALL.CSV"_qs)), plain(folder.filePath(u"plain.csv"_qs));
    if (!published.open(QIODevice::WriteOnly) || !plain.open(QIODevice::WriteOnly)) throw AppError(u"no file"_qs);
    for (int i = 0; i < postalRows; ++i) {
        const QString code = u"%1"_qs.arg(i + 600'000, 7, 10, QLatin1Char('0'));
        const QString city = u"見本市第%1区"_qs.arg(i / 70);
        const QString town = u"町%1"_qs.arg(i);
        published.write(Text::toCp932(
            u"01101,\"060  \",\"%1\",\"ﾐﾎﾝｹﾝ\",\"ﾐﾎﾝｼ\",\"ﾏﾁ\",\"見本県\",\"%2\",\"%3（１～９丁目）\",0,0,0,0,0,0\r\n"_qs
                .arg(code, city, town)));
        plain.write(u"%1,見本県,%2,%3\n"_qs.arg(code.left(3) + u'-' + code.mid(3), city, town).toUtf8());
    }
    published.close();
    plain.close();
    const QString indexes = u"CREATE INDEX b1 ON book (\"郵便番号\"); CREATE INDEX b2 ON book (\"都道府県名\");"
                            u"CREATE INDEX b3 ON book (\"市区町村名\"); CREATE INDEX b4 ON book (\"町域名\");"
                            u"CREATE INDEX b5 ON book (\"都道府県名\",\"市区町村名\",\"町域名\");\n"_qs;
    const QString table = u"DROP TABLE IF EXISTS book;\nCREATE TABLE book (\"郵便番号\" TEXT, \"都道府県名\" TEXT,"
                          u" \"市区町村名\" TEXT, \"町域名\" TEXT);\n"_qs;
    const bool isFile = office.settings().provider == Provider::SQLite;
    const QString import = isFile ? u".mode csv\n.import %1 book\n"_qs : u"\\copy book FROM '%1' CSV\n"_qs;
    const double theirs =
        shell(office.settings(), (isFile ? u"PRAGMA synchronous=EXTRA;\nBEGIN;\n"_qs : u"BEGIN;\n"_qs) + table +
                                     import.arg(plain.fileName()) + indexes + u"COMMIT;\n"_qs);
    office.engineExecute(u"DROP TABLE book"_qs);
    gZipManager.Prepare(office);
    const double ours = secondsOf([&] {
        PostalFiles::Book book;
        PostalFiles::read(published.fileName(), book);
        Transaction transaction(office);
        gZipManager.ImportPublished(book);
        transaction.commit();
    });
    tell("postal book", ours, theirs, 3);
}

// Saves again and again, as one machine does, and knows how long it waited at most.
class Machine : public QThread {
public:
    Machine(ConnectionSettings office, int number, std::atomic_bool& ends)
        : m_office(std::move(office)), m_number(number), m_ends(ends) {}

    double longest = 0;
    int saves = 0;

protected:
    void run() override {
        Connection connection(m_office);
        connection.open();
        while (!m_ends) {
            longest =
                std::max(longest, secondsOf([&] {
                             Transaction transaction(connection);
                             for (const QString& column : {u"最終値"_qs, u"年度"_qs})
                                 connection.execute(u"UPDATE [採番] SET [%1] = '%2' WHERE [項目名] = 'm%3'"_qs.arg(
                                     column, QString::number(saves), QString::number(m_number)));
                             transaction.commit();
                         }));
            ++saves;
            msleep(50);
        }
    }

private:
    ConnectionSettings m_office;
    int m_number;
    std::atomic_bool& m_ends;
};

// In processes of their own a machine's locks are its own, too: this program is started once more as the machines.
int runMachines(const ConnectionSettings& office, const QString& last) {
    std::atomic_bool ends = false;
    std::vector<std::unique_ptr<Machine>> all;
    for (int i = 0; i < machines; ++i) all.push_back(std::make_unique<Machine>(office, i, ends));
    for (const auto& machine : all) machine->start();
    while (!QFile::exists(last)) QThread::msleep(10);
    ends = true;
    double longest = 0;
    int saves = 0;
    for (const auto& machine : all) {
        machine->wait();
        longest = std::max(longest, machine->longest);
        saves += machine->saves;
    }
    std::printf("%d saves of %d machines, the longest took %.3f s (bound 1)\n", saves, machines, longest);
    return longest < 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

void backup(Connection& office) {
    for (int i = 0; i < machines; ++i)
        office.execute(u"INSERT INTO [採番] ([項目名], [最終値], [桁], [年度]) VALUES ('m%1', '0', 1, '0')"_qs.arg(i));
    QTemporaryDir folder;
    const QString last = folder.filePath(u"last"_qs);
    QProcess others;
    others.setProcessChannelMode(QProcess::ForwardedChannels);
    others.start(QCoreApplication::applicationFilePath(), {clsProfile().Path(), u"machines"_qs, last});
    QThread::msleep(500);
    QString file;
    const double ours = secondsOf([&] {
        file = Backup::make(office.settings(), folder.path(), BackupFiles::stampOf(QDateTime::currentDateTime()),
                            Backup::Made::ByOperator);
    });
    QFile(last).open(QIODevice::WriteOnly);
    others.waitForFinished(-1);
    office.execute(u"DELETE FROM [採番] WHERE [項目名] LIKE 'm_'"_qs);
    Connection copy(ConnectionSettings::sqliteFile(file));
    copy.open();
    const QString torn = copy.scalar(u"SELECT COUNT(*) FROM [採番] WHERE [項目名] LIKE 'm_' AND [最終値] <> [年度]"_qs);
    std::printf("backup of %.0f MB: %.1f s, %s torn\n", QFileInfo(file).size() / 1e6, ours, qPrintable(torn));
    if (torn != u"0" || others.exitCode() != 0) throw AppError(u"above the bound"_qs);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    const QString ini = QFileInfo(words.value(1)).absoluteFilePath();
    const QString folder = QFileInfo(ini).path();
    seams().programFolder = [folder] { return folder; };
    try {
        const ConnectionSettings settings = ConnectionSettings::fromProfile(clsProfile(ini));
        if (words.value(2) == u"machines") return runMachines(settings, words.value(3));
        Connection office(settings);
        office.open();
        setSystemDate({});
        if (words.value(2) == u"check") check(office);
        if (words.value(2) == u"postal") postal(office);
        if (words.value(2) == u"backup") backup(office);
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
