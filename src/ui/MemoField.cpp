#include "ui/MemoField.h"

#include "base/Text.h"
#include "ui/EntryValidator.h"

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
