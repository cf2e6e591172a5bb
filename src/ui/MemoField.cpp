#include "ui/MemoField.h"

#include "ui/EntryValidator.h"

MemoField::MemoField(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &MemoField::noteChange);
}

void MemoField::setValue(const QString& value) {
    if (value != toPlainText()) setPlainText(value);
}

void MemoField::noteChange() {
    QString text = toPlainText();
    int position = textCursor().position();
    cutBeforeCursor(text, position, m_maxLength);
    if (text == toPlainText()) {
        emit valueChanged();
        return;
    }
    setPlainText(text); // comes back here with a text that fits
    QTextCursor cursor = textCursor();
    cursor.setPosition(position);
    setTextCursor(cursor);
}
