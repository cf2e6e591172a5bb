// Stores one order after the other into the database of an INI file until it is killed. The crash test runs it.

#include "support/EstimateSamples.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/clsProfile.h"
#include "operations/Managers.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(application.arguments().value(1))));
        connection.open();
        setSystemDate({});
        Managers::prepare(connection);
        for (int i = 0;; ++i) {
            EstimateDraft draft = EstimateSamples::order(1 + i % 30, 1 + i % 4);
            saveEstimate(connection, draft, {});
            std::printf("%d\n", i);
            std::fflush(stdout);
        }
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
