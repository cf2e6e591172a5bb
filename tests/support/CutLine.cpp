#include "support/CutLine.h"

#include <QFile>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

constexpr char lastCommand = 127;

int connectedTo(const QByteArray& file) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, file.constData(), sizeof address.sun_path - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    if (connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return descriptor;
    close(descriptor);
    return -1;
}

char signOf(int pipe) {
    char sign = 0;
    if (read(pipe, &sign, 1) != 1) qFatal("A pipe of the test is broken.");
    return sign;
}

void give(int pipe, char sign) {
    if (write(pipe, &sign, 1) != 1) qFatal("A pipe of the test is broken.");
}

} // namespace

CutLine::CutLine(const QString& socket) : m_socket(QFile::encodeName(socket)) {
    m_listening = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(m_listening, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(m_listening, 8) != 0 ||
        pipe(m_commands) != 0 || pipe(m_done) != 0)
        qFatal("The loopback gives no line.");
    m_thread = std::thread([this] { run(); });
}

CutLine::~CutLine() {
    give(m_commands[1], lastCommand);
    m_thread.join();
    for (const int descriptor : {m_listening, m_commands[0], m_commands[1], m_done[0], m_done[1]}) close(descriptor);
}

QString CutLine::address() const {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(m_listening, reinterpret_cast<sockaddr*>(&address), &size);
    return QStringLiteral("127.0.0.1:%1").arg(ntohs(address.sin_port));
}

void CutLine::cut(Cut how) {
    give(m_commands[1], static_cast<char>(how));
    signOf(m_done[0]);
}

void CutLine::run() {
    for (;;) {
        std::vector<pollfd> watched{{m_commands[0], POLLIN, 0}, {m_listening, POLLIN, 0}};
        for (const Way& way : m_ways) {
            watched.push_back({way.client, POLLIN, 0});
            watched.push_back({way.server, POLLIN, 0});
        }
        poll(watched.data(), watched.size(), -1);
        size_t at = 2;
        for (auto way = m_ways.begin(); way != m_ways.end(); at += 2) {
            const bool stands =
                (!watched[at].revents || forward(*way, true)) && (!watched[at + 1].revents || forward(*way, false));
            if (!stands) end(*way);
            way = stands ? std::next(way) : m_ways.erase(way);
        }
        if (watched[1].revents) accept();
        if (!watched[0].revents) continue;
        const char command = signOf(m_commands[0]);
        if (command == lastCommand) break;
        obey(static_cast<Cut>(command));
        give(m_done[1], command);
    }
    for (const Way& way : m_ways) end(way);
    for (const int server : m_left) close(server);
}

void CutLine::accept() {
    const int client = ::accept(m_listening, nullptr, nullptr);
    const int server = m_taking ? connectedTo(m_socket) : -1;
    if (server >= 0)
        m_ways.push_back({client, server});
    else
        close(client);
}

// False when the way has ended.
bool CutLine::forward(Way& way, bool fromClient) {
    std::array<char, 65536> bytes;
    const ssize_t size = recv(fromClient ? way.client : way.server, bytes.data(), bytes.size(), 0);
    if (size <= 0) return false;
    const bool commits = fromClient && std::string_view(bytes.data(), size).find("COMMIT") != std::string_view::npos;
    if (commits && way.planned == Cut::CommitAnswer) way.planned = Cut::Answers;
    if (commits && (way.planned == Cut::Commit || way.planned == Cut::CommitSilently)) return false;
    if (way.planned == Cut::Answers && !fromClient) return false;
    return send(fromClient ? way.server : way.client, bytes.data(), size, MSG_NOSIGNAL) == size;
}

void CutLine::obey(Cut how) {
    if (how != Cut::Closed && how != Cut::Reset) {
        for (Way& way : m_ways) way.planned = how;
        return;
    }
    // With nothing left to linger for, closing is a reset.
    const linger atOnce{1, 0};
    for (const Way& way : m_ways) {
        if (how == Cut::Reset) setsockopt(way.client, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        end(way);
    }
    m_ways.clear();
}

void CutLine::end(const Way& way) {
    close(way.client);
    if (way.planned == Cut::CommitSilently)
        m_left.push_back(way.server);
    else
        close(way.server);
}
