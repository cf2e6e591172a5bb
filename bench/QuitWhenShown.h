#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

// Ends the program once a window has been painted, which is when an operator sees it.
class QuitWhenShown : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() == QEvent::Paint && widget && widget->isWindow())
            QTimer::singleShot(0, qApp, [] { std::_Exit(EXIT_SUCCESS); });
        return false;
    }
};
