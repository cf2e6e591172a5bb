#include "operations/NewOffice.h"

#include "base/AppError.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "db/clsOfficeManager.h"
#include "operations/DatabaseCreation.h"

#include <QDir>
#include <QFile>

namespace {

const QString profileName = u"Halvane.ini"_qs;
// Under this name until all stands: a folder with an INI file is an office.
const QString unfinishedName = u"Halvane.ini.new"_qs;

QString deliveredProfile() {
    QFile file(u":/data/Halvane.ini"_qs);
    if (!file.open(QIODevice::ReadOnly)) throw AppError(u"配布データ Halvane.ini が読めません。"_qs, u"NewOffice"_qs);
    return QString::fromUtf8(file.readAll());
}

void makeFolder(const QString& path) {
    if (QDir(path).exists()) return;
    if (!QDir().mkpath(path)) throw AppError(u"フォルダを作れません。\n"_qs + path, u"NewOffice"_qs);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void setName(const ConnectionSettings& settings, const QString& name) {
    if (name.isEmpty()) return;
    Connection connection(settings);
    connection.open();
    clsOfficeManager manager;
    manager.Prepare(connection);
    clsOffice office;
    manager.GetData(1, office);
    office.office = name;
    manager.SaveData(1, office);
}

bool isOffice(const ConnectionSettings& settings) {
    if (settings.provider == Provider::SQLite && !QFile::exists(settings.path)) return false;
    try {
        Connection connection(settings);
        connection.open();
        return connection.tableExists(u"システム設定"_qs);
    } catch (const AppError&) {
        return false;
    }
}

} // namespace

QString NewOffice::writeProfile() const {
    makeFolder(folder);
    const QString file = QDir(folder).filePath(unfinishedName);
    WholeFile ini(file, u"INIﾌｧｲﾙ"_qs);
    ini.write(Text::toCp932(deliveredProfile().replace(u"\n"_qs, u"\r\n"_qs)));
    ini.commit();
    const clsProfile profile(file);
    profile.SaveValue(u"DB"_qs, u"Provider"_qs, provider == Provider::SQLite ? u"SQLite"_qs : u"PostgreSQL"_qs);
    profile.SaveValue(u"DB"_qs, u"Path"_qs, path);
    profile.SaveValue(u"DB"_qs, u"Database"_qs, database);
    if (provider == Provider::PostgreSQL) {
        profile.SaveValue(u"DB"_qs, u"UserId"_qs, user);
        profile.SaveValue(u"DB"_qs, u"PassWd"_qs, password);
    }
    return file;
}

bool NewOffice::hasDatabase() const {
    const QString file = writeProfile();
    const bool there = isOffice(ConnectionSettings::fromProfile(clsProfile(file)));
    QFile::remove(file);
    return there;
}

void NewOffice::make() const {
    const QString file = writeProfile();
    try {
        const clsProfile profile(file);
        const ConnectionSettings settings = ConnectionSettings::fromProfile(profile);
        if (!isOffice(settings)) {
            using DatabaseCreation::Contents;
            DatabaseCreation::create(settings, withSample ? Contents::WithSample : Contents::Delivered);
            if (withSample) DatabaseCreation::writeSampleHelp(profile);
            setName(settings, name);
        }
        if (!QFile::rename(file, QDir(folder).filePath(profileName)))
            throw AppError(u"INIﾌｧｲﾙを作れません。\n"_qs + file, u"NewOffice"_qs);
    } catch (...) {
        QFile::remove(file);
        throw;
    }
}
