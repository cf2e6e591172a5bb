#include "app/InstanceLock.h"

#include "base/Seams.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>

InstanceLock::InstanceLock() = default;
InstanceLock::~InstanceLock() = default;

bool InstanceLock::take() {
    auto file = std::make_unique<QLockFile>(path());
    file->setStaleLockTime(0); // however long a run lasts, it is alive
    if (!file->tryLock() && file->error() == QLockFile::LockFailedError) return false;
    m_file = std::move(file);
    return true;
}

void InstanceLock::release() { m_file.reset(); }

// On this machine and for this user: a shared program folder may be in use on another machine.
QString InstanceLock::path() {
    const QString owner = QDir(programFolder()).canonicalPath() + u'\n' + QDir::homePath();
    const auto name = QCryptographicHash::hash(owner.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDir::temp().filePath(u"halvane-%1.lock"_qs.arg(QString::fromLatin1(name)));
}
