#include "Watchdog.h"

#include <cstdio>
#include <cstdlib>

Watchdog::Watchdog(std::chrono::milliseconds longestSilence)
    : m_longestSilence(longestSilence), m_thread([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Watchdog::beat(const QString& step, const QString& screens) {
    const QString note =
        step + u"\n  found:     the program stands still\n  expected:  the screens at rest\n  screens:   "_qs +
        screens + u'\n';
    {
        const std::lock_guard lock(m_mutex);
        m_note = note.toUtf8();
        m_beaten = true;
    }
    m_changed.notify_all();
}

void Watchdog::watch() {
    std::unique_lock lock(m_mutex);
    while (!m_ended) {
        m_beaten = false;
        if (m_changed.wait_for(lock, m_longestSilence, [this] { return m_ended || m_beaten; })) continue;
        std::printf("%s", m_note.constData());
        std::fflush(stdout);
        std::_Exit(EXIT_FAILURE);
    }
}
