#include "support/TestServer.h"

#include "base/AppError.h"
#include "db/Connection.h"

namespace {

constexpr char folder[] = "HALVANE_TEST_PG";

// In the database that every server has.
template <class Work> auto beside(Work work) {
    ConnectionSettings settings = TestServer::database(u"postgres"_qs);
    settings.administration = true;
    Connection connection(settings);
    connection.open();
    return work(connection);
}

} // namespace

namespace TestServer {

bool isNamed() { return !qEnvironmentVariableIsEmpty(folder); }

QString howToGetOne() {
    return u"HALVANE_TEST_PG names no PostgreSQL server; \"packaging/with-server COMMAND\" runs a command with its own."_qs;
}

ConnectionSettings database(const QString& name) {
    if (!isNamed()) throw AppError(howToGetOne());
    ConnectionSettings settings;
    settings.provider = Provider::PostgreSQL;
    settings.path = qEnvironmentVariable(folder);
    settings.user = u"halvane"_qs;
    settings.database = name;
    return settings;
}

void create(const QString& name) {
    execute(u"CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'"_qs.arg(name));
}

void drop(const QString& name) { execute(u"DROP DATABASE IF EXISTS %1 WITH (FORCE)"_qs.arg(name)); }

bool has(const QString& name) {
    return !scalar(u"SELECT 1 FROM pg_database WHERE datname = '%1'"_qs.arg(name)).isEmpty();
}

void execute(const QString& statement) {
    beside([&](Connection& connection) { connection.engineExecute(statement); });
}

QString scalar(const QString& statement) {
    return beside([&](Connection& connection) { return connection.engineScalar(statement); });
}

} // namespace TestServer
