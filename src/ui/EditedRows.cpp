#include "ui/EditedRows.h"

#include "ui/Grid.h"

#include <algorithm>

EditedRows::EditedRows(Grid* grid, int markColumn, int keyColumn)
    : QObject(grid), m_grid(grid), m_markColumn(markColumn), m_keyColumn(keyColumn) {
    m_grid->editStarting = [this](int row, int) { return mayEdit(row); };
    connect(m_grid, &Grid::cellEdited, this, [this](int row) { takeEdit(row); });
}

void EditedRows::load(const QList<QStringList>& rows) {
    m_marks = QList<Marks>(rows.size());
    m_grid->setRows(0);
    for (const QStringList& values : rows) m_grid->addRow(values);
    addBlank();
    m_grid->setCurrent(1);
}

void EditedRows::addBlank() { m_grid->addRow({}); }

bool EditedRows::hasEdits() const {
    return std::any_of(m_marks.begin(), m_marks.end(), [](const Marks& marks) { return marks.any(); });
}

bool EditedRows::isNew(int row) const { return m_grid->value(row, m_keyColumn).isEmpty(); }

bool EditedRows::mayEdit(int row) const {
    const bool may = row > count() || !isRemoved(row);
    if (!may && editRefused) editRefused();
    return may;
}

QString EditedRows::Marks::text() const {
    if (removed) return u"×"_qs;
    return any() ? u"*"_qs : QString();
}

void EditedRows::mark(int row) {
    m_grid->setValue(row, m_markColumn, m_marks.at(row - 1).text());
    emit changed();
}

void EditedRows::takeEdit(int row) {
    if (row > count()) {
        m_marks << Marks();
        addBlank();
        if (startRow) startRow(row);
    }
    m_marks[row - 1].edited = true;
    mark(row);
}

// --- commands ---

void EditedRows::drop(int row) {
    m_marks.removeAt(row - 1);
    m_grid->removeRow(row);
}

void EditedRows::removeCurrent() {
    const int row = m_grid->currentRow();
    if (row < 1 || row > count()) return;
    if (isNew(row)) {
        drop(row);
        emit changed();
        return;
    }
    m_marks[row - 1].removed = !isRemoved(row);
    mark(row);
}

void EditedRows::noteMoved(int row) {
    m_marks[row - 1].moved = true;
    mark(row);
}

bool EditedRows::swapCurrent(int by) {
    const int row = m_grid->currentRow();
    const int other = row + by;
    if (row < 1 || row > count() || other < 1 || other > count() || (mayMove && !mayMove(row, other))) return false;
    m_grid->swapRows(row, other);
    m_marks.swapItemsAt(row - 1, other - 1);
    for (const int placed : {row, other}) noteMoved(placed);
    m_grid->setCurrent(other, m_grid->currentColumn());
    return true;
}

bool EditedRows::endMove(bool done) {
    if (done) emit moved();
    return done;
}

bool EditedRows::moveCurrent(int by) { return endMove(swapCurrent(by)); }

bool EditedRows::moveCurrentToEnd() {
    bool done = false;
    while (swapCurrent(1)) done = true;
    return endMove(done);
}

// --- writing ---

bool EditedRows::writeRow(int row, const Writers& writers) {
    const Marks marks = m_marks.at(row - 1);
    if (marks.removed) return writers.remove(row);
    if (marks.edited) {
        if (!writers.check(row)) return false;
        writers.save(row);
    } else if (marks.moved) {
        writers.place(row);
    }
    return true;
}

bool EditedRows::write(const Writers& writers) {
    for (int row = 1; row <= count();) {
        if (!writeRow(row, writers)) {
            m_grid->setCurrent(row);
            return false;
        }
        if (isRemoved(row)) {
            drop(row);
            continue;
        }
        m_marks[row - 1] = {};
        mark(row++);
    }
    return true;
}
