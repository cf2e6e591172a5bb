#pragma once

#include "operations/Backup.h"

#include <QDateTime>

#include <optional>

// The backup that makes itself when the program ends, and what is known of the last one. Switched by the INI file's
// `Backup`/`Auto` (0: off).
namespace AutoBackup {

// The moment of the newest backup in the backup folder that does not lie in the future.
std::optional<QDateTime> last();
// Whether it is switched on and the last one is older than a day.
bool isDue();
// Makes one and deletes those of its kind that need not be kept. Gives the path of the copy; failures rise.
QString make(const Backup::Progress& progress = {});
// The same; a failure is noted for the next start.
void run(const Backup::Progress& progress = {}) noexcept;
// What failed at the last end, told once; empty when nothing did.
QString takeFailure();

// What the menu tells of the last one, and whether it is so long ago that it is a warning.
struct Age {
    QString text;
    bool isLong = false;
};
Age age();

} // namespace AutoBackup
