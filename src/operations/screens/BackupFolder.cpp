#include "operations/screens/BackupFolder.h"

#include "base/AppError.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/ConnectionSettings.h"
#include "ui/TextField.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

namespace {

const QString section = u"Backup"_qs;
const QString key = u"Path"_qs;

void browse(TextField* field) {
    const QString chosen = seams().openFolder({u"バックアップ先を選択してください。"_qs, BackupFolder::of(field)});
    if (!chosen.isEmpty()) field->setValue(chosen);
}

} // namespace

void BackupFolder::setUp(QWidget* form, TextField* field, QPushButton* button) {
    field->setValue(QDir::toNativeSeparators(GetBackupFolder()));
    QObject::connect(button, &QPushButton::clicked, form, [field] { guarded([field] { browse(field); }); });
}

QString BackupFolder::of(const TextField* field) {
    const QString folder = ResolvePath(field->value());
    if (!folder.isEmpty()) return folder;
    QDir().mkpath(GetDefaultBackupFolder());
    return GetDefaultBackupFolder();
}

void BackupFolder::remember(const TextField* field) {
    const QString entered = Text::rightTrimmed(field->value());
    if (entered.isEmpty())
        clsProfile().DeleteValue(section, key);
    else
        clsProfile().SaveValue(section, key, entered);
}

void BackupFolder::requireDatabase() {
    const ConnectionSettings office = ConnectionSettings::fromProfile(clsProfile());
    if (office.provider == Provider::SQLite && !QFileInfo(office.path).isFile())
        throw AppError(u"データベースファイルが存在しません。\n"_qs + QDir::toNativeSeparators(office.path),
                       u"Backup"_qs);
}
