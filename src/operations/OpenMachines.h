#pragma once

#include "db/ConnectionSettings.h"

#include <QStringList>

#include <memory>

class QFile;

// Who has the office open. A server knows its sessions; beside a database file stands a small one in which every
// machine keeps a lock and its name, which go with its program however that ends.
class OpenMachines {
public:
    OpenMachines();
    ~OpenMachines();

    // This program has the office open from now on. Raises an error while another machine puts it back.
    void enter(const ConnectionSettings& office);
    void leave();

    // The names of the other programs that have it open, for who has left it.
    static QStringList others(const ConnectionSettings& office);
    // Keeps the others out while it lives; nothing when one has the office open.
    static std::unique_ptr<OpenMachines> alone(const ConnectionSettings& office);

private:
    bool open(const ConnectionSettings& office);
    bool lock(short kind, qint64 place) const;
    void writeName();

    std::unique_ptr<QFile> m_file;
};
