#pragma once

#include "db/ConnectionSettings.h"

#include <QTemporaryDir>

// A fresh program folder with an INI file and a new database, for one scenario. It takes everything away again.
class Office {
public:
    explicit Office(Provider provider);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    QString folder() const { return m_folder.path(); }
    QString iniFile() const;
    // Fills the database with the sample office and its price list.
    void loadSample();
    void execute(const QString& statement);
    // The first field of the first row as text, on a connection of its own.
    QString scalar(const QString& select);

private:
    QTemporaryDir m_folder;
    ConnectionSettings m_settings;
};
