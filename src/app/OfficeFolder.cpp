#include "app/OfficeFolder.h"

#include "base/AppError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace {

const QString option = u"--office"_qs;

bool hasProfile(const QString& folder) { return QFile::exists(QDir(folder).filePath(u"Halvane.ini"_qs)); }

// What the installation puts beside the programs of the machine.
bool isInstalled(const QString& programs) { return hasProfile(QDir(programs).filePath(u"../share/halvane"_qs)); }

} // namespace

OfficeFolder OfficeFolder::of(QStringList& words) {
    if (const qsizetype at = words.indexOf(option); at >= 0) {
        const QString folder = words.value(at + 1);
        if (folder.isEmpty() || folder.startsWith(u"--"_qs))
            throw AppError(u"--office の後にフォルダーを指定してください。"_qs, u"OfficeFolder"_qs);
        words.remove(at, 2);
        return {QDir::cleanPath(QDir::current().absoluteFilePath(folder)), true};
    }
    const QString programs = QCoreApplication::applicationDirPath();
    if (hasProfile(programs) || !isInstalled(programs)) return {programs, false};
    return {QDir::home().filePath(u"Halvane"_qs), true};
}

bool OfficeFolder::isSetUp() const { return !isOwn || hasProfile(path); }

OfficeFolder OfficeFolder::sample() const { return {path + u"-sample"_qs, true}; }
