#pragma once

#include "base/Drives.h"

#include <optional>

// The removable drives that the platform has mounted.
QList<RemovableDrive> mountedRemovableDrives();

// What tells them from the rest of what is mounted.
struct MountedVolume {
    QString root;
    QString device;     // "/dev/sdb1"
    QString fileSystem; // "vfat", "iso9660"
};
// A drive when its medium can be taken out. `blockDevices` is the folder in which the kernel tells of its devices.
std::optional<RemovableDrive> removableDrive(const MountedVolume& volume, const QString& blockDevices);
