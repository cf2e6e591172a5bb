#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>

// Writes "shown" once a window has been painted, which is when an operator sees it, and then closes the program.
class TellWhenShown : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (!m_told && event->type() == QEvent::Paint && widget && widget->isWindow()) {
            m_told = true;
            QTimer::singleShot(0, qApp, &TellWhenShown::tell); // when the painting is done
        }
        return false;
    }

private:
    static void tell() {
        std::puts("shown");
        std::fflush(stdout);
        QApplication::closeAllWindows();
    }

    bool m_told = false;
};
