#include "Operator.h"

#include "Desk.h"
#include "Player.h"
#include "StepFailure.h"
#include "ui/EditScreen.h"
#include "ui/Grid.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTest>

namespace {

void sendKey(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

void sendCharacter(QWidget* target, const QString& character) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, character);
    QApplication::sendEvent(target, &release);
}

void sendText(QWidget* target, const QString& text) {
    const bool isMemo = qobject_cast<QPlainTextEdit*>(target);
    for (const char32_t code : text.toUcs4()) {
        if (code == U'\n')
            sendKey(target, Qt::Key_Return, isMemo ? Qt::AltModifier : Qt::NoModifier);
        else
            sendCharacter(target, QString::fromUcs4(&code, 1));
    }
}

// The widget that takes typed text for a control; raises for one that takes none.
QWidget* textTarget(QWidget* control) {
    if (auto* field = qobject_cast<QLineEdit*>(control); field && !field->isReadOnly()) return field;
    if (auto* memo = qobject_cast<QPlainTextEdit*>(control); memo && !memo->isReadOnly()) return memo;
    if (auto* list = qobject_cast<QComboBox*>(control); list && list->isEditable()) return list;
    throw StepFailure{u"%1 takes no text"_qs.arg(control->objectName()), u"a field to type into"_qs};
}

bool takesOnlyEntries(QWidget* control) {
    const auto* list = qobject_cast<QComboBox*>(control);
    return list && !list->isEditable();
}

void selectAll(QWidget* target) {
    if (auto* field = qobject_cast<QLineEdit*>(target)) field->selectAll();
    if (auto* memo = qobject_cast<QPlainTextEdit*>(target)) memo->selectAll();
    if (auto* list = qobject_cast<QComboBox*>(target)) list->lineEdit()->selectAll();
}

void replaceText(QWidget* target, const QString& text) {
    selectAll(target);
    if (text.isEmpty()) sendKey(target, Qt::Key_Delete);
    sendText(target, text);
}

bool hasFocus(const QWidget* control) {
    const QWidget* focus = QApplication::focusWidget();
    return focus && (focus == control || control->isAncestorOf(focus));
}

void leave(QWidget* control) {
    sendKey(QApplication::focusWidget(), Qt::Key_Tab);
    if (hasFocus(control)) QApplication::focusWidget()->clearFocus();
}

QAbstractButton* buttonOf(QWidget* control) {
    if (auto* button = qobject_cast<QAbstractButton*>(control)) return button;
    throw StepFailure{u"%1 is no button"_qs.arg(control->objectName()), u"a button, option or tick box"_qs};
}

QTabBar* tabsOf(QWidget* control) {
    if (auto* tabs = qobject_cast<QTabWidget*>(control)) return tabs->tabBar();
    if (auto* bar = qobject_cast<QTabBar*>(control)) return bar;
    throw StepFailure{u"%1 has no tabs"_qs.arg(control->objectName()), u"tabs"_qs};
}

QStringList entriesOf(const QComboBox* list) {
    QStringList entries;
    for (int i = 0; i < list->count(); ++i) entries << list->itemText(i);
    return entries;
}

// The entry that shows a text; for the empty text also the one that stands for no choice, such as （全て）.
int entryOf(const QComboBox* list, const QString& text) {
    const int index = list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return index < 0 && text.isEmpty() ? list->findData(QString()) : index;
}

void chooseEntry(QComboBox* list, const QString& text) {
    const int index = entryOf(list, text);
    if (index < 0) throw StepFailure{u"the entries "_qs + entriesOf(list).join(u'|'), text};
    list->setCurrentIndex(index);
    emit list->textActivated(list->itemText(index));
    emit list->activated(index);
}

void chooseItem(QListWidget* list, const QString& text) {
    const auto found = list->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty()) throw StepFailure{u"no such entry"_qs, text};
    list->setCurrentItem(found.first());
}

// Fills the open editor of a cell.
void fillEditor(Grid* grid, int column, const QString& text) {
    QWidget* editor = grid->editor();
    if (!grid->valueOfText(column, text)) {
        grid->giveUpEdit();
        throw StepFailure{u"the list of the cell has no such entry"_qs, text};
    }
    replaceText(textTarget(editor), text);
    sendKey(textTarget(editor), Qt::Key_Return);
}

} // namespace

void Operator::goTo(QWidget* control, std::function<void()> act) {
    if (control->focusPolicy() != Qt::NoFocus) control->setFocus(Qt::MouseFocusReason);
    const bool takesFocus = hasFocus(control);
    m_player.then([target = QPointer<QWidget>(control), takesFocus, act = std::move(act)] {
        if (target && (!takesFocus || hasFocus(target))) act();
    });
}

void Operator::press(const QString& name) {
    QAbstractButton* button = buttonOf(Desk::usableControl(name));
    goTo(button, [button, name] {
        if (!button->isEnabled()) throw StepFailure{u"%1 is disabled"_qs.arg(name), u"an enabled control"_qs};
        button->click();
    });
}

void Operator::type(const QString& name, const QString& text) {
    QWidget* control = Desk::usableControl(name);
    if (takesOnlyEntries(control)) return pick(control, text);
    textTarget(control);
    goTo(control, [this, control, text, &player = m_player] {
        replaceText(textTarget(control), text);
        player.then([target = QPointer<QWidget>(control)] {
            if (target && hasFocus(target)) leave(target);
        });
    });
}

void Operator::paste(const QString& name, const QString& text) {
    QWidget* control = Desk::usableControl(name);
    textTarget(control);
    goTo(control, [control, text, &player = m_player] {
        QApplication::clipboard()->setText(text);
        selectAll(textTarget(control));
        sendKey(textTarget(control), Qt::Key_V, Qt::ControlModifier);
        player.then([target = QPointer<QWidget>(control)] {
            if (target && hasFocus(target)) leave(target);
        });
    });
}

void Operator::clipboard(const QString& text) { QApplication::clipboard()->setText(text); }

void Operator::key(const QString& name, const QStringList& keys) {
    QWidget* control = Desk::usableControl(name);
    QList<QKeyCombination> combinations;
    for (const QString& word : keys.join(u' ').split(u' ', Qt::SkipEmptyParts)) {
        const QKeySequence sequence(word);
        const bool isKnown = !sequence.isEmpty() && sequence[0].key() != Qt::Key_unknown;
        // A letter beyond Latin is typed by `type`; the event system knows no key of that name.
        const bool isLetter = isKnown && sequence[0].key() > 0xFF && sequence[0].key() < Qt::Key_Escape;
        if (!isKnown || isLetter) throw StepFailure{word, u"a key"_qs};
        for (int i = 0; i < sequence.count(); ++i) combinations << sequence[i];
    }
    const bool alreadyThere = hasFocus(control);
    const auto send = [combinations, &player = m_player] {
        for (const QKeyCombination combination : combinations)
            player.then([combination] {
                if (QWidget* focus = QApplication::focusWidget())
                    sendKey(focus, combination.key(), combination.keyboardModifiers());
            });
    };
    alreadyThere ? send() : goTo(control, send);
}

void Operator::choose(const QString& name, const QString& text) { pick(Desk::usableControl(name), text); }

void Operator::pick(QWidget* control, const QString& text) {
    auto* combo = qobject_cast<QComboBox*>(control);
    auto* items = qobject_cast<QListWidget*>(control);
    if (!combo && !items) throw StepFailure{u"%1 is no list"_qs.arg(control->objectName()), u"a list"_qs};
    goTo(control, [combo, items, text] { combo ? chooseEntry(combo, text) : chooseItem(items, text); });
}

void Operator::tick(const QString& name, bool on) {
    QAbstractButton* button = buttonOf(Desk::usableControl(name));
    if (!button->isCheckable()) throw StepFailure{u"%1 cannot be ticked"_qs.arg(name), u"a tick box"_qs};
    if (!on && button->autoExclusive() && button->isChecked())
        throw StepFailure{u"%1 is an option, which another one turns off"_qs.arg(name), u"off"_qs};
    if (button->isChecked() != on) press(name);
}

void Operator::tab(const QString& name, int index) {
    QTabBar* tabs = tabsOf(Desk::usableControl(name));
    if (index < 0 || index >= tabs->count())
        throw StepFailure{u"%1 has the tabs 0 to %2"_qs.arg(name).arg(tabs->count() - 1), QString::number(index)};
    if (!tabs->isTabEnabled(index)) throw StepFailure{u"the tab is disabled"_qs, u"an enabled tab"_qs};
    const QPoint place = tabs->tabRect(index).center();
    m_player.then([target = QPointer<QTabBar>(tabs), place] {
        if (target) QTest::mouseClick(target, Qt::LeftButton, {}, place);
    });
}

void Operator::cell(const QString& name, int row, const QString& word, const QString& text) {
    Grid* grid = Desk::usableGrid(name);
    const int column = Desk::column(grid, word);
    Desk::checkPlace(grid, row, column);
    goTo(grid, [grid, row, column, text, &player = m_player] {
        Desk::checkPlace(grid, row, column);
        if (!grid->beginEdit(row, column) || !grid->editor()) throw StepFailure{u"the cell cannot be edited"_qs, text};
        fillEditor(grid, column, text);
        // Return may have gone on to the next row; the commands behind this step mean the row that it names
        player.then([target = QPointer<Grid>(grid), row, column] {
            if (target && hasFocus(target) && target->currentRow() != row && row <= target->rows())
                target->setCurrent(row, column);
        });
    });
}

void Operator::tickCell(const QString& name, int row, const QString& word, bool on) {
    Grid* grid = Desk::usableGrid(name);
    const int column = Desk::column(grid, word);
    Desk::checkPlace(grid, row, column);
    if (grid->column(column).kind != GridColumn::Check)
        throw StepFailure{u"column %1 has no tick boxes"_qs.arg(column), u"a tick box"_qs};
    goTo(grid, [grid, row, column, on] {
        if (grid->isChecked(row, column) == on) return;
        grid->setCurrent(row, column);
        if (!grid->toggleCheck(row, column)) throw StepFailure{u"the cell cannot be edited"_qs, u"a tick box"_qs};
    });
}

void Operator::row(const QString& name, int row) {
    Grid* grid = Desk::usableGrid(name);
    Desk::checkPlace(grid, row, 0);
    goTo(grid, [grid, row] { grid->setCurrent(row); });
}

void Operator::open(const QString& name, int row) {
    Grid* grid = Desk::usableGrid(name);
    Desk::checkPlace(grid, row, 0);
    goTo(grid, [grid, row] {
        grid->setCurrent(row);
        emit grid->doubleClicked(grid->currentIndex());
    });
}

void Operator::head(const QString& name, const QString& word) {
    Grid* grid = Desk::usableGrid(name);
    const int column = Desk::column(grid, word);
    goTo(grid, [grid, column] { emit grid->horizontalHeader()->sectionClicked(column); });
}

void Operator::close() { Desk::topmost()->close(); }

void Operator::letMinutePass() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* screen = qobject_cast<EditScreen*>(window); screen && screen->isVisible()) screen->keepDraft();
}
