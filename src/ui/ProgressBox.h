#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QPushButton;

// Shows how far long work is, above the window that started it, and takes the wish to stop. It waits for nobody: the
// work tells it of its parts, and lets it draw itself and hear the operator thereby. It comes into view when the work
// turns out to take its time.
class ProgressBox : public QDialog {
    Q_OBJECT

public:
    enum class Stop { Offered, NotOffered };

    ProgressBox(QWidget* parent, const QString& what, Stop stop);

    // So much of all is done. False when the operator wants to stop.
    bool tell(const QString& part, qint64 done, qint64 all);
    bool isStopped() const { return m_stopped; }

    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void stop();

    QElapsedTimer m_since;
    QLabel* m_part;
    QProgressBar* m_bar;
    QPushButton* m_stop;
    bool m_stopped = false;
};
