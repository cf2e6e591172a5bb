#include "ui/Screen.h"

#include "base/basMessage.h"
#include "ui/EntryField.h"
#include "ui/Grid.h"
#include "ui/KeyHint.h"
#include "ui/Manual.h"
#include "ui/ScrollingForm.h"
#include "ui/SearchFields.h"
#include "ui/SpokenNames.h"
#include "ui/Style.h"
#include "ui/WindowArrangement.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>

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
    const QSize room = ScrollingForm::roomFor(form);
    ScrollingForm::makeFit(form, room);
    form->resize(drawn.expandedTo(form->sizeHint()).boundedTo(room));
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

bool isWatched(const QWidget* part) {
    return qobject_cast<const QAbstractButton*>(part) || qobject_cast<const QTabBar*>(part) ||
           qobject_cast<const QTabWidget*>(part);
}

// A tab takes no focus from the field when it is clicked, nor does a turn by keys.
bool turnsPage(const QObject* watched, const QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) return qobject_cast<const QTabBar*>(watched);
    if (event->type() != QEvent::KeyPress || !qobject_cast<const QTabWidget*>(watched)) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    return key->modifiers() & Qt::ControlModifier && (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab);
}

} // namespace

Screen::Screen(QWidget* parent) : QDialog(parent) {}

bool Screen::Load() {
    guarded([this] {
        keepSheetInside(this);
        Style::arrange(this);
        SpokenNames::give(this);
        KeyHint::showAll(this);
        for (QWidget* part : findChildren<QWidget*>())
            if (isWatched(part)) part->installEventFilter(this);
        fit(this);
        centre(this);
        RestoreFormPosition(this);
        load();
        WindowArrangement::restore(this);
        Loaded = true;
    });
    return Loaded;
}

void Screen::onClick(QAbstractButton* button, std::function<void()> work) {
    connect(button, &QAbstractButton::clicked, this, [work = std::move(work)] { guarded(work); });
}

void Screen::onReturn(QWidget* field, std::function<void()> work) { m_returnWork[field] = std::move(work); }

// --- keys ---

void Screen::turnPagesByKeys(QTabWidget* pages) {
    for (int page = 0; page < pages->count(); ++page) {
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + page));
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, pages, page] {
            if (leaveField()) pages->setCurrentIndex(page);
        });
        pages->setTabToolTip(page, keys.toString(QKeySequence::NativeText));
    }
}

void Screen::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1)
        return void(guarded([this] { frmManual::openAt(focusWidget() ? focusWidget() : this); }));
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

bool Screen::endCellEdit() {
    const QList<Grid*> grids = findChildren<Grid*>();
    return std::all_of(grids.begin(), grids.end(), [](Grid* grid) { return grid->endEdit(); });
}

// The field of the focus first. Another may hold a wrong entry, too, since the operator may leave one to give up.
bool Screen::leaveField() {
    if (!endCellEdit()) return false;
    QList<EntryField*> fields = findChildren<EntryField*>();
    if (auto* current = qobject_cast<EntryField*>(focusWidget())) fields.prepend(current);
    for (EntryField* field : fields) {
        if (field->window() != this || !field->isEnabled() || field->isReadOnly() || field->commit()) continue;
        field->complain();
        return false;
    }
    return true;
}

// What is done without moving the focus takes over first what was typed: an Alt letter, the turn of a page.
bool Screen::eventFilter(QObject* watched, QEvent* event) {
    const bool presses = event->type() == QEvent::Shortcut && !watched->property("leavesUnchecked").toBool();
    if ((presses || turnsPage(watched, event)) && !leaveField()) return true;
    return QDialog::eventFilter(watched, event);
}

// --- closing ---

bool Screen::mayClose() {
    bool may = false;
    guarded([&] { may = endCellEdit() && queryUnload(); });
    return may;
}

void Screen::closeEvent(QCloseEvent* event) {
    if (!mayClose()) return event->ignore();
    guarded([this] { SaveFormPosition(this); });
    WindowArrangement::keep(this);
    SearchFields::keep(this);
    event->accept();
}
