#include "ui/EditedRows.h"

#include "ui/Grid.h"

#include <algorithm>

EditedRows::EditedRows(Grid* grid, int markColumn, int keyColumn)
    : QObject(grid), m_grid(grid), m_markColumn(markColumn), m_keyColumn(keyColumn) {
    m_grid->editStarting = [this](int row, int) { return row > m_marks.size() || mayEdit(row); };
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

void EditedRows::mark(int row) {
    m_grid->setValue(row, m_markColumn, m_marks.at(row - 1).any() ? u"*"_qs : QString());
    emit changed();
}

void EditedRows::takeEdit(int row) {
    if (row > m_marks.size()) {
        m_marks << Marks();
        addBlank();
    }
    m_marks[row - 1].edited = true;
    mark(row);
}

void EditedRows::removeCurrent() {
    const int row = m_grid->currentRow();
    if (row < 1 || row > m_marks.size()) return;
    if (isNew(row)) {
        m_marks.removeAt(row - 1);
        m_grid->removeRow(row);
        emit changed();
        return;
    }
    m_marks[row - 1].removed = true;
    mark(row);
}

void EditedRows::moveCurrent(int by) {
    const int row = m_grid->currentRow();
    const int other = row + by;
    if (row < 1 || row > m_marks.size() || other < 1 || other > m_marks.size()) return;
    m_grid->swapRows(row, other);
    m_marks.swapItemsAt(row - 1, other - 1);
    for (const int moved : {row, other}) {
        m_marks[moved - 1].moved = true;
        mark(moved);
    }
    m_grid->setCurrent(other, m_grid->currentColumn());
}

void EditedRows::moveCurrentToEnd() {
    while (m_grid->currentRow() > 0 && m_grid->currentRow() < m_marks.size()) moveCurrent(1);
}

bool EditedRows::write(const Writers& writers) {
    for (int row = 1; row <= m_marks.size(); ++row) {
        const Marks marks = m_marks.at(row - 1);
        if (marks.removed) {
            writers.remove(row);
        } else if (marks.edited) {
            if (!writers.check(row)) {
                m_grid->setCurrent(row);
                return false;
            }
            writers.save(row);
        } else if (marks.moved) {
            writers.place(row);
        }
    }
    return true;
}
