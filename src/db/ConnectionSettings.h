#pragma once

#include <QString>

class clsProfile;

enum class Provider { SQLite, PostgreSQL };

// Where the database is. For SQLite `path` is the file; for PostgreSQL it is the host ("host:port"; empty: the local
// socket) and `database` the database's name.
struct ConnectionSettings {
    Provider provider = Provider::SQLite;
    QString path;
    QString database;
    QString user;
    QString password;
    qint64 timeout = 5;          // seconds to wait for others, 0: not at all
    bool administration = false; // for making databases: any database of the server will do

    // Section `DB` of an INI file. An unknown provider, or a time-out that is no number or beyond its limits, raises an
    // error that names its key.
    static ConnectionSettings fromProfile(const clsProfile& profile);
    static ConnectionSettings sqliteFile(const QString& file);

    // Without the password, for messages and the log.
    QString description() const;
};
