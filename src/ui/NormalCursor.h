#pragma once

#include <QCursor>
#include <QGuiApplication>

// While it lives, a question within long work shows the arrow; the hourglass comes back behind it.
class NormalCursor {
public:
    NormalCursor() : m_waiting(QGuiApplication::overrideCursor() != nullptr) {
        if (m_waiting) QGuiApplication::changeOverrideCursor(Qt::ArrowCursor);
    }
    ~NormalCursor() {
        if (m_waiting && QGuiApplication::overrideCursor()) QGuiApplication::changeOverrideCursor(Qt::WaitCursor);
    }
    NormalCursor(const NormalCursor&) = delete;
    NormalCursor& operator=(const NormalCursor&) = delete;

private:
    bool m_waiting;
};
