#include "ui/EntryField.h"

#include "base/basMessage.h"
#include "ui/EntryValidator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QScopedValueRollback>
#include <QTabWidget>

namespace {

// The focus only rests elsewhere and comes back: nothing is left yet.
bool isRest(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

// Turns to the page that a field stands on.
void bringToFront(QWidget* field) {
    for (QWidget* part = field; !part->isWindow() && part->parentWidget(); part = part->parentWidget()) {
        auto* pages = qobject_cast<QTabWidget*>(part->parentWidget()->parentWidget());
        if (pages && pages->indexOf(part) >= 0) pages->setCurrentWidget(part);
    }
}

} // namespace

EntryField::EntryField(QWidget* parent) : QLineEdit(parent), m_validator(new EntryValidator(this)) {
    setValidator(m_validator);
    connect(this, &QLineEdit::textChanged, this, &EntryField::noteChange);
    connect(this, &QLineEdit::textEdited, this, [this] { m_goesOn = false; });
}

int EntryField::maxLength() const { return m_validator->maxLength; }

void EntryField::setMaxLength(int characters) { m_validator->maxLength = characters; }

void EntryField::setAllowedCharacters(const QString& characters) { m_validator->allowedCharacters = characters; }

QString EntryField::value() const { return isAsSet() ? valueOfSet(m_set->value) : valueOfTyped(text()); }

void EntryField::setValue(const QString& value) {
    const QString shown = shownFor(value);
    {
        const QScopedValueRollback setting(m_setting, true);
        setText(hasFocus() ? editable(shown) : shown);
    }
    m_set = Set{value, shown, editable(text())}; // the field may not have taken all of it
    m_goesOn = false;
    if (!hasFocus()) setCursorPosition(0); // a text longer than the field shows its beginning
    noteChange();
    noteSettled();
}

void EntryField::fillIn(const QString& value) {
    setValue(value);
    m_goesOn = !text().isEmpty();
}

std::optional<QString> EntryField::shownWhenLeft() const {
    return isAsSet() ? std::optional(m_set->shown) : settled(text());
}

bool EntryField::commit() {
    const auto shown = shownWhenLeft();
    if (!shown) return false;
    if (*shown != text()) setText(*shown);
    noteSettled();
    return true;
}

void EntryField::complain() {
    bringToFront(this);
    ShowMessage(Message::Warning, complaint());
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void EntryField::complainUnlessExcused() {
    const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
    const bool excused = button && button->property("leavesUnchecked").toBool();
    if (isVisible() && !hasFocus() && !excused && !shownWhenLeft()) complain();
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (isRest(event->reason()) || isReadOnly()) return;
    if (shownWhenLeft()) setText(editable(text()));
    if (m_goesOn)
        end(false);
    else
        selectAll();
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (isRest(event->reason()) || isReadOnly()) return;
    if (commit()) return setCursorPosition(0);
    QMetaObject::invokeMethod(this, &EntryField::complainUnlessExcused, Qt::QueuedConnection);
}

void EntryField::noteChange() {
    if (m_setting) return;
    const QString now = value();
    if (now == m_lastValue) return;
    m_lastValue = now;
    emit valueChanged();
}

void EntryField::noteSettled() {
    const QString now = value();
    if (now == m_lastSettled) return;
    m_lastSettled = now;
    emit valueSettled();
}
