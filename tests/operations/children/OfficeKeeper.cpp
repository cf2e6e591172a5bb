// Backs up, restores, renews the postal book or revises the prices of the office of a program folder again and again
// until it is killed.
//   office_keeper backup|restore|postal|revision FOLDER FILE
// FILE is the folder of the backups, a backup to restore, a postal file, or the folder of folders with the price files
// of the years 2027 and 2028.

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/clsProfile.h"
#include "db/clsSysSettingManager.h"
#include "operations/BackupFiles.h"
#include "operations/Managers.h"
#include "operations/PriceRevision.h"
#include "operations/Restore.h"
#include "reference/clsZipManager.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

#include <cstdio>

namespace {

void backUp(const ConnectionSettings& office, const QString& folder, int round) {
    const QDateTime moment(QDate(2026, 1, 1).addDays(round), QTime(1, 2, 3));
    Backup::make(office, folder, BackupFiles::stampOf(moment), Backup::Made::ByOperator);
    Backup::remove(folder, BackupFiles::stampOf(moment.addDays(-3))); // the disk is no part of the test
}

void renewBook(const ConnectionSettings& office, const QString& file) {
    Connection connection(office);
    connection.open();
    gZipManager.Prepare(connection);
    PostalFiles::Book book;
    PostalFiles::read(file, book);
    Transaction transaction(connection);
    gZipManager.ImportPublished(book);
    transaction.commit();
    gZipManager.Release();
}

void revise(const ConnectionSettings& office, const QString& folder, int round) {
    Connection connection(office);
    connection.open();
    Managers::prepare(connection);
    gPriceYear = gSysSettingManager.value(Setting::PriceYear);
    const QString year = round % 2 == 0 ? u"2027"_qs : u"2028"_qs;
    PriceRevision revision(
        connection, [](PriceRevision::Part, qint64, qint64) {}, [] {});
    const bool done = revision.run({PriceRevision::Request::Files, QDir(folder).filePath(year), year});
    Managers::release();
    if (!done) throw AppError(u"the revision was given up"_qs);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    const QString folder = words.value(2);
    seams().programFolder = [folder] { return folder; };
    seams().message = [](const MessageBoxRequest& request) -> qint16 {
        return request.buttons == MessageButtons::YesNo ? AnswerYes : AnswerNone;
    };
    try {
        const ConnectionSettings office = ConnectionSettings::fromProfile(clsProfile());
        for (int round = 0;; ++round) {
            if (words.value(1) == u"backup") backUp(office, words.value(3), round);
            if (words.value(1) == u"restore") Restore::run(office, words.value(3));
            if (words.value(1) == u"postal") renewBook(office, words.value(3));
            if (words.value(1) == u"revision") revise(office, words.value(3), round);
            std::printf("%d\n", round);
            std::fflush(stdout);
        }
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
