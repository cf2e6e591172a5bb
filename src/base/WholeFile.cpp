#include "base/WholeFile.h"

#include "base/AppError.h"

#include <QFileInfo>
#include <QHash>

#include <cerrno>
#include <cstring>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX
bool synced(int handle) { return ::fsync(handle) == 0 || errno == EINVAL; } // some mounts know no such call

// The new name of a file is on the disk once its folder is.
bool folderSynced(const QString& path) {
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (folder < 0) return true; // a folder that may be written to but not read
    const bool done = synced(folder);
    ::close(folder);
    return done;
}
#else
bool synced(int) { return true; }
bool folderSynced(const QString&) { return true; }
#endif

} // namespace

bool fileSynced(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && synced(file.handle()) && folderSynced(path);
}

QString systemFailure(int code) {
    static const QHash<int, QString> words{
        {ENOSPC, u"ディスクの空き容量がありません。"_qs}, {EFBIG, u"ファイルの大きさの上限に達しました。"_qs},
        {EDQUOT, u"使用できる容量を超えました。"_qs},     {EROFS, u"読み取り専用の場所です。"_qs},
        {EACCES, u"書き込む権限がありません。"_qs},       {EPERM, u"書き込む権限がありません。"_qs},
        {ENOENT, u"フォルダがありません。"_qs},           {ENOTDIR, u"フォルダがありません。"_qs},
        {EISDIR, u"同じ名前のフォルダがあります。"_qs},   {EIO, u"ディスクの読み書きに失敗しました。"_qs}};
    return words.value(code, QString::fromLocal8Bit(std::strerror(code)));
}

WholeFile::WholeFile(const QString& path, QString what) : m_file(path), m_what(std::move(what)) {
    const bool isNew = !QFile::exists(path);
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly)) fail();
    if (isNew)
        m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    else
        keepOwner();
}

void WholeFile::keepOwner() {
#ifdef Q_OS_UNIX
    struct stat present {};
    if (::stat(QFile::encodeName(m_file.fileName()).constData(), &present) != 0) return;
    // Only the superuser may give a file away; for all others the two are the same.
    if (::fchown(m_file.handle(), present.st_uid, present.st_gid) != 0) return;
    ::fchmod(m_file.handle(), present.st_mode & 07777);
#endif
}

void WholeFile::fail() {
    const QString reason = errno != 0 ? systemFailure(errno) : m_file.errorString();
    m_file.cancelWriting();
    throw AppError(u"%1に書き込めません。\n%2\n%3"_qs.arg(m_what, m_file.fileName(), reason), u"WholeFile"_qs);
}

void WholeFile::write(const QByteArray& bytes) {
    errno = 0;
    if (m_file.write(bytes) != bytes.size()) fail();
}

void WholeFile::commit() {
    errno = 0;
    // The commit itself passes over a flush that failed.
    if (!m_file.flush() || m_file.error() != QFileDevice::NoError || !synced(m_file.handle())) fail();
    if (!m_file.commit() || !folderSynced(m_file.fileName())) fail();
}
