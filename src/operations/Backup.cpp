#include "operations/Backup.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/WholeFile.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "db/clsSysSettingManager.h"
#include "operations/BackupFiles.h"
#include "operations/FileSnapshot.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <cerrno>

namespace Backup {

namespace {

const QString unfinished = u".part"_qs; // behind the name of a copy under way
constexpr int secondsOfDay = 86'400;

QString native(const QString& path) { return QDir::toNativeSeparators(path); }

[[noreturn]] void refuse(const QString& file, const QString& reason) {
    throw AppError(u"このバックアップは使えません。\n%1\n%2"_qs.arg(native(file), reason), u"Backup"_qs);
}

void tell(const Progress& progress, const QString& part, qint64 done, qint64 all) {
    if (progress && !progress(part, done, all)) throw AppError(u"中止しました。"_qs, u"Backup"_qs);
}

// --- proof ---

void requirePages(Connection& copy, const QString& file) {
    const QString found = copy.engineScalar(u"PRAGMA integrity_check(1)"_qs);
    if (found != u"ok") refuse(file, u"データベースが壊れています。"_qs);
}

void requireTable(Connection& copy, const Schema::Table& table, const QString& file) {
    if (!copy.tableExists(table.name))
        refuse(file, u"Halvane のデータベースではありません（表 %1 がありません）。"_qs.arg(table.name));
    const QList<Schema::Column> columns = copy.columns(table.name);
    for (const Schema::Column& column : table.columns) {
        const auto isIt = [&](const Schema::Column& found) { return found.name == column.name; };
        if (std::none_of(columns.begin(), columns.end(), isIt))
            refuse(file, u"Halvane のデータベースではありません（表 %1 に %2 がありません）。"_qs.arg(table.name,
                                                                                                      column.name));
    }
}

Proof proofOf(Connection& copy, const QString& file, const Progress& progress) {
    Proof proof;
    tell(progress, u"バックアップの全ページを調べています。"_qs, 0, 1);
    requirePages(copy, file);
    for (const Schema::Table& table : Schema::tables()) requireTable(copy, table, file);
    proof.tables = DatabaseCopy::tablesOf(copy);
    for (qsizetype i = 0; i < proof.tables.size(); ++i) {
        tell(progress, u"バックアップの内容を数えています。"_qs, i, proof.tables.size());
        proof.counts << DatabaseCopy::countOf(copy, proof.tables.at(i));
    }
    proof.version =
        copy.scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = %1"_qs.arg(Setting::DatabaseVersion));
    return proof;
}

// --- making ---

// The copy of a file, and a second look at the source while nobody has changed it since.
class FileBackup {
public:
    FileBackup(const ConnectionSettings& office, const QString& target, const Progress& progress)
        : m_source(office), m_snapshot(office.path, target), m_progress(progress) {}

    void copy() {
        m_source.open();
        m_snapshot.copyAhead(
            [this](qint64 done, qint64 all) { tell(m_progress, u"データベースを写しています。"_qs, done, all); });
        {
            const Reading reading(m_source);
            m_version = version();
            m_snapshot.complete();
        }
        m_snapshot.close();
    }

    // A look at one table keeps nobody waiting for long.
    void compare(const Proof& proof) {
        for (qsizetype i = 0; i < proof.tables.size(); ++i) {
            tell(m_progress, u"元のデータベースと比べています。"_qs, i, proof.tables.size());
            const Reading reading(m_source);
            if (version() != m_version) return;
            const QString table = proof.tables.at(i);
            const DatabaseCopy::Comparison line{table, DatabaseCopy::countOf(m_source, table), proof.counts.at(i)};
            if (!line.agrees())
                throw AppError(u"バックアップの内容が元のデータベースと一致しません。\n"_qs +
                                   DatabaseCopy::report({line}).join(u'\n'),
                               u"Backup"_qs);
        }
    }

private:
    // Another one after every commit of another connection.
    QString version() { return m_source.engineScalar(u"PRAGMA data_version"_qs); }

    Connection m_source;
    FileSnapshot m_snapshot;
    Progress m_progress;
    QString m_version;
};

void makeOfFile(const ConnectionSettings& office, const QString& target, const Progress& progress) {
    FileBackup backup(office, target, progress);
    backup.copy();
    backup.compare(prove(target, progress));
}

// The move to a file compares both sides itself, as they stood when it began.
void makeOfServer(const ConnectionSettings& office, const QString& target, const Progress& progress) {
    DatabaseCopy::copy(office, ConnectionSettings::sqliteFile(target), DatabaseCopy::Others::GoOn,
                       [&](const QString& line) { tell(progress, line, 0, 0); });
    prove(target, progress);
}

void putInPlace(const QString& part, const QString& file) {
    QFile::setPermissions(part, officeFileMode);
    errno = 0;
    const bool done = fileSynced(part) && QFile::rename(part, file) && fileSynced(file);
    if (!done)
        throw AppError(u"バックアップを作成できません。\n%1\n%2"_qs.arg(native(file), systemFailure(errno)),
                       u"Backup"_qs);
}

void copyProfile(const QString& target, Made made) {
    QFile profile(clsProfile().Path());
    if (!profile.open(QIODevice::ReadOnly)) throw AppError(u"INIﾌｧｲﾙが見つかりません。"_qs, u"Backup"_qs);
    WholeFile copy(target, u"バックアップ"_qs);
    copy.write(profile.readAll());
    copy.commit();
    QFile::setPermissions(target, officeFileMode);
    if (made == Made::ByItself) clsProfile(target).SaveValue(u"Backup"_qs, u"Made"_qs, u"Auto"_qs);
}

void discard(const QString& part) {
    for (const QString& name : {part, part + u".new"_qs, part + u"-journal"_qs, part + u".new-journal"_qs})
        QFile::remove(name);
}

// What a program that was killed has left; another machine's copy under way is younger.
void discardOld(const QString& folder) {
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"Halvane*.db.part*"_qs}, QDir::Files))
        if (file.lastModified().secsTo(QDateTime::currentDateTime()) > secondsOfDay) QFile::remove(file.filePath());
}

} // namespace

bool Proof::isOlder() const { return version < programVersionCode(); }

QStringList Proof::report() const {
    QList<DatabaseCopy::Comparison> lines;
    for (qsizetype i = 0; i < tables.size(); ++i) lines << DatabaseCopy::Comparison{tables.at(i), counts.at(i), {}};
    return DatabaseCopy::countReport(lines);
}

Proof prove(const QString& file, const Progress& progress) {
    if (!QFileInfo(file).isFile())
        throw AppError(u"バックアップ先のファイルが存在しません。\n"_qs + native(file), u"Backup"_qs);
    try {
        Connection copy(ConnectionSettings::sqliteFile(file));
        copy.open();
        return proofOf(copy, file, progress);
    } catch (const AppError& error) {
        if (error.source() == u"Backup") throw;
        refuse(file, error.description());
    }
}

void requireFolder(const QString& folder) {
    if (!QFileInfo(folder).isDir())
        throw AppError(u"バックアップ先のフォルダが存在しません。\n"_qs + native(folder), u"Backup"_qs);
}

QString make(const ConnectionSettings& office, const QString& folder, const QString& stamp, Made made,
             const Progress& progress) {
    requireFolder(folder);
    discardOld(folder);
    const QString file = QDir(folder).filePath(BackupFiles::databaseName(stamp));
    const QString part = file + unfinished;
    discard(part);
    const auto leaveNothing = qScopeGuard([&part] { discard(part); });
    if (office.provider == Provider::SQLite)
        makeOfFile(office, part, progress);
    else
        makeOfServer(office, part, progress);
    const QString profile = QDir(folder).filePath(BackupFiles::profileName(stamp));
    auto leaveNoProfile = qScopeGuard([&profile] { QFile::remove(profile); });
    copyProfile(profile, made);
    putInPlace(part, file);
    leaveNoProfile.dismiss();
    return file;
}

void remove(const QString& folder, const QString& stamp) {
    for (const QString& name : {BackupFiles::profileName(stamp), BackupFiles::databaseName(stamp)}) {
        QFile file(QDir(folder).filePath(name));
        if (file.exists() && !file.remove())
            throw AppError(
                u"バックアップデータを削除できません。\n%1\n%2"_qs.arg(native(file.fileName()), file.errorString()),
                u"Backup"_qs);
    }
}

} // namespace Backup
