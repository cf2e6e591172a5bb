#include "Watchdog.h"

#include "Desk.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;
constexpr auto longestSilence = 30s; // steps of 10 seconds are failed by the player itself

} // namespace

Watchdog::Watchdog() : m_thread([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Watchdog::beat(const QString& place) {
    const QByteArray standing = (place + u" in "_qs + Desk::openScreens().join(u" > "_qs)).toUtf8();
    {
        const std::lock_guard lock(m_mutex);
        m_place = standing;
        m_beaten = true;
    }
    m_changed.notify_all();
}

void Watchdog::watch() {
    std::unique_lock lock(m_mutex);
    while (!m_ended) {
        m_beaten = false;
        if (m_changed.wait_for(lock, longestSilence, [this] { return m_ended || m_beaten; })) continue;
        std::fprintf(stderr, "%s: the program stands still\n", m_place.constData());
        std::_Exit(EXIT_FAILURE);
    }
}
