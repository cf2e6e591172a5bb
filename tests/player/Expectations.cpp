#include "Expectations.h"

#include "Desk.h"
#include "StepFailure.h"
#include "ui/ChoiceBox.h"
#include "ui/FieldMark.h"
#include "ui/Grid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace {

void same(const QString& found, const QString& expected) {
    if (found != expected) throw StepFailure{found, expected};
}

QString yesNo(bool value) { return value ? u"yes"_qs : u"no"_qs; }

QString withoutMnemonic(const QString& caption) { return QString(caption).remove(u'&'); }

// A caption with a mnemonic; it may be expected with or without its sign.
void sameCaption(const QString& caption, const QString& expected) {
    if (caption != expected) same(withoutMnemonic(caption), expected);
}

QString heading(const Grid* grid, int column) { return grid->model()->headerData(column, Qt::Horizontal).toString(); }

bool isOnOff(const Grid* grid, int column, const QString& text) {
    return grid->column(column).kind == GridColumn::Check && (text == u"on" || text == u"off");
}

QString captionOfTab(const QTabBar* tabs) { return tabs->tabText(tabs->currentIndex()); }

} // namespace

void Expect::screen(const QString& name) {
    const QWidget* top = Desk::topmostOrNone();
    same(top ? top->objectName() : u"no screen"_qs, name);
}

void Expect::title(const QString& text) { same(Desk::topmost()->windowTitle(), text); }

void Expect::text(const QString& name, const QString& text) {
    const QWidget* control = Desk::control(name);
    if (const auto* field = qobject_cast<const QLineEdit*>(control)) return same(field->text(), text);
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(control)) return same(memo->toPlainText(), text);
    if (const auto* choice = qobject_cast<const ChoiceBox*>(control)) return same(choice->shownText(), text);
    if (const auto* combo = qobject_cast<const QComboBox*>(control)) return same(combo->currentText(), text);
    if (const auto* label = qobject_cast<const QLabel*>(control)) return sameCaption(label->text(), text);
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) return sameCaption(button->text(), text);
    if (const auto* group = qobject_cast<const QGroupBox*>(control)) return sameCaption(group->title(), text);
    if (const auto* tabs = qobject_cast<const QTabWidget*>(control))
        return sameCaption(captionOfTab(tabs->tabBar()), text);
    if (const auto* bar = qobject_cast<const QTabBar*>(control)) return sameCaption(captionOfTab(bar), text);
    throw StepFailure{u"%1 shows no text"_qs.arg(name), text};
}

void Expect::cell(const QString& name, int row, const QString& word, const QString& text) {
    const Grid* grid = Desk::grid(name);
    const int column = Desk::column(grid, word);
    if (row == 0) return same(heading(grid, column), text);
    Desk::checkPlace(grid, row, column);
    if (isOnOff(grid, column, text)) return same(grid->isChecked(row, column) ? u"on"_qs : u"off"_qs, text);
    same(grid->text(row, column), text);
}

void Expect::rows(const QString& name, int count) {
    same(QString::number(Desk::grid(name)->rows()), QString::number(count));
}

void Expect::list(const QString& name, const QString& entries) {
    const QWidget* control = Desk::control(name);
    QStringList found;
    if (const auto* combo = qobject_cast<const QComboBox*>(control))
        for (int i = 0; i < combo->count(); ++i) found << combo->itemText(i);
    else if (const auto* items = qobject_cast<const QListWidget*>(control))
        for (int i = 0; i < items->count(); ++i) found << items->item(i)->text();
    else
        throw StepFailure{u"%1 is no list"_qs.arg(name), entries};
    same(found.join(u'|'), entries);
}

void Expect::enabled(const QString& name, bool enabled) {
    same(yesNo(Desk::control(name)->isEnabled()), yesNo(enabled));
}

void Expect::hint(const QString& name, const QString& text) {
    const QString hint = Desk::control(name)->toolTip();
    if (text.isEmpty() ? !hint.isEmpty() : !hint.contains(text)) throw StepFailure{hint, text};
}

void Expect::mark(const QString& name, const QString& text) { same(FieldMark::of(Desk::control(name)), text); }

void Expect::aside(const QString& name, int row, const QString& word, const QString& text) {
    const Grid* grid = Desk::grid(name);
    const int column = Desk::column(grid, word);
    Desk::checkPlace(grid, row, column);
    same(grid->aside ? grid->aside(row, column) : QString(), text);
}

void Expect::clipboard(const QString& text) { same(QApplication::clipboard()->text(), text); }

void Expect::visible(const QString& name, bool visible) {
    same(yesNo(Desk::control(name)->isVisible()), yesNo(visible));
}

void Expect::checked(const QString& name, bool checked) {
    const auto* button = qobject_cast<const QAbstractButton*>(Desk::control(name));
    if (!button || !button->isCheckable()) throw StepFailure{u"%1 cannot be ticked"_qs.arg(name), yesNo(checked)};
    same(yesNo(button->isChecked()), yesNo(checked));
}
