// What a screen waits for: a statement in the engine's words, an order saved, an order read, a list.
#include "base/Application.h"
#include "base/Text.h"
#include "db/SqlDialect.h"
#include "estimates/EstimateManagers.h"
#include "operations/DatabaseCreation.h"
#include "operations/Managers.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

QString statement(int number) {
    return u"SELECT [顧客見積情報].[見積ID], [顧客情報].[名前1] & [顧客情報].[名前2] AS [氏名] FROM ([顧客見積情報] "
           u"LEFT JOIN [顧客情報] ON ([顧客見積情報].[顧客ID] = [顧客情報].[顧客ID]) AND ([顧客見積情報].[顧客枝番] = "
           u"[顧客情報].[顧客枝番])) WHERE [顧客見積情報].[見積ID] = '%1' AND [採型日] >= #2026/04/01# "
           u"ORDER BY [顧客見積情報].[見積ID] DESC"_qs.arg(number);
}

void translateNewStatement(benchmark::State& state) {
    PostgresDialect dialect;
    int number = 0;
    for (auto _ : state) benchmark::DoNotOptimize(dialect.translate(statement(++number)));
}
BENCHMARK(translateNewStatement);

void translateSeenStatement(benchmark::State& state) {
    PostgresDialect dialect;
    const QString seen = statement(1);
    for (auto _ : state) benchmark::DoNotOptimize(dialect.translate(seen));
}
BENCHMARK(translateSeenStatement);

struct Office {
    QTemporaryDir folder;
    Connection connection;

    Office() : connection(made(folder)) {
        connection.open();
        setSystemDate({});
        Managers::prepare(connection);
    }
    ~Office() { Managers::release(); }

    static ConnectionSettings made(const QTemporaryDir& folder) {
        const auto settings = ConnectionSettings::sqliteFile(folder.filePath(u"bench.db"_qs));
        DatabaseCreation::create(settings, DatabaseCreation::Contents::WithSample);
        return settings;
    }
};

QString firstEstimate(Connection& connection) {
    return connection.scalar(u"SELECT MIN([見積ID]) FROM [顧客見積情報]"_qs);
}

void readOrder(benchmark::State& state) {
    Office office;
    const QString id = firstEstimate(office.connection);
    const QString rows = u"[見積ID] = '%1'"_qs.arg(id);
    for (auto _ : state) {
        clsCsEstimate estimate;
        QList<clsCsItem> items;
        QList<clsCsMakeElmt> elements;
        QList<clsCsCmpltElmt> parts;
        QList<clsCsEstAsk> claims;
        gCsEstimateManager.GetData(id, estimate);
        gCsItemManager.GetList(items, rows);
        gCsMakeElmtManager.GetList(elements, rows);
        gCsCmpltElmtManager.GetList(parts, rows);
        gCsEstAskManager.GetList(claims, rows);
    }
}
BENCHMARK(readOrder)->Unit(benchmark::kMillisecond);

// With everything that reaches the disk before the operator may go on; also as it would be without the last sync, that
// of the folder (docs/decisions/0043). To be compared in one run, turn by turn:
//   data_bench --benchmark_filter=saveOrder --benchmark_repetitions=20 --benchmark_enable_random_interleaving=true
void saveOrder(benchmark::State& state, const QString& synchronous) {
    Office office;
    office.connection.engineExecute(u"PRAGMA synchronous = "_qs + synchronous);
    const QString id = firstEstimate(office.connection);
    const QString rows = u"[見積ID] = '%1'"_qs.arg(id);
    clsCsEstimate estimate;
    QList<clsCsMakeElmt> elements;
    QList<clsCsEstAsk> claims;
    gCsEstimateManager.GetData(id, estimate);
    gCsMakeElmtManager.GetList(elements, rows);
    gCsEstAskManager.GetList(claims, rows);
    for (auto _ : state) {
        Transaction transaction(office.connection);
        gCsEstimateManager.SaveData(estimate);
        gCsMakeElmtManager.SaveData(elements);
        gCsEstAskManager.SaveData(claims);
        transaction.commit();
    }
}
BENCHMARK_CAPTURE(saveOrder, EXTRA, u"EXTRA"_qs)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveOrder, FULL, u"FULL"_qs)->Unit(benchmark::kMillisecond);

void listOfOrders(benchmark::State& state) {
    Office office;
    for (auto _ : state) {
        QList<clsCsEstimate> estimates;
        QList<clsCustomer> customers;
        QList<clsChart> charts;
        gCsEstimateManager.GetListWithMst(estimates, customers, charts, {}, gCsEstimateManager.byKey());
        benchmark::DoNotOptimize(estimates);
    }
}
BENCHMARK(listOfOrders)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
