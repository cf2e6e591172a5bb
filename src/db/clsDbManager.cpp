#include "db/clsDbManager.h"

#include "base/AppError.h"
#include "base/clsProfile.h"

clsDbManager gDbManager;

void clsDbManager::DBOpen() {
    auto connection = std::make_unique<::Connection>(ConnectionSettings::fromProfile(clsProfile()));
    connection->open();
    m_connection = std::move(connection);
}

void clsDbManager::DBClose() noexcept { m_connection.reset(); }

::Connection& clsDbManager::Connection() {
    if (!m_connection) throw AppError(u"データベースが開かれていません。"_qs, u"clsDbManager"_qs);
    return *m_connection;
}
