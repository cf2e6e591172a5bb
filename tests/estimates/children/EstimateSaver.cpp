// Stores one order after the other into the database of an INI file until it is killed, with the word "masters" one
// master estimate, new or over one stored before. The crash test runs it.

#include "support/EstimateSamples.h"
#include "support/MasterSamples.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/clsProfile.h"
#include "operations/Managers.h"

#include <QCoreApplication>
#include <QMap>

#include <cstdio>

namespace {

void saveOrder(Connection& connection, int i) {
    EstimateDraft draft = EstimateSamples::order(1 + i % 30, 1 + i % 4);
    saveEstimate(connection, draft, {});
}

void saveMasterAgain(Connection& connection, int i) {
    static QMap<QString, MasterDraft> stored;
    const QString code = u"%1-%2"_qs.arg(QCoreApplication::applicationPid()).arg(i % 7);
    MasterDraft draft = MasterSamples::master(code, 1 + i % 30);
    if (stored.contains(code)) draft.takeIdentity(draft, stored.value(code));
    if (saveMaster(connection, draft, [](const QString&) { return false; }) != MasterSave::Saved)
        throw AppError(u"refused"_qs);
    stored[code] = draft;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(application.arguments().value(1))));
        connection.open();
        setSystemDate({});
        Managers::prepare(connection);
        const bool savesMasters = application.arguments().value(2) == u"masters";
        for (int i = 0;; ++i) {
            savesMasters ? saveMasterAgain(connection, i) : saveOrder(connection, i);
            std::printf("%d\n", i);
            std::fflush(stdout);
        }
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
