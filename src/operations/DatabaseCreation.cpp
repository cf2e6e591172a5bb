#include "operations/DatabaseCreation.h"

#include "base/AppError.h"
#include "base/Csv.h"
#include "base/WholeFile.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "db/clsSQLMaker.h"
#include "price/PriceFiles.h"
#include "price/basPriceSelection.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

static void initResources() { Q_INIT_RESOURCE(data); }

namespace DatabaseCreation {

namespace {

QByteArray resource(const QString& path) {
    initResources();
    QFile file(u":/data/"_qs + path);
    if (!file.open(QIODevice::ReadOnly))
        throw AppError(u"配布データ %1 が読めません。"_qs.arg(path), u"DatabaseCreation"_qs);
    return file.readAll();
}

// Writes the rows of a data file into its table; a row whose key stands already is overwritten.
void loadTable(Connection& connection, const Schema::Table& table, const QString& path) {
    const QList<QStringList> lines = Csv::read(QString::fromUtf8(resource(path)));
    clsSQLMaker sql;
    sql.Prepare(connection, table.name);
    const QStringList heads = lines.value(0);
    for (const QStringList& line : lines.mid(1)) {
        const auto fill = [&](bool keysApart) {
            sql.RemoveAll();
            for (int i = 0; i < heads.size(); ++i) {
                if (keysApart && table.key.contains(heads.at(i)))
                    sql.AddKey(heads.at(i), line.value(i));
                else
                    sql.AddData(heads.at(i), line.value(i));
            }
        };
        fill(true);
        if (!table.key.isEmpty() && connection.execute(sql.GetSqlForUpdate()) > 0) continue;
        fill(false);
        connection.execute(sql.GetSqlForInsert());
    }
}

void loadFolder(Connection& connection, const QString& folder) {
    initResources();
    for (const Schema::Table& table : Schema::tables()) {
        const QString path = folder + u'/' + table.name + u".csv"_qs;
        if (QFile::exists(u":/data/"_qs + path)) loadTable(connection, table, path);
    }
    connection.advanceAutoKeys();
}

using Filler = std::function<void(Connection&)>;

void fillInOne(Connection& connection, const Filler& fill) {
    connection.prepareNewDatabase();
    Transaction transaction(connection);
    fill(connection);
    transaction.commit();
}

void createFile(const ConnectionSettings& settings, const Filler& fill) {
    if (QFileInfo::exists(settings.path))
        throw AppError(u"データベースは既に存在します。\n"_qs + settings.path, u"DatabaseCreation"_qs);
    QDir().mkpath(QFileInfo(settings.path).path());
    // Made under another name, so that a broken-off creation never looks like a database.
    const QString unfinished = settings.path + u".new"_qs;
    QFile::remove(unfinished);
    QFile empty(unfinished);
    // For its owner alone; the engine gives its journal the same mode.
    if (!empty.open(QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner))
        throw AppError(u"データベースを作成できません。\n"_qs + settings.path, u"DatabaseCreation"_qs);
    empty.close();
    try {
        Connection connection(ConnectionSettings::sqliteFile(unfinished));
        connection.open();
        fillInOne(connection, fill);
    } catch (...) {
        QFile::remove(unfinished);
        throw;
    }
    if (!QFile::rename(unfinished, settings.path))
        throw AppError(u"データベースを作成できません。\n"_qs + settings.path, u"DatabaseCreation"_qs);
}

// Any table, also one of another program: a database in use is never written to.
bool holdsTables(Connection& connection) {
    return connection.engineScalar(u"SELECT COUNT(*) FROM pg_tables WHERE schemaname = 'public'"_qs) != u"0";
}

ConnectionSettings administrationOf(const ConnectionSettings& settings) {
    ConnectionSettings administration = settings;
    administration.database = u"postgres"_qs;
    administration.administration = true;
    return administration;
}

QString quotedName(const QString& database) { return u'"' + QString(database).remove(u'"') + u'"'; }

void createOnServer(const ConnectionSettings& settings, const Filler& fill) {
    Connection server(administrationOf(settings));
    server.open();
    const QString quoted = quotedName(settings.database);
    const bool exists = !server
                             .engineScalar(u"SELECT 1 FROM pg_database WHERE datname = '%1'"_qs.arg(
                                 QString(settings.database).replace(u"'"_qs, u"''"_qs)))
                             .isEmpty();
    if (!exists)
        server.engineExecute(
            u"CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'"_qs.arg(quoted));
    try {
        Connection connection(settings);
        connection.open();
        if (exists && holdsTables(connection))
            throw AppError(u"データベースは既に存在します。\n"_qs + settings.description(), u"DatabaseCreation"_qs);
        fillInOne(connection, fill);
    } catch (...) {
        if (!exists) server.engineExecute(u"DROP DATABASE %1"_qs.arg(quoted));
        throw;
    }
}

void writeHelp(const clsProfile& profile, const QString& section, const QString& ours) {
    const QString folder = profile.GetPath(section, u"Path"_qs);
    const QString type = profile.GetValue(section, u"Type"_qs);
    if (folder.isEmpty() || type.mid(type.startsWith(u'.') ? 1 : 0).toLower() != ours) return;
    QDir().mkpath(folder);
    const QString source = u"sample/%1/"_qs.arg(section.toLower());
    initResources();
    for (const QString& name : QDir(u":/data/"_qs + source).entryList()) {
        const QString path = QDir(folder).filePath(name);
        if (QFile::exists(path)) continue;
        WholeFile file(path);
        file.write(resource(source + name));
        file.commit();
    }
}

} // namespace

void create(const ConnectionSettings& settings, Contents contents,
            const std::function<void(const QString&)>& progress) {
    if (progress) progress(u"データベースを作成しています: "_qs + settings.description());
    createWith(settings, [contents](Connection& connection) {
        createTables(connection);
        loadDelivered(connection);
        if (contents == Contents::WithSample) loadSample(connection);
    });
    if (progress) progress(u"データベースを作成しました。"_qs);
}

void createPrices(const QString& path) {
    createWith(ConnectionSettings::sqliteFile(path), [](Connection& connection) {
        for (const QString& table : Schema::priceTables()) connection.createTable(*Schema::table(table));
    });
}

void createWith(const ConnectionSettings& settings, const Filler& fill) {
    if (settings.provider == Provider::SQLite)
        createFile(settings, fill);
    else
        createOnServer(settings, fill);
}

namespace {

constexpr int patience = 10'000; // milliseconds

// Those of this program, which has closed the database but may have a session left that is still ending.
void endOwnSessions(Connection& server, const QString& database) {
    server.engineScalar(
        u"SELECT COUNT(pg_terminate_backend(pid, %1)) FROM pg_stat_activity WHERE datname = '%2'"
        u" AND application_name = current_setting('application_name') AND pid <> pg_backend_pid()"_qs.arg(
            QString::number(patience), QString(database).replace(u"'"_qs, u"''"_qs)));
}

} // namespace

void exchangeOnServer(const ConnectionSettings& settings, const QString& newOne, const QString& kept) {
    dropOnServer(settings, kept);
    Connection server(administrationOf(settings));
    server.open();
    const auto rename = [&server](const QString& from, const QString& to) {
        server.engineExecute(u"ALTER DATABASE %1 RENAME TO %2"_qs.arg(quotedName(from), quotedName(to)));
    };
    endOwnSessions(server, settings.database);
    Transaction transaction(server);
    rename(settings.database, kept);
    rename(newOne, settings.database);
    transaction.commit();
}

void dropOnServer(const ConnectionSettings& settings, const QString& name) {
    Connection server(administrationOf(settings));
    server.open();
    server.engineExecute(u"DROP DATABASE IF EXISTS "_qs + quotedName(name));
}

void createTables(Connection& connection) {
    for (const Schema::Table& table : Schema::tables()) connection.createTable(table);
}

QString deliveredRows(const QString& table) { return QString::fromUtf8(resource(u"seed/%1.csv"_qs.arg(table))); }

void loadDelivered(Connection& connection) { loadFolder(connection, u"seed"_qs); }

void loadSample(Connection& connection) {
    Transaction transaction(connection);
    for (const QString& table : Schema::priceTables())
        PriceFiles::importInto(connection, table, resource(u"sample/kakaku/"_qs + PriceFiles::sampleName(table)));
    RebuildBaseElmtSelect(connection);
    loadFolder(connection, u"sample"_qs);
    transaction.commit();
}

void writeSampleHelp(const clsProfile& profile) {
    writeHelp(profile, u"Image"_qs, u"png"_qs);
    writeHelp(profile, u"Text"_qs, u"txt"_qs);
}

} // namespace DatabaseCreation
