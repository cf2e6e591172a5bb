#include "ui/WindowArrangement.h"

#include "base/Arrangement.h"
#include "ui/Grid.h"
#include "ui/Style.h"

#include <QHeaderView>
#include <QScreen>

#include <algorithm>

namespace {

constexpr char drawnSize[] = "drawnSize";
constexpr char keepsSort[] = "keepsSort";
constexpr int narrowest = 8;

QString nameOf(const QWidget* window) {
    const QString given = window->property("arrangedAs").toString();
    return given.isEmpty() ? window->objectName() : given;
}

// --- columns ---

// One that fills what the others leave has no width of its own.
bool hasOwnWidth(const QHeaderView* header, int column) {
    const bool fills = header->stretchLastSection() && header->visualIndex(column) == header->count() - 1;
    return !fills && !header->isSectionHidden(column) && header->sectionResizeMode(column) == QHeaderView::Interactive;
}

int drawnWidth(const Grid* grid, int column) { return Style::charactersWide(grid->column(column).width); }

// Columns go by their titles: another version of the program may have more of them, or another order.
void restoreWidths(Grid* grid, const QJsonObject& kept) {
    for (int column = 0; column < grid->columns(); ++column) {
        const int width = kept.value(grid->column(column).title).toInt();
        if (width < narrowest || !hasOwnWidth(grid->horizontalHeader(), column)) continue;
        grid->setColumnWidth(column, std::min(width, grid->screen()->availableSize().width()));
    }
}

QJsonObject changedWidths(const Grid* grid, QJsonObject kept) {
    for (int column = 0; column < grid->columns(); ++column) {
        const QString title = grid->column(column).title;
        if (!hasOwnWidth(grid->horizontalHeader(), column)) continue;
        if (grid->columnWidth(column) == drawnWidth(grid, column))
            kept.remove(title);
        else
            kept.insert(title, grid->columnWidth(column));
    }
    return kept;
}

// --- sorting ---

int columnOf(const Grid* grid, const QString& title) {
    for (int column = 0; column < grid->columns(); ++column)
        if (grid->column(column).title == title) return column;
    return -1;
}

QJsonObject sortOf(const Grid* grid) {
    if (grid->sortColumn() < 0) return {};
    return {{u"column"_qs, grid->column(grid->sortColumn()).title}, {u"upwards"_qs, grid->sortsUpwards()}};
}

QJsonObject sortsOf(const QWidget* window) {
    QJsonObject sorts;
    for (const Grid* grid : window->findChildren<Grid*>())
        if (grid->property(keepsSort).toBool()) sorts.insert(grid->objectName(), sortOf(grid));
    return sorts;
}

// --- the window itself ---

bool isSizedByItself(const QWidget* window) { return window->property("sizedByItself").toBool(); }

void restoreSize(QWidget* window, const QJsonObject& kept) {
    if (isSizedByItself(window)) return;
    window->setProperty(drawnSize, window->size());
    const QSize size(kept.value(u"width"_qs).toInt(), kept.value(u"height"_qs).toInt());
    if (!size.isEmpty())
        window->resize(size.expandedTo(window->minimumSizeHint()).boundedTo(window->screen()->availableSize()));
    if (kept.value(u"maximised"_qs).toBool()) window->setWindowState(window->windowState() | Qt::WindowMaximized);
}

QSize ownSize(const QWidget* window) {
    const QSize normal = window->normalGeometry().size();
    return window->isMaximized() && !normal.isEmpty() ? normal : window->size();
}

// A window that was left as drawn follows its drawing, also when that becomes another one.
void keepSize(const QWidget* window, QJsonObject& kept) {
    if (isSizedByItself(window)) return;
    const QSize size = ownSize(window), drawn = window->property(drawnSize).toSize();
    kept.remove(u"width"_qs);
    kept.remove(u"height"_qs);
    if (size != drawn) {
        kept.insert(u"width"_qs, size.width());
        kept.insert(u"height"_qs, size.height());
    }
    kept.insert(u"maximised"_qs, window->isMaximized());
}

} // namespace

namespace WindowArrangement {

void restore(QWidget* window) {
    const QJsonObject kept = Arrangement::of(nameOf(window));
    restoreSize(window, kept);
    const QJsonObject grids = kept.value(u"grids"_qs).toObject();
    for (Grid* grid : window->findChildren<Grid*>()) restoreWidths(grid, grids.value(grid->objectName()).toObject());
}

void restoreSort(Grid* grid) {
    grid->setProperty(keepsSort, true);
    const QJsonObject sorts = Arrangement::of(nameOf(grid->window())).value(u"sorts"_qs).toObject();
    const QJsonObject sort = sorts.value(grid->objectName()).toObject();
    const int column = columnOf(grid, sort.value(u"column"_qs).toString());
    if (column >= 0) grid->setSortMark(column, sort.value(u"upwards"_qs).toBool(true));
}

void keep(const QWidget* window) {
    QJsonObject kept = Arrangement::of(nameOf(window));
    keepSize(window, kept);
    QJsonObject grids = kept.value(u"grids"_qs).toObject();
    for (const Grid* grid : window->findChildren<Grid*>()) {
        const QJsonObject widths = changedWidths(grid, grids.value(grid->objectName()).toObject());
        grids.insert(grid->objectName(), widths);
    }
    kept.insert(u"grids"_qs, grids);
    kept.insert(u"sorts"_qs, sortsOf(window));
    Arrangement::keep(nameOf(window), kept);
}

} // namespace WindowArrangement
