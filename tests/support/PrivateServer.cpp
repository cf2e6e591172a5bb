#include "support/PrivateServer.h"

#include "base/AppError.h"
#include "base/Text.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <csignal>
#include <unistd.h>

namespace {

constexpr int patience = 60'000; // milliseconds

QString program(const QString& name) {
    const QDir versions(u"/usr/lib/postgresql"_qs);
    return versions.filePath(versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0) + u"/bin/"_qs + name);
}

// The server refuses to run as root.
void run(const QString& name, QStringList arguments) {
    QString command = program(name);
    if (geteuid() == 0) {
        arguments = QStringList{u"-u"_qs, u"postgres"_qs, u"--"_qs, command} + arguments;
        command = u"runuser"_qs;
    }
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(u"/"_qs);
    process.start(command, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        throw AppError(name + u": "_qs + QString::fromUtf8(process.readAll()) + process.errorString());
}

// Nobody may have taken note of its end yet.
bool lives(qint64 pid) {
    QFile status(u"/proc/%1/stat"_qs.arg(pid));
    return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
}

// A server that was killed is gone when nobody is left who would share its memory.
void awaitEnd(qint64 pid) {
    for (const QDeadlineTimer deadline(patience); lives(pid);) {
        if (deadline.hasExpired()) throw AppError(u"the server does not end"_qs);
        QThread::msleep(5);
    }
}

} // namespace

PrivateServer::PrivateServer() {
    QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777));
    run(u"initdb"_qs, {u"--pgdata="_qs + data(), u"--username=halvane"_qs, u"--auth=trust"_qs, u"--encoding=UTF8"_qs,
                       u"--locale=C"_qs, u"--no-sync"_qs});
    start();
}

PrivateServer::~PrivateServer() {
    try {
        if (process() > 0) stop(true);
    } catch (const AppError&) {
        // It was killed by its test.
    }
}

ConnectionSettings PrivateServer::database(const QString& name) const {
    ConnectionSettings settings;
    settings.provider = Provider::PostgreSQL;
    settings.path = m_folder.path();
    settings.user = u"halvane"_qs;
    settings.database = name;
    return settings;
}

void PrivateServer::control(const QStringList& arguments) {
    run(u"pg_ctl"_qs, QStringList{u"--pgdata="_qs + data(), u"--wait"_qs, u"--silent"_qs} + arguments);
}

void PrivateServer::start() {
    control({u"--log="_qs + m_folder.filePath(u"data/log.txt"_qs), u"--options=-h '' -F -k "_qs + m_folder.path(),
             u"start"_qs});
}

void PrivateServer::stop(bool immediately) {
    control({immediately ? u"--mode=immediate"_qs : u"--mode=fast"_qs, u"stop"_qs});
}

// The first line of the server's own note.
qint64 PrivateServer::process() const {
    QFile note(data() + u"/postmaster.pid"_qs);
    return note.open(QIODevice::ReadOnly) ? note.readLine().trimmed().toLongLong() : 0;
}

void PrivateServer::kill() {
    const qint64 pid = process();
    QProcess children;
    children.start(u"ps"_qs, {u"-o"_qs, u"pid="_qs, u"--ppid"_qs, QString::number(pid)});
    children.waitForFinished(patience);
    QList<qint64> all{pid};
    for (const QByteArray& child : children.readAll().simplified().split(' ')) all << child.toLongLong();
    for (const qint64 one : all)
        if (one > 1) ::kill(static_cast<pid_t>(one), SIGKILL);
    for (const qint64 one : all)
        if (one > 1) awaitEnd(one);
    // Its marks would keep the next one away for as long as nobody has taken note of its end.
    for (const QString& mark : {u"data/postmaster.pid"_qs, u".s.PGSQL.5432.lock"_qs, u".s.PGSQL.5432"_qs})
        QFile::remove(m_folder.filePath(mark));
}

void PrivateServer::killBackEnd(qint64 pid) {
    if (pid <= 1) throw AppError(u"no such process"_qs);
    ::kill(static_cast<pid_t>(pid), SIGKILL);
    awaitEnd(pid);
}

void PrivateServer::becomeStandby() {
    QFile sign(data() + u"/standby.signal"_qs);
    if (!sign.open(QIODevice::WriteOnly)) throw AppError(u"no sign for a standby"_qs);
    sign.close();
    sign.setPermissions(QFile::Permissions(0x6666));
}

void PrivateServer::promote() { control({u"promote"_qs}); }
