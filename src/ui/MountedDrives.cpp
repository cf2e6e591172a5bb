#include "ui/MountedDrives.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

namespace {

bool saysYes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(1) == "1";
}

// The kernel tells it of the whole device; a partition lies in the folder of its device.
bool isRemovable(const QString& device, const QString& blockDevices) {
    const QString folder = QFileInfo(QDir(blockDevices).filePath(QFileInfo(device).fileName())).canonicalFilePath();
    return !folder.isEmpty() && (saysYes(folder + u"/removable"_qs) || saysYes(folder + u"/../removable"_qs));
}

// A disk on a cable calls itself fixed; desktops mount it where they mount sticks.
bool isMountedForTheUser(const QString& root) {
    return root.startsWith(u"/media/"_qs) || root.startsWith(u"/run/media/"_qs);
}

bool isDisc(const MountedVolume& volume) {
    return volume.fileSystem == u"iso9660" || volume.fileSystem == u"udf" || volume.device.startsWith(u"/dev/sr"_qs);
}

} // namespace

std::optional<RemovableDrive> removableDrive(const MountedVolume& volume, const QString& blockDevices) {
    if (!volume.device.startsWith(u"/dev/"_qs)) return std::nullopt;
    const bool disc = isDisc(volume);
    if (!disc && !isMountedForTheUser(volume.root) && !isRemovable(volume.device, blockDevices)) return std::nullopt;
    return RemovableDrive{volume.root, disc};
}

QList<RemovableDrive> mountedRemovableDrives() {
    QList<RemovableDrive> drives;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (!volume.isValid() || !volume.isReady()) continue;
        const auto drive = removableDrive(
            {volume.rootPath(), QString::fromLocal8Bit(volume.device()), QString::fromLatin1(volume.fileSystemType())},
            u"/sys/class/block"_qs);
        if (drive) drives << *drive;
    }
    return drives;
}
