#include "operations/AutoBackup.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"
#include "operations/BackupFiles.h"

#include <QDir>

namespace AutoBackup {

namespace {

const QString section = u"Backup"_qs;
const QString failureKey = u"Failure"_qs;
constexpr int hoursOfDay = 24;
constexpr int longAgo = 7; // days

// As clock time, like the stamps.
QDateTime now() { return QDateTime(currentDateTime().date(), currentDateTime().time(), Qt::UTC); }

void note(const QString& failure) noexcept {
    try {
        writeLog(u"自動バックアップ失敗："_qs + failure);
        clsProfile().SaveValue(section, failureKey, failure);
    } catch (const AppError&) {
        // The log has it, as far as there is one.
    }
}

void prune(const QString& folder) {
    for (const QString& stamp : BackupFiles::superfluous(BackupFiles::automatic(folder))) Backup::remove(folder, stamp);
}

} // namespace

std::optional<QDateTime> last() {
    const QStringList stamps = BackupFiles::list(GetBackupFolder());
    for (auto stamp = stamps.rbegin(); stamp != stamps.rend(); ++stamp)
        if (const auto moment = BackupFiles::momentOf(*stamp); *moment <= now()) return moment;
    return std::nullopt;
}

bool isDue() {
    if (clsProfile().GetValue(section, u"Auto"_qs, u"1"_qs).trimmed() == u"0") return false;
    const auto moment = last();
    return !moment || moment->addSecs(hoursOfDay * 3600) < now();
}

QString make(const Backup::Progress& progress) {
    const QString folder = GetBackupFolder();
    const QString file = Backup::make(ConnectionSettings::fromProfile(clsProfile()), folder,
                                      BackupFiles::stampOf(now()), Backup::Made::ByItself, progress);
    prune(folder);
    return file;
}

void run(const Backup::Progress& progress) noexcept {
    try {
        make(progress);
        writeLog(u"自動バックアップを作成しました。"_qs);
    } catch (const AppError& error) {
        note(error.description());
    } catch (const std::exception& error) {
        note(QString::fromUtf8(error.what()));
    }
}

QString takeFailure() {
    const clsProfile profile;
    const QString failure = profile.GetValue(section, failureKey);
    if (!failure.isEmpty()) profile.DeleteValue(section, failureKey);
    return failure;
}

Age age() {
    const auto moment = last();
    if (!moment) return {u"バックアップ：まだありません。"_qs, true};
    const auto days = moment->date().daysTo(now().date());
    const QString day = days == 0 ? u"今日"_qs : days == 1 ? u"昨日"_qs : u"%1日前"_qs.arg(days);
    const QString text = u"最後のバックアップ：%1（%2）"_qs.arg(dateText(moment->date()), day);
    return days > longAgo ? Age{text + u"　バックアップを取ってください。"_qs, true} : Age{text};
}

} // namespace AutoBackup
