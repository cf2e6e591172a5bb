#include "ui/Screen.h"

#include "base/basMessage.h"
#include "ui/EntryField.h"
#include "ui/Grid.h"
#include "ui/Style.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace {

bool isCommand(const QWidget* widget) {
    return qobject_cast<const QPushButton*>(widget) || qobject_cast<const QToolButton*>(widget);
}

bool takesFocus(const QWidget* widget, const QWidget* form) {
    return widget->isEnabled() && widget->isVisibleTo(form) && (widget->focusPolicy() & Qt::TabFocus) &&
           !widget->focusProxy();
}

// The size drawn in the form file, larger where the font asks for it, never larger than the display.
void fit(QWidget* form) {
    const QSize drawn = form->testAttribute(Qt::WA_Resized) ? form->size() : QSize();
    const QSize display = form->screen()->availableSize();
    form->resize(drawn.expandedTo(form->sizeHint()).boundedTo(display));
}

void centre(QWidget* form) {
    const QWidget* parent = form->parentWidget();
    const QRect area =
        parent && parent->isVisible() ? parent->window()->frameGeometry() : form->screen()->availableGeometry();
    form->move(area.center() - form->rect().center());
}

// A window opened from a screen would take over the sheet of its form as well, and look different by its opener.
void keepSheetInside(QWidget* form) {
    const QString sheet = form->styleSheet();
    if (sheet.isEmpty()) return;
    form->setStyleSheet({});
    for (QWidget* part : form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!part->isWindow()) part->setStyleSheet(sheet + part->styleSheet());
}

Grid* gridAround(QWidget* widget) {
    while (widget && !qobject_cast<Grid*>(widget)) widget = widget->parentWidget();
    return qobject_cast<Grid*>(widget);
}

} // namespace

Screen::Screen(QWidget* parent) : QDialog(parent) {}

bool Screen::Load() {
    guarded([this] {
        keepSheetInside(this);
        Style::arrange(this);
        for (QAbstractButton* button : findChildren<QAbstractButton*>()) button->installEventFilter(this);
        fit(this);
        centre(this);
        RestoreFormPosition(this);
        load();
        Loaded = true;
    });
    return Loaded;
}

void Screen::onClick(QAbstractButton* button, std::function<void()> work) {
    connect(button, &QAbstractButton::clicked, this, [work = std::move(work)] { guarded(work); });
}

void Screen::onReturn(QWidget* field, std::function<void()> work) { m_returnWork[field] = std::move(work); }

// --- keys ---

void Screen::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return QDialog::keyPressEvent(event);
    takeReturn(!(event->modifiers() & Qt::ShiftModifier));
}

void Screen::takeReturn(bool forwards) {
    QWidget* current = focusWidget();
    if (auto* button = qobject_cast<QAbstractButton*>(current); button && forwards && isCommand(button))
        return button->click();
    const auto work = m_returnWork.value(current);
    if (forwards && work && leaveField() && (!guarded(work) || focusWidget() != current)) return;
    goToNextField(forwards);
}

// Commands beside the fields are passed over; behind the last field the first command is next.
void Screen::goToNextField(bool forwards) {
    QWidget* current = focusWidget() ? focusWidget() : this;
    QWidget* command = nullptr;
    const auto next = [forwards](QWidget* widget) {
        return forwards ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget* widget = next(current); widget != current && widget != this; widget = next(widget)) {
        if (!takesFocus(widget, this)) continue;
        if (!isCommand(widget)) return widget->setFocus(Qt::TabFocusReason);
        if (!command) command = widget;
    }
    if (command && forwards) command->setFocus(Qt::TabFocusReason);
}

bool Screen::leaveField() {
    QWidget* widget = focusWidget();
    if (Grid* grid = gridAround(widget); grid && grid->editor()) {
        grid->endEdit();
        return true;
    }
    auto* field = qobject_cast<EntryField*>(widget);
    if (!field || field->isReadOnly() || field->commit()) return true;
    field->complain();
    return false;
}

// An Alt letter presses a button without moving the focus: what was typed is taken over first.
bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Shortcut && !watched->property("leavesUnchecked").toBool() && !leaveField())
        return true;
    return QDialog::eventFilter(watched, event);
}

// --- closing ---

bool Screen::mayClose() {
    bool may = false;
    guarded([&] { may = queryUnload(); });
    return may;
}

void Screen::closeEvent(QCloseEvent* event) {
    if (!mayClose()) return event->ignore();
    guarded([this] { SaveFormPosition(this); });
    event->accept();
}
