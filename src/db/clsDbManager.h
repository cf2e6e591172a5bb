#pragma once

#include "db/Connection.h"

#include <memory>

// Holds the one database connection of the run.
class clsDbManager {
public:
    // Opens the database that the INI file names.
    void DBOpen();
    // Closes and releases the connection; failures are ignored.
    void DBClose() noexcept;
    // The open connection; raises an error when there is none.
    ::Connection& Connection();
    bool isOpen() const { return m_connection != nullptr; }

private:
    std::unique_ptr<::Connection> m_connection;
};

extern clsDbManager gDbManager;
