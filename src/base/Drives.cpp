#include "base/Drives.h"

std::function<QList<RemovableDrive>()>& removableDrives() {
    static std::function<QList<RemovableDrive>()> drives = [] { return QList<RemovableDrive>(); };
    return drives;
}
