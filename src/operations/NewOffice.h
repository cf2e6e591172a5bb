#pragma once

#include "db/ConnectionSettings.h"

#include <QString>

// The folder of an office that starts: its INI file and its database.
struct NewOffice {
    QString folder;          // is made when it is not there, for its owner alone
    QString name;            // of the office, into a new database; empty: to be entered later
    bool withSample = false; // an invented office to look at
    Provider provider = Provider::SQLite;
    QString path = u"."_qs;              // folder of the file, relative to `folder` or absolute; or the server
    QString database = u"Halvane.db"_qs; // name of the file, or of the database on the server
    QString user, password;              // of the server

    // Whether the database is there already, as it is for the second machine of an office. False also where a server
    // gives no answer; making it then tells why.
    bool hasDatabase() const;
    // Writes the INI file, and makes the database unless it is there, which stays as it is. A failure leaves no INI
    // file, so that the next start asks again.
    void make() const;

private:
    QString writeProfile() const;
};
