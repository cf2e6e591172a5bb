#pragma once

#include "support/TestDatabase.h"

// A fresh program folder with an INI file and a new database of the delivered rows, for one scenario. It takes
// everything away again.
class Office {
public:
    explicit Office(Provider provider);

    QString folder() const { return m_database.folder(); }
    QString iniFile() const;
    // Fills the database with the sample office and its price list.
    void loadSample();
    void execute(const QString& statement);
    // The first field of the first row as text, on a connection of its own.
    QString scalar(const QString& select);

private:
    TestDatabase m_database;
};
