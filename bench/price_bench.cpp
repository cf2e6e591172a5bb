// A revision of 20,000 rows on its screen, against the engine's own import of the same files and the statements of the
// repricing alone, in one run; the longest pause of the window, and what the memory grows by. The office has as many
// master estimates as it is to be measured with, say 500 (large_office FILE.ini masters 500).
//   price_bench FILE.ini
#include "base/AppError.h"
#include "base/Application.h"
#include "db/clsSysSettingManager.h"
#include "master/MasterRepricing.h"
#include "operations/PriceRevision.h"
#include "price/PriceFiles.h"
#include "price/screens/frmKakakuUpdate.h"
#include "support/PriceSamples.h"
#include "ui/TextField.h"

#include "ListTiming.h"

#include <QPushButton>
#include <QTemporaryDir>

namespace {

constexpr int rowsPerTable = 4000;
constexpr double priceRatioBound = 3;

// The engine's own import of the five files into tables with the same key and index.
double importOfTheEngine(const QString& folder) {
    const ConnectionSettings office = gDbManager.Connection().settings();
    const bool isFile = office.provider == Provider::SQLite;
    QString script = isFile ? u"PRAGMA synchronous=EXTRA;\n.mode csv\nBEGIN;\n"_qs : u"BEGIN;\n"_qs;
    for (const QString& table : Schema::priceTables()) {
        const QStringList& columns = PriceFiles::columnsOf(table);
        const QString name = u"bench_"_qs + PriceFiles::profileKey(table);
        script +=
            u"CREATE TABLE %1 (\"%2\" TEXT, PRIMARY KEY (\"ID\"));\n"_qs.arg(name, columns.join(u"\" TEXT, \""_qs));
        QStringList indexed = Schema::table(table)->indexes.first();
        script += u"CREATE INDEX i_%1 ON %1 (\"%2\");\n"_qs.arg(name, indexed.join(u"\", \""_qs));
        script += (isFile ? u".import %1 %2\n"_qs : u"\\copy %2 FROM '%1' CSV\n"_qs)
                      .arg(QDir(folder).filePath(PriceFiles::sampleName(table) + u".utf8"_qs), name);
    }
    script += u"COMMIT;\n"_qs;
    QProcess shell;
    shell.setStandardOutputFile(QProcess::nullDevice());
    shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    if (isFile)
        shell.start(u"sqlite3"_qs, {office.path});
    else
        shell.start(u"psql"_qs, {u"-qX"_qs, u"-h"_qs, office.path, u"-U"_qs, office.user, office.database});
    shell.write(script.toUtf8());
    shell.closeWriteChannel();
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0) throw AppError(u"the shell failed"_qs);
    const double time = since(timer);
    for (const QString& table : Schema::priceTables())
        gDbManager.Connection().engineExecute(u"DROP TABLE bench_"_qs + PriceFiles::profileKey(table));
    return time;
}

// The statements of the repricing, run once more and read to their ends, in transactions as the repricing has them.
double statementsOfTheRepricing() {
    Connection& office = gDbManager.Connection();
    QStringList statements;
    {
        Transaction undone(office);
        office.onStatement = [&](const QString& statement) { statements << statement; };
        UpdateMasterEstimates(office, gPriceYear);
        office.onStatement = {};
    }
    Transaction undone(office);
    QElapsedTimer timer;
    timer.start();
    for (const QString& statement : statements) {
        if (!statement.trimmed().startsWith(u"SELECT"_qs)) {
            office.execute(statement);
            continue;
        }
        Recordset rows = office.query(statement);
        const qsizetype columns = rows.fields().size();
        while (rows.next())
            for (int column = 0; column < columns; ++column) (void)rows.value(column);
    }
    const double time = since(timer);
    std::printf("%d statements of the repricing: %.0f ms\n", static_cast<int>(statements.size()), time);
    return time;
}

void writeFiles(const QString& folder, int price) {
    const QStringList files = PriceSamples::largeFiles(rowsPerTable, price);
    PriceSamples::writeYear(folder, files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        QFile plain(QDir(folder).filePath(PriceFiles::sampleName(Schema::priceTables().at(i)) + u".utf8"_qs));
        if (!plain.open(QIODevice::WriteOnly)) throw AppError(u"no file"_qs);
        plain.write(files.at(i).toUtf8().replace("\r\n", "\n"));
    }
}

double revise(const QString& folder, const QString& year) {
    frmKakakuUpdate screen;
    screen.show();
    if (!screen.Load()) throw AppError(u"the screen does not open"_qs);
    child<TextField>(screen, u"txtDir"_qs)->setValue(folder);
    child<TextField>(screen, u"idtSelYear"_qs)->setValue(year);
    Heart heart;
    QElapsedTimer timer;
    timer.start();
    child<QPushButton>(screen, u"cbKakaku"_qs)->click();
    const double time = since(timer);
    const double pause = heart.longestPause();
    std::printf("revision: %.0f ms, longest pause %.0f ms%s\n", time, pause, verdict(pause <= pauseBound));
    if (gPriceYear != year) throw AppError(u"the revision failed"_qs);
    return time;
}

void run() {
    seams().message = [](const MessageBoxRequest& request) -> qint16 {
        return request.buttons == MessageButtons::YesNo ? AnswerYes : AnswerNone;
    };
    seams().openWithShell = [](const QString&) {};
    gPriceYear = gSysSettingManager.value(Setting::PriceYear);
    const QString before = gPriceYear;
    QTemporaryDir folder;
    writeFiles(folder.path(), 1000);
    revise(folder.path(), u"9998"_qs); // the files of the years are there from now on
    const int memory = peakMemory();
    const double ours = revise(folder.path(), u"9998"_qs);
    const int grown = peakMemory() - memory;
    const double theirs = importOfTheEngine(folder.path()) + statementsOfTheRepricing();
    std::printf("import of the engine and statements: %.0f ms; ratio %.2f%s; memory grown by %d KiB\n", theirs,
                ours / theirs, verdict(ours / theirs <= priceRatioBound), grown);
    PriceRevision back(
        gDbManager.Connection(), [](PriceRevision::Part, qint64, qint64) {}, [] {});
    back.run({PriceRevision::Request::KeptYear, before, {}});
    QFile::remove(QDir(PriceRevision::folder()).filePath(u"9998.db"_qs));
}

} // namespace

int main(int argc, char** argv) { return runLists(argc, argv, run); }
