// Pays twenty orders after the other in the database of an INI file until it is killed. The crash test runs it.

#include "support/PaymentSamples.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/clsProfile.h"
#include "operations/Managers.h"
#include "payments/PaymentReflection.h"
#include "payments/PaymentRows.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr int ordersPerRun = 20;
constexpr int runs = 100;

void payRun(Connection& connection, int run) {
    QStringList ids;
    for (int i = 1; i <= ordersPerRun; ++i) ids << PaymentSamples::idOf(run * ordersPerRun + i);
    QList<PaymentEntry> entries;
    PaymentRows(connection).forEach(ids, [&entries](const PaymentRow& row) {
        entries << PaymentEntry{row.estimate.EstId, true, false, u"2026/11/20"_qs, paymentState(row.estimate)};
    });
    reflectPayments(connection, entries, false);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(application.arguments().value(1))));
        connection.open();
        setSystemDate({});
        Managers::prepare(connection);
        for (int run = 0; run < runs; ++run) {
            payRun(connection, run);
            std::printf("%d\n", run);
            std::fflush(stdout);
        }
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
