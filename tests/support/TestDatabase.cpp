#include "support/TestDatabase.h"

#include "support/TestServer.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "operations/DatabaseCreation.h"
#include "operations/Managers.h"

#include <QCoreApplication>
#include <QFile>
#include <QMap>

namespace {

using Contents = TestDatabase::Contents;

QString uniqueName(const QString& what) {
    static int count = 0;
    return u"halvane_%1_%2_%3"_qs.arg(what).arg(QCoreApplication::applicationPid()).arg(++count);
}

void fill(Connection& connection, Contents contents) {
    connection.prepareNewDatabase();
    Transaction transaction(connection);
    DatabaseCreation::createTables(connection);
    if (contents != Contents::Empty) DatabaseCreation::loadDelivered(connection);
    if (contents == Contents::Sample) DatabaseCreation::loadSample(connection);
    transaction.commit();
}

void dropTemplates();

// One template of each kind, made by the first test that asks for it.
struct Templates {
    QTemporaryDir folder;
    QMap<Contents, QString> made;

    // Before the application object goes, while its database drivers still stand.
    void drop() {
        if (!TestDatabase::isPostgres()) return;
        for (const QString& name : made) {
            try {
                TestServer::drop(name);
            } catch (const AppError&) {
                // The server goes with the test run.
            }
        }
    }

    QString of(Contents contents) {
        if (made.contains(contents)) return made.value(contents);
        if (made.isEmpty()) qAddPostRoutine(dropTemplates);
        const QString name = uniqueName(u"template"_qs);
        ConnectionSettings settings;
        if (TestDatabase::isPostgres()) {
            TestServer::create(name);
            settings = TestServer::database(name);
        } else {
            settings = ConnectionSettings::sqliteFile(folder.filePath(name));
            QFile file(settings.path);
            if (!file.open(QIODevice::WriteOnly)) throw AppError(u"no template file"_qs);
        }
        Connection connection(settings);
        connection.open();
        fill(connection, contents);
        made.insert(contents, TestDatabase::isPostgres() ? name : settings.path);
        return made.value(contents);
    }
};

Templates& templates() {
    static Templates instance;
    return instance;
}

void dropTemplates() { templates().drop(); }

} // namespace

Provider TestDatabase::provider() {
    return qEnvironmentVariable("HALVANE_TEST_PROVIDER") == u"PostgreSQL" ? Provider::PostgreSQL : Provider::SQLite;
}

TestDatabase::TestDatabase(Contents contents) {
    if (isPostgres()) {
        const QString name = uniqueName(u"test"_qs);
        TestServer::execute(u"CREATE DATABASE %1 TEMPLATE %2"_qs.arg(name, templates().of(contents)));
        m_settings = TestServer::database(name);
    } else {
        m_settings = ConnectionSettings::sqliteFile(m_folder.filePath(u"halvane.db"_qs));
        QFile::copy(templates().of(contents), m_settings.path);
    }
    m_connection = another();
}

TestDatabase::~TestDatabase() {
    Managers::release();
    m_connection.reset();
    if (isPostgres()) TestServer::drop(m_settings.database);
    seams() = defaultSeams();
}

std::unique_ptr<Connection> TestDatabase::another() const {
    auto connection = std::make_unique<Connection>(m_settings);
    connection->open();
    return connection;
}

void TestDatabase::prepareManagers() {
    setSystemDate({});
    Managers::prepare(*m_connection);
}

void TestDatabase::writeProfile(const QString& more) {
    QFile file(m_folder.filePath(u"Halvane.ini"_qs));
    if (!file.open(QIODevice::WriteOnly)) throw AppError(u"no INI file"_qs);
    const QString provider = isPostgres() ? u"PostgreSQL"_qs : u"SQLite"_qs;
    const QString path = isPostgres() ? m_settings.path : QString();
    const QString database = isPostgres() ? m_settings.database : u"halvane.db"_qs;
    file.write(
        u"[DB]\r\nProvider=%1\r\nPath=%2\r\nDatabase=%3\r\nUserId=halvane\r\n%4"_qs.arg(provider, path, database, more)
            .toUtf8());
    const QString folder = m_folder.path();
    seams().programFolder = [folder] { return folder; };
}
