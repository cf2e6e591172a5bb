#pragma once

#include "support/TestDatabase.h"

#include "db/clsDbManager.h"
#include "ui/Style.h"

#include <QApplication>

// An office of one test's own that is open as the screens find it: the program's look, INI file, connection and
// managers.
class OpenOffice {
public:
    explicit OpenOffice(TestDatabase::Contents contents = TestDatabase::Contents::Delivered) : m_database(contents) {
        Style::apply(*qApp);
        m_database.writeProfile();
        gDbManager.DBOpen();
        m_database.prepareManagers();
    }
    ~OpenOffice() { gDbManager.DBClose(); }
    OpenOffice(const OpenOffice&) = delete;
    OpenOffice& operator=(const OpenOffice&) = delete;

private:
    TestDatabase m_database;
};
