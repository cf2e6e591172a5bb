#pragma once

#include "db/ConnectionSettings.h"

#include <QString>

#include <functional>

class Connection;
class clsProfile;

// A new database from the schema, the delivered rows and, if asked, the sample office.
namespace DatabaseCreation {

enum class Contents { Delivered, WithSample };

// Makes the database that the settings name. Refuses to touch an existing one with an error; a failure leaves nothing
// behind. `progress` gets a line for each step.
void create(const ConnectionSettings& settings, Contents contents,
            const std::function<void(const QString&)>& progress = {});

// Makes the database and hands it to `fill`, without tables and inside a transaction; refusal and failure as above.
void createWith(const ConnectionSettings& settings, const std::function<void(Connection&)>& fill);

// Makes a price database, a file of the embedded engine with the five empty price tables; refusal and failure as above.
void createPrices(const QString& path);

// On a server: puts a database in the place of another, which is kept under a third name (whoever bears that goes), in
// one step. Nobody else may have either open.
void exchangeOnServer(const ConnectionSettings& settings, const QString& newOne, const QString& kept);
// Drops a database of the server if it is there.
void dropOnServer(const ConnectionSettings& settings, const QString& name);

// All tables of the schema, empty, in a database without any.
void createTables(Connection& connection);
// The rows of a table that stand in every new database, as CSV with a line of headings.
QString deliveredRows(const QString& table);
// The rows that stand in every new database.
void loadDelivered(Connection& connection);
// The sample office and its price list, on top of the delivered rows. One transaction.
void loadSample(Connection& connection);
// Pictures and texts of its articles, into the folders that an INI file names for them, when it asks for files of their
// type. What stands there stays as it is.
void writeSampleHelp(const clsProfile& profile);

} // namespace DatabaseCreation
