// Runs in a network of its own, which nothing else uses: reaches a server over a line, takes the network away under a
// transaction, and tells by what error the program comes back. Usage: silent_network SOCKET DATABASE

#include "base/AppError.h"
#include "db/Connection.h"
#include "support/CutLine.h"

#include <QCoreApplication>

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace {

void setLoopback(bool up) {
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    const int descriptor = socket(AF_INET, SOCK_DGRAM, 0);
    ioctl(descriptor, SIOCGIFFLAGS, &request);
    request.ifr_flags = static_cast<short>(up ? request.ifr_flags | IFF_UP : request.ifr_flags & ~IFF_UP);
    if (ioctl(descriptor, SIOCSIFFLAGS, &request) != 0) qFatal("The network cannot be changed.");
    close(descriptor);
}

void tell(const QString& text) { std::printf("%s\n", qUtf8Printable(text)); }

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    setLoopback(true);
    const CutLine line(application.arguments().at(1));
    ConnectionSettings settings;
    settings.provider = Provider::PostgreSQL;
    settings.path = line.address();
    settings.database = application.arguments().at(2);
    settings.user = QStringLiteral("halvane");
    Connection connection(settings);
    connection.open();
    const auto write = [&](bool silent) {
        Transaction transaction(connection);
        if (silent) setLoopback(false);
        connection.engineExecute(QStringLiteral("CREATE TABLE silence (value integer)"));
        transaction.commit();
    };
    try {
        write(true);
        tell(QStringLiteral("no error"));
    } catch (const AppError& error) {
        tell(error.description());
    }
    setLoopback(true);
    write(false);
    tell(connection.engineScalar(QStringLiteral("SELECT COUNT(*) FROM silence")));
}
