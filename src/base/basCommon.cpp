#include "base/basCommon.h"

#include "base/Drives.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsProfile.h"

#include <QDir>

QString FormatZip(const QString& text) {
    constexpr int ahead = 3;
    if (text.contains(u'-') || Text::signs(text) <= ahead) return text;
    const QString head = Text::first(text, ahead);
    return head + u'-' + text.mid(head.size());
}

QString JoinWithSpace(const QString& first, const QString& second) {
    const QString head = Text::rightTrimmed(first);
    const QString tail = Text::rightTrimmed(second);
    if (tail.isEmpty()) return head;
    return head.isEmpty() ? tail : head + u'\u3000' + tail;
}

QString GetDbFilePath() { return GetDbFilePath(clsProfile()); }

QString GetDbFilePath(const clsProfile& profile) {
    const QString folder = profile.GetPath(u"DB"_qs, u"Path"_qs, QString());
    const QString file = profile.GetValue(u"DB"_qs, u"Database"_qs, QString());
    return QDir(folder.isEmpty() ? profile.Folder() : folder).filePath(file);
}

QString GetDefaultBackupFolder() { return QDir(programFolder()).filePath(u"backup"_qs); }

QString GetBackupFolder() {
    const QString configured = clsProfile().GetPath(u"Backup"_qs, u"Path"_qs, QString());
    if (!configured.isEmpty()) return configured;
    const QString folder = GetDefaultBackupFolder();
    QDir().mkpath(folder);
    return folder;
}

QString FindDriveByType(int type) {
    constexpr int removable = 2, compactDisc = 5;
    if (type != removable && type != compactDisc) return {};
    const QList<RemovableDrive> drives = removableDrives()();
    for (const RemovableDrive& drive : drives)
        if (drive.isDisc == (type == compactDisc)) return drive.root;
    return drives.isEmpty() ? QString() : drives.first().root;
}

void OpenWithShell(const QString& path) { seams().openWithShell(path); }
