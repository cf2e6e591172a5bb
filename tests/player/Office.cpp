#include "Office.h"

#include "operations/DatabaseCreation.h"

#include <QDir>

namespace {

TestDatabase::Contents deliveredOn(Provider provider) {
    qputenv("HALVANE_TEST_PROVIDER", provider == Provider::PostgreSQL ? "PostgreSQL" : "SQLite");
    return TestDatabase::Contents::Delivered;
}

} // namespace

Office::Office(Provider provider) : m_database(deliveredOn(provider)) {
    m_database.writeProfile(u"[Log]\r\nPath=log\r\n"_qs);
}

QString Office::iniFile() const { return QDir(folder()).filePath(u"Halvane.ini"_qs); }

void Office::loadSample() { DatabaseCreation::loadSample(*m_database.another()); }

void Office::execute(const QString& statement) { m_database.another()->execute(statement); }

QString Office::scalar(const QString& select) { return m_database.another()->scalar(select); }
