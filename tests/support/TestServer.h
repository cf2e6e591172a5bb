#pragma once

#include "db/ConnectionSettings.h"

#include <QString>

// The PostgreSQL server of the tests, whose socket folder stands in HALVANE_TEST_PG. Without one every question to it
// raises an error whose words say how to get one.
namespace TestServer {

bool isNamed();
// The sentence about a server that is missing.
QString howToGetOne();
// A database of the server; it need not exist.
ConnectionSettings database(const QString& name);

// An empty database with the letters that the program asks for.
void create(const QString& name);
// Whoever is still connected is thrown out.
void drop(const QString& name);
bool has(const QString& name);
// Statements in the engine's own words that belong to no test database.
void execute(const QString& statement);
QString scalar(const QString& statement);

} // namespace TestServer
