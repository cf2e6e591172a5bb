#pragma once

#include <QFrame>
#include <QPointer>

class QLabel;

// Stands over a screen that works for a while: what it does, how far it is, and 中止, which Escape presses, too. The
// screen takes nothing else meanwhile. Short work ends before the panel is seen.
class BusyPanel : public QFrame {
    Q_OBJECT

public:
    BusyPanel(QWidget* screen, const QString& word);
    ~BusyPanel() override;

    // One more part of the work is done: tells it, lets the window live, and says whether the work goes on.
    bool goesOn();
    void stop() { m_stopped = true; }
    bool isStopped() const { return m_stopped; }

private:
    void lockScreen();
    void tell();

    QLabel* m_told;
    QString m_word;
    QPointer<QWidget> m_focused; // which a disabled control loses
    QList<QPointer<QWidget>> m_locked;
    int m_parts = 0;
    bool m_stopped = false;
};
