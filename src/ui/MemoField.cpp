#include "ui/MemoField.h"

#include "base/Text.h"
#include "ui/EntryValidator.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

MemoField::MemoField(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &MemoField::noteChange);
}

QString MemoField::value() const {
    const QString shown = toPlainText();
    return m_set && m_set->shown == shown ? m_set->value : Text::wholeSigns(shown);
}

void MemoField::setValue(const QString& value) {
    const QString before = this->value();
    {
        const QScopedValueRollback setting(m_setting, true);
        if (value != toPlainText()) setPlainText(value);
    }
    m_set = Set{value, toPlainText()};
    if (this->value() != before) emit valueChanged();
}

// The screen moves on at Return, but takes no Ctrl with it.
void MemoField::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn) return QPlainTextEdit::keyPressEvent(event);
    if (event->modifiers() & Qt::AltModifier) return textCursor().insertBlock();
    event->ignore();
    if (!(event->modifiers() & Qt::ControlModifier)) return;
    QKeyEvent plain(QEvent::KeyPress, event->key(), event->modifiers() & ~Qt::ControlModifier);
    QCoreApplication::sendEvent(parentWidget(), &plain);
    event->accept();
}

void MemoField::noteChange() {
    QString text = toPlainText();
    int position = textCursor().position();
    cutBeforeCursor(text, position, m_maxLength);
    if (text == toPlainText()) {
        if (!m_setting) emit valueChanged();
        return;
    }
    setPlainText(text); // comes back here with a text that fits
    QTextCursor cursor = textCursor();
    cursor.setPosition(position);
    setTextCursor(cursor);
}
