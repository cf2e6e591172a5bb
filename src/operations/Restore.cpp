#include "operations/Restore.h"

#include "base/AppError.h"
#include "base/WholeFile.h"
#include "db/Connection.h"
#include "operations/DatabaseCreation.h"
#include "operations/OpenMachines.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <cerrno>
#include <filesystem>

namespace Restore {

namespace {

constexpr qint64 partSize = 1 << 20;
const QString coming = u"-restore"_qs; // behind the name of what is being brought
const QString kept = u"-before-restore"_qs;
const QString journal = u"-journal"_qs;

QString native(const QString& path) { return QDir::toNativeSeparators(path); }

[[noreturn]] void fail(const QString& path, const QString& reason) {
    throw AppError(u"リストアできません。\n%1\n%2"_qs.arg(native(path), reason), u"Restore"_qs);
}

[[noreturn]] void failHere(const QString& path) { fail(path, systemFailure(errno)); }

std::filesystem::path pathOf(const QString& path) { return QFile::encodeName(path).toStdString(); }

// --- a file ---

void bring(const QString& file, const QString& target, const QString& office, const Backup::Progress& progress) {
    QFile from(file), to(target);
    errno = 0;
    if (!from.open(QIODevice::ReadOnly)) failHere(file);
    if (!to.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) failHere(target);
    to.setPermissions(QFileInfo(office).isFile() ? QFile::permissions(office) : officeFileMode);
    while (!from.atEnd()) {
        const QByteArray part = from.read(partSize);
        errno = 0;
        if (part.isEmpty() || to.write(part) != part.size()) failHere(target);
        if (progress && !progress(u"バックアップを写しています。"_qs, from.pos(), from.size()))
            throw AppError(u"中止しました。"_qs, u"Restore"_qs);
    }
    to.close();
    if (!fileSynced(target)) failHere(target);
}

// What a program that was killed has left undone is undone first; a database that cannot be opened any more keeps its
// journal by its side under its new name.
void settle(const ConnectionSettings& office) {
    try {
        Connection connection(office);
        connection.open();
        Transaction transaction(connection);
    } catch (const AppError& error) {
        if (isBusy(error)) throw;
        const QString left = office.path + journal;
        if (QFile::exists(left)) QFile::rename(left, keptName(office) + journal);
    }
}

// Under a second name first, so that the first is never without a database.
void keep(const QString& office, const QString& name) {
    const QString second = name + u".new"_qs;
    QFile::remove(second);
    std::error_code error;
    std::filesystem::create_hard_link(pathOf(office), pathOf(second), error);
    if (error && !QFile::copy(office, second)) failHere(second); // a place that knows no second names
    if (!fileSynced(second)) failHere(second);
    std::filesystem::rename(pathOf(second), pathOf(name), error);
    if (error) fail(name, systemFailure(error.value()));
}

void exchange(const QString& office, const QString& incoming, const QString& name) {
    if (QFileInfo(office).isFile()) keep(office, name);
    std::error_code error;
    std::filesystem::rename(pathOf(incoming), pathOf(office), error);
    if (error) fail(office, systemFailure(error.value()));
    if (!fileSynced(office)) failHere(office);
}

Backup::Proof provenCopy(const QString& copy, const QString& file, const Backup::Progress& progress) {
    try {
        return Backup::prove(copy, progress);
    } catch (const AppError& error) { // in the words of the file that the operator knows
        throw AppError(QString(error.description()).replace(native(copy), native(file)), error.source());
    }
}

Backup::Proof intoFile(const ConnectionSettings& office, const QString& file, const Backup::Progress& progress) {
    const QString incoming = office.path + coming;
    const auto clear = qScopeGuard([&incoming] {
        QFile::remove(incoming);
        QFile::remove(incoming + journal);
    });
    QFile::remove(incoming);
    bring(file, incoming, office.path, progress);
    const Backup::Proof proof = provenCopy(incoming, file, progress);
    settle(office);
    exchange(office.path, incoming, keptName(office));
    return proof;
}

// --- a server ---

Backup::Proof intoServer(const ConnectionSettings& office, const QString& file, const Backup::Progress& progress) {
    const Backup::Proof proof = Backup::prove(file, progress);
    ConnectionSettings incoming = office;
    incoming.database += coming;
    DatabaseCreation::dropOnServer(office, incoming.database);
    DatabaseCopy::copy(ConnectionSettings::sqliteFile(file), incoming, DatabaseCopy::Others::GoOn,
                       [&](const QString& line) {
                           if (progress && !progress(line, 0, 0)) throw AppError(u"中止しました。"_qs, u"Restore"_qs);
                       });
    try {
        DatabaseCreation::exchangeOnServer(office, incoming.database, keptName(office));
    } catch (const AppError&) {
        DatabaseCreation::dropOnServer(office, incoming.database);
        const QStringList machines = OpenMachines::others(office); // who came in meanwhile
        if (!machines.isEmpty()) throw AppError(openElsewhere(machines), u"Restore"_qs);
        throw;
    }
    return proof;
}

} // namespace

QString keptName(const ConnectionSettings& office) {
    return (office.provider == Provider::SQLite ? office.path : office.database) + kept;
}

QString openElsewhere(const QStringList& machines) {
    return u"他の端末で Halvane が開かれているため、リストアできません。\n次の端末の Halvane を終了してください。\n\n"_qs +
           machines.join(u'\n');
}

Backup::Proof run(const ConnectionSettings& office, const QString& file, const Backup::Progress& progress) {
    if (!QFileInfo(file).isFile())
        throw AppError(u"バックアップ先のファイルが存在しません。\n"_qs + native(file), u"Restore"_qs);
    const auto alone = OpenMachines::alone(office);
    if (!alone) throw AppError(openElsewhere(OpenMachines::others(office)), u"Restore"_qs);
    return office.provider == Provider::SQLite ? intoFile(office, file, progress) : intoServer(office, file, progress);
}

} // namespace Restore
