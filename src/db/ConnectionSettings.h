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
    int timeout = 5;             // seconds
    bool administration = false; // for making databases: any database of the server will do

    // Section `DB` of an INI file. An unknown provider or a time-out that is no number raises an error.
    static ConnectionSettings fromProfile(const clsProfile& profile);
    static ConnectionSettings sqliteFile(const QString& file);

    // Without the password, for messages and the log.
    QString description() const;
};
