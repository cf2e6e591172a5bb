#pragma once

#include "db/Connection.h"

#include <QTemporaryDir>

#include <memory>

// A database of one test's own, made from a template: on SQLite a copied file, on PostgreSQL a uniquely named database
// that is dropped at the end. The engine is that of HALVANE_TEST_PROVIDER ("SQLite" or "PostgreSQL"); the server is
// that of TestServer.
class TestDatabase {
public:
    enum class Contents { Empty, Delivered, Sample };

    explicit TestDatabase(Contents contents = Contents::Delivered);
    ~TestDatabase();

    Connection& connection() { return *m_connection; }
    const ConnectionSettings& settings() const { return m_settings; }
    // A second connection to the same database, as another machine has.
    std::unique_ptr<Connection> another() const;
    // A folder of the test's own, removed at the end.
    QString folder() const { return m_folder.path(); }
    // Prepares every manager of the program with this database, and the system date.
    void prepareManagers();
    // Writes an INI file for this database into the folder and makes the folder the program's.
    void writeProfile(const QString& more = {});

    static Provider provider();
    static bool isPostgres() { return provider() == Provider::PostgreSQL; }

private:
    QTemporaryDir m_folder;
    ConnectionSettings m_settings;
    std::unique_ptr<Connection> m_connection;
};
