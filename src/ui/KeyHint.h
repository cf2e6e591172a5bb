#pragma once

#include <QLabel>

class QPushButton;

// The keys of a button whose caption has no letter of its own, at its right edge, where the caption leaves room for
// them.
class KeyHint : public QLabel {
    Q_OBJECT

public:
    // For all such buttons of a form.
    static void showAll(QWidget* form);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit KeyHint(QPushButton* button);

    void place();

    QPushButton* m_button;
};
