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
    // Steps of 10 seconds are failed by the player itself.
    explicit Watchdog(std::chrono::milliseconds longestSilence = std::chrono::seconds(15));
    ~Watchdog();

    // The loop is alive, at a step of a scenario and with these screens open.
    void beat(const QString& step, const QString& screens);

private:
    void watch();

    std::chrono::milliseconds m_longestSilence;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QByteArray m_note;
    bool m_ended = false;
    bool m_beaten = false;
    std::thread m_thread;
};
