#pragma once

#include <QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

// Ends the process with a note when the program stands still: a step that never gives the event loop back cannot be
// failed from within that loop.
class Watchdog {
public:
    Watchdog();
    ~Watchdog();

    // The loop is alive, at a place of a scenario.
    void beat(const QString& place);

private:
    void watch();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    QByteArray m_place;
    bool m_ended = false;
    bool m_beaten = false;
    std::thread m_thread;
};
