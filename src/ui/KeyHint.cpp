#include "ui/KeyHint.h"

#include <QEvent>
#include <QPushButton>

namespace {

constexpr int edge = 8;         // pixels to the button's right edge
constexpr qreal smaller = 0.85; // than the caption
constexpr QColor muted(0x5B, 0x66, 0x70);

bool needsHint(const QPushButton* button) { return !button->shortcut().isEmpty() && !button->text().contains(u'&'); }

} // namespace

void KeyHint::showAll(QWidget* form) {
    for (QPushButton* button : form->findChildren<QPushButton*>())
        if (needsHint(button)) new KeyHint(button);
}

KeyHint::KeyHint(QPushButton* button) : QLabel(button), m_button(button) {
    setText(button->shortcut().toString(QKeySequence::NativeText));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, muted);
    setPalette(quiet);
    QFont letters = button->font();
    letters.setPointSizeF(letters.pointSizeF() * smaller);
    letters.setBold(false);
    setFont(letters);
    if (button->toolTip().isEmpty()) button->setToolTip(text()); // where there is no room
    button->installEventFilter(this);
    place();
}

bool KeyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) place();
    return QLabel::eventFilter(watched, event);
}

// The caption stands in the middle; beside it, or in the corner of a tall button, there is room.
void KeyHint::place() {
    adjustSize();
    const int caption = m_button->fontMetrics().horizontalAdvance(m_button->text());
    const bool beside = (m_button->width() - caption) / 2 >= width() + 2 * edge;
    const bool below = m_button->height() >= 3 * height();
    setVisible(beside || below);
    const int down = beside ? (m_button->height() - height()) / 2 : m_button->height() - height() - edge / 2;
    move(m_button->width() - width() - edge, down);
}
