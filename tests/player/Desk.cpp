#include "Desk.h"

#include "StepFailure.h"
#include "ui/Grid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

bool isScreen(const QWidget* window) {
    return window->isVisible() && window->isWindow() && window->windowType() != Qt::Popup &&
           window->windowType() != Qt::ToolTip && window->windowType() != Qt::SplashScreen &&
           !window->objectName().isEmpty();
}

// The members NAME_0, NAME_1 … in the order of their numbers.
QList<QWidget*> arrayMembers(QWidget* screen, const QString& name) {
    const QRegularExpression form(u"^%1_(\\d+)$"_qs.arg(QRegularExpression::escape(name)));
    QList<QWidget*> members = screen->findChildren<QWidget*>(form);
    const auto index = [&form](const QWidget* member) { return form.match(member->objectName()).captured(1).toInt(); };
    std::sort(members.begin(), members.end(),
              [&index](const QWidget* left, const QWidget* right) { return index(left) < index(right); });
    return members;
}

// A member of an array may also be written NAME(0) or NAME[0].
QString memberName(const QString& written) {
    static const QRegularExpression form(uR"(^(\w+)[(\[](\d+)[)\]]$)"_qs);
    const auto match = form.match(written);
    return match.hasMatch() ? match.captured(1) + u'_' + match.captured(2) : written;
}

QWidget* firstVisible(const QList<QWidget*>& widgets) {
    const auto found = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* w) { return w->isVisible(); });
    return found != widgets.end() ? *found : widgets.value(0);
}

bool anyButtonDown(const QWidget* screen) {
    const auto buttons = screen->findChildren<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [](const QAbstractButton* button) { return button->isDown(); });
}

bool anyGridFilling(const QWidget* screen) {
    const auto grids = screen->findChildren<Grid*>();
    return std::any_of(grids.begin(), grids.end(), [](const Grid* grid) { return grid->isFilling(); });
}

} // namespace

QWidget* Desk::topmostOrNone() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), isScreen);
    return found == windows.end() ? nullptr : *found;
}

QWidget* Desk::topmost() {
    if (QWidget* screen = topmostOrNone()) return screen;
    throw StepFailure{u"no screen is open"_qs, u"an open screen"_qs};
}

QStringList Desk::openScreens() {
    QStringList names;
    for (QWidget* screen = topmostOrNone(); screen; screen = screen->parentWidget())
        if (isScreen(screen)) names.prepend(screen->objectName());
    return names;
}

int Desk::modalScreens() {
    const auto windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->isModal() && window->windowType() != Qt::Popup;
    }));
}

QWidget* Desk::control(const QString& written) {
    QWidget* screen = topmost();
    const QString name = memberName(written);
    if (screen->objectName() == name) return screen;
    if (QWidget* found = firstVisible(screen->findChildren<QWidget*>(name))) return found;
    if (QWidget* member = firstVisible(arrayMembers(screen, name))) return member;
    throw StepFailure{u"no control %1 in %2"_qs.arg(written, screen->objectName()), u"the control"_qs};
}

Grid* Desk::grid(const QString& name) {
    if (auto* found = qobject_cast<Grid*>(control(name))) return found;
    throw StepFailure{u"%1 is no grid"_qs.arg(name), u"a grid"_qs};
}

QWidget* Desk::usableControl(const QString& name) {
    QWidget* found = control(name);
    if (!found->isVisible()) throw StepFailure{u"%1 is not visible"_qs.arg(name), u"a visible control"_qs};
    if (!found->isEnabled()) throw StepFailure{u"%1 is disabled"_qs.arg(name), u"an enabled control"_qs};
    return found;
}

Grid* Desk::usableGrid(const QString& name) {
    usableControl(name);
    return grid(name);
}

int Desk::column(const Grid* grid, const QString& word) {
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (isNumber && number >= 0 && number < grid->columns()) return number;
    if (isNumber)
        throw StepFailure{u"%1 has the columns 0 to %2"_qs.arg(grid->objectName()).arg(grid->columns() - 1), word};
    for (int column = 0; column < grid->columns(); ++column)
        if (grid->column(column).title == word) return column;
    throw StepFailure{u"%1 has no column %2"_qs.arg(grid->objectName(), word), u"a number or a heading"_qs};
}

void Desk::checkPlace(const Grid* grid, int row, int column) {
    const bool rowThere = row >= 1 && row <= grid->rows();
    const bool columnThere = column >= 0 && column < grid->columns();
    if (rowThere && columnThere) return;
    throw StepFailure{u"%1 has the rows 1 to %2 and the columns 0 to %3"_qs.arg(grid->objectName())
                          .arg(grid->rows())
                          .arg(grid->columns() - 1),
                      u"row %1, column %2"_qs.arg(row).arg(column)};
}

bool Desk::isAtRest() {
    QWidget* screen = topmostOrNone();
    if (!screen) return true;
    if (!screen->isActiveWindow() && !QApplication::activePopupWidget()) {
        QApplication::setActiveWindow(screen);
        return false;
    }
    return !anyButtonDown(screen) && !anyGridFilling(screen);
}
