#include "ui/Grid.h"

#include "base/basMessage.h"
#include "ui/GridDelegate.h"
#include "ui/GridHands.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

// Drawn by hand like the cells, see there.
class GridHeading : public QHeaderView {
public:
    explicit GridHeading(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override {
        painter->fillRect(rect, Style::heading);
        painter->setPen(Style::line);
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->drawLine(rect.bottomLeft(), rect.bottomRight());
        painter->setPen(isEnabled() ? Style::ink : palette().color(QPalette::Disabled, QPalette::Text));
        const QString title = model()->headerData(column, Qt::Horizontal).toString();
        static_cast<const Grid*>(parentWidget())
            ->letters()
            .paint(*painter, rect.adjusted(2, 0, -2, 0), Qt::AlignHCenter, title);
    }
};

} // namespace

Grid::Grid(QWidget* parent)
    : QTableView(parent), m_model(new GridModel(this)), m_letters(std::make_unique<GridLetters>(Style::gridFont())) {
    setHorizontalHeader(new GridHeading(this));
    setModel(m_model);
    setItemDelegate(new GridDelegate(this));
    setFont(Style::gridFont());
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    new GridHands(this);
    setTabKeyNavigation(false);
    setAlternatingRowColors(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &Grid::headingClicked);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (!(index.flags() & Qt::ItemIsEditable)) emit rowOpened(index.row() + 1);
    });
}

void Grid::setColumns(const QList<GridColumn>& columns) {
    m_model->setColumns(columns);
    clearSortMark();
    for (int i = 0; i < columns.size(); ++i) QTableView::setColumnHidden(i, columns.at(i).hidden);
    setSelectionBehavior(isList() ? SelectRows : SelectItems);
    setSelectionMode(isList() ? SingleSelection : ContiguousSelection);
    applyWidths();
}

void Grid::setColumnHidden(int column, bool hidden) { QTableView::setColumnHidden(column, hidden); }

void Grid::setEntries(int column, const QStringList& texts) {
    GridEntries entries;
    for (const QString& text : texts) entries << GridEntry::parse(text);
    setEntries(column, entries);
}

void Grid::applyWidths() {
    m_letters = std::make_unique<GridLetters>(font());
    verticalHeader()->setDefaultSectionSize(QFontMetrics(QApplication::font()).height() + 8);
    for (int i = 0; i < columns(); ++i) setColumnWidth(i, Style::charactersWide(column(i).width));
    horizontalHeader()->setStretchLastSection(columns() > 0 && isList());
}

bool Grid::isList() const {
    const auto& all = m_model->columns();
    const auto changes =
        std::count_if(all.begin(), all.end(), [](const GridColumn& column) { return column.editable; });
    return changes == 0 || (changes == 1 && tickColumn() >= 0);
}

int Grid::tickColumn() const {
    const auto& all = m_model->columns();
    const auto tick = std::find_if(all.begin(), all.end(), [](const GridColumn& column) {
        return column.editable && column.kind == GridColumn::Check;
    });
    return tick == all.end() ? -1 : static_cast<int>(tick - all.begin());
}

// --- rows and cells ---

void Grid::setRows(int rows) {
    m_model->setRowCount(rows);
    if (!isList()) setCurrent(1); // what is filled in has a cell to begin with
}

void Grid::setSource(int rows, GridModel::RowSource source) { m_model->setSource(rows, std::move(source)); }

void Grid::setFilling(bool filling) {
    m_filling = filling;
    if (rows() == 0) viewport()->update(); // else nothing tells of it here
}

void Grid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!m_filling || rows() > 0) return;
    QPainter painter(viewport());
    painter.drawText(viewport()->rect(), Qt::AlignCenter, u"読み込んでいます…"_qs);
}

void Grid::addRow(const QStringList& values) {
    insertRow(rows() + 1);
    setRowValues(rows(), values);
}

void Grid::insertRow(int row) { m_model->insertEmptyRow(row - 1); }

void Grid::removeRow(int row) { m_model->removeOneRow(row - 1); }

void Grid::swapRows(int first, int second) { m_model->swapTwoRows(first - 1, second - 1); }

void Grid::clearRow(int row) { setRowValues(row, QStringList(columns())); }

QStringList Grid::rowValues(int row) const {
    QStringList values;
    for (int i = 0; i < columns(); ++i) values << value(row, i);
    return values;
}

void Grid::setRowValues(int row, const QStringList& values, int first) {
    for (int i = 0; i < values.size() && first + i < columns(); ++i) setValue(row, first + i, values.at(i));
}

void Grid::followEdit(int row, int column, const QString& before,
                      const std::function<void(QStringList& values)>& rules) {
    QStringList values = rowValues(row);
    try {
        rules(values);
    } catch (...) {
        setValue(row, column, before);
        throw;
    }
    setRowValues(row, values);
}

bool Grid::isRowEmpty(int row) const {
    for (int i = 0; i < columns(); ++i) {
        const auto kind = column(i).kind;
        if (kind != GridColumn::RowNumber && kind != GridColumn::Check && !value(row, i).isEmpty()) return false;
    }
    return true;
}

// --- where the operator is ---

void Grid::setCurrent(int row, int column) {
    if (!showsRow(row)) return setCurrentIndex({});
    if (column < 0) column = firstFillColumn(row - 1);
    setCurrentIndex(m_model->index(row - 1, column));
}

int Grid::firstFillColumn(int) const {
    int firstSeen = -1;
    for (int i = 0; i < columns(); ++i) {
        if (isColumnHidden(i) || column(i).kind == GridColumn::RowNumber) continue;
        if (column(i).editable) return i;
        if (firstSeen < 0) firstSeen = i;
    }
    return std::max(firstSeen, 0);
}

QModelIndex Grid::nextCellToFill(const QModelIndex& from) const {
    if (m_leavesFromEmptyRow && isRowEmpty(from.row() + 1)) return {};
    for (int i = from.column() + 1; i < columns(); ++i) {
        const bool fills = column(i).editable && !isColumnHidden(i) && column(i).kind != GridColumn::Check;
        if (fills && m_model->value(from.row(), i).isEmpty() && (!isToFill || isToFill(from.row() + 1, i)))
            return m_model->index(from.row(), i);
    }
    const int row = from.row() + 1;
    return row < rows() ? m_model->index(row, firstFillColumn(row)) : QModelIndex();
}

bool Grid::goToNextCell() {
    const QModelIndex next = currentIndex().isValid() ? nextCellToFill(currentIndex()) : QModelIndex();
    if (next.isValid()) setCurrentIndex(next);
    return next.isValid();
}

// A grid reached by a key begins where something can be typed.
void Grid::focusInEvent(QFocusEvent* event) {
    const bool reached = event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
                         event->reason() != Qt::PopupFocusReason;
    const bool typedHere = currentIndex().isValid() && column(currentColumn()).editable;
    if (reached && !isList() && !typedHere) setCurrent(qMax(currentRow(), 1));
    QTableView::focusInEvent(event);
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.row() != previous.row()) emit currentRowChanged(current.row() + 1);
}

// --- editing ---

bool Grid::mayEdit(const QModelIndex& index) const {
    if (!isEnabled() || !column(index.column()).editable) return false;
    bool allowed = true;
    const bool ran = guarded([&] { allowed = !editStarting || editStarting(index.row() + 1, index.column()); });
    return ran && allowed;
}

void Grid::takeEdit(const QModelIndex& index, const QString& newValue) {
    const QString before = m_model->value(index.row(), index.column());
    if (before == newValue) return;
    m_model->setValue(index.row(), index.column(), newValue);
    emit cellEdited(index.row() + 1, index.column(), before);
}

bool Grid::enter(int row, int column, const QString& text) {
    if (!showsRow(row)) return false;
    const QModelIndex index = m_model->index(row - 1, column);
    if (text == this->text(row, column) || text == value(row, column)) return true;
    return mayEdit(index) && static_cast<GridDelegate*>(itemDelegate())->takeText(index, text);
}

void Grid::clearSelected() {
    QModelIndexList cells = selectedIndexes();
    if (cells.isEmpty()) cells << currentIndex();
    for (const QModelIndex& cell : cells)
        if (column(cell.column()).kind != GridColumn::Check && mayEdit(cell)) takeEdit(cell, {});
}

bool Grid::beginEdit(int row, int column) {
    if (!showsRow(row) || column < 0 || column >= columns()) return false;
    setCurrent(row, column);
    return edit(m_model->index(row - 1, column), AllEditTriggers, nullptr) && m_editor;
}

void Grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    m_editor.clear();
    QTableView::closeEditor(editor, hint);
}

bool Grid::endEdit() {
    if (!m_editor) return true;
    if (!static_cast<GridDelegate*>(itemDelegate())->mayLeave(m_editor)) return false;
    commitData(m_editor);
    closeEditor(m_editor, QAbstractItemDelegate::NoHint);
    return true;
}

void Grid::giveUpEdit() {
    if (m_editor) closeEditor(m_editor, QAbstractItemDelegate::RevertModelCache);
}

bool Grid::toggleCheck(int row, int column) {
    const QModelIndex index = m_model->index(row - 1, column);
    if (!mayEdit(index)) return false;
    takeEdit(index, isChecked(row, column) ? u"0"_qs : u"1"_qs);
    return true;
}

void Grid::keyPressEvent(QKeyEvent* event) {
    const QModelIndex index = currentIndex();
    const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (!index.isValid() || !plain) return QTableView::keyPressEvent(event);
    const int tick = isList() ? tickColumn() : index.column();
    const bool ticks = tick >= 0 && column(tick).kind == GridColumn::Check;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isList()) return emit rowOpened(currentRow());
        if (!goToNextCell()) event->ignore(); // behind the last cell the screen goes on
        return;
    case Qt::Key_Space:
        if (!ticks) break;
        toggleCheck(currentRow(), tick);
        return;
    case Qt::Key_Delete:
        if (!ticks) clearSelected();
        return;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void Grid::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton && column(index.column()).kind == GridColumn::Check)
        toggleCheck(index.row() + 1, index.column());
}

void Grid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_model) applyWidths();
}

// --- sorting ---

bool Grid::toggleSortMark(int column) {
    setSortMark(column, column != m_sortColumn || !m_sortUpwards);
    return m_sortUpwards;
}

void Grid::setSortMark(int column, bool upwards) {
    m_sortColumn = column;
    m_sortUpwards = upwards;
    m_model->setTitleMark(column, upwards ? u"▲"_qs : u"▼"_qs);
}
