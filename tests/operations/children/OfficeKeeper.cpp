// Backs up, restores, or renews the postal book of the office of a program folder again and again until it is killed.
//   office_keeper backup|restore|postal FOLDER FILE
// FILE is the folder of the backups, a backup to restore, or a postal file.

#include "base/AppError.h"
#include "base/Seams.h"
#include "base/clsProfile.h"
#include "operations/BackupFiles.h"
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

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    const QString folder = words.value(2);
    seams().programFolder = [folder] { return folder; };
    try {
        const ConnectionSettings office = ConnectionSettings::fromProfile(clsProfile());
        for (int round = 0;; ++round) {
            if (words.value(1) == u"backup") backUp(office, words.value(3), round);
            if (words.value(1) == u"restore") Restore::run(office, words.value(3));
            if (words.value(1) == u"postal") renewBook(office, words.value(3));
            std::printf("%d\n", round);
            std::fflush(stdout);
        }
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
