#pragma once

#include "support/CutLine.h"
#include "support/TestDatabase.h"

#include <memory>

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
    // The line to the server that the program then goes over; raises a StepFailure on an engine without a server.
    CutLine& line();
    // Takes all room that is left on the disk of the program folder, and gives it back. Raises a StepFailure on a disk
    // of more than a few megabytes, which the tests have to themselves.
    void fillDisk();
    void freeDisk();
    // The first field of the first row as text, on a connection of its own.
    QString scalar(const QString& select);

private:
    TestDatabase m_database;
    std::unique_ptr<CutLine> m_line;
};
