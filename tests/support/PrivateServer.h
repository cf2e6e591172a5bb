#pragma once

#include "db/ConnectionSettings.h"

#include <QTemporaryDir>

// A PostgreSQL server of one test's own, to be killed, stopped and started again. It goes with the object.
class PrivateServer {
public:
    // Makes and starts it; raises an error when it cannot.
    PrivateServer();
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    // A database of the server; it need not exist.
    ConnectionSettings database(const QString& name) const;

    void start();
    // As the system does at a shutdown, throwing everybody out; or at once, as when its machine is switched off.
    void stop(bool immediately);
    // kill -9, of the server with all that belongs to it.
    void kill();
    // kill -9 of the process that serves one connection, by its number.
    void killBackEnd(qint64 pid);
    // Makes it, stopped, one that only follows another and may be read; and again one of its own.
    void becomeStandby();
    void promote();

private:
    void control(const QStringList& arguments);
    qint64 process() const;
    QString data() const { return m_folder.filePath(u"data"_qs); }

    QTemporaryDir m_folder;
};
