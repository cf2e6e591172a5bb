#pragma once

#include "ui/GridLetters.h"
#include "ui/GridModel.h"

#include <QPointer>
#include <QTableView>

#include <memory>

// A table of text cells. Rows count from 1 for the first data row; columns carry the numbers of the list that set them.
//
// Return goes to the next cell to fill; typing, F2 or a double click starts an edit, Delete empties a cell and Space
// turns a tick box. In a list, where nothing or but one tick can be changed, Return opens the row and Space turns the
// row's tick.
class Grid : public QTableView {
    Q_OBJECT

public:
    explicit Grid(QWidget* parent = nullptr);

    // --- form ---
    void setColumns(const QList<GridColumn>& columns);
    const GridColumn& column(int column) const { return m_model->columns().at(column); }
    int columns() const { return m_model->columnCount(); }
    void setColumnHidden(int column, bool hidden);
    // The drop-down list of a column's cells. A list that depends on the row is set by `editStarting`.
    void setEntries(int column, const GridEntries& entries) { m_model->setEntries(column, entries); }
    // The same from texts such as "左" or "#1;左".
    void setEntries(int column, const QStringList& texts);

    // --- rows ---
    int rows() const { return m_model->rowCount(); }
    // So many empty rows; what was there is gone.
    void setRows(int rows);
    // Rows that are asked for as they are looked at, and more of them, up to so many in all.
    void setSource(int rows, GridModel::RowSource source);
    void growSource(int rows) { m_model->growSource(rows); }
    // While more rows are on their way; an empty grid says so.
    void setFilling(bool filling);
    bool isFilling() const { return m_filling; }
    void addRow(const QStringList& values);
    void insertRow(int row);
    void removeRow(int row);
    void swapRows(int first, int second);
    void clearRow(int row);

    // --- cells ---
    // What the cell holds; an entry's value where the column has a list.
    QString value(int row, int column) const { return m_model->value(row - 1, column); }
    void setValue(int row, int column, const QString& value) { m_model->setValue(row - 1, column, value); }
    // What the cell shows.
    QString text(int row, int column) const { return m_model->shown(row - 1, column); }
    bool isChecked(int row, int column) const { return value(row, column) == u"1"; }
    void setChecked(int row, int column, bool on) { setValue(row, column, on ? u"1"_qs : u"0"_qs); }
    // All values of a row, and writing them from column `first` on.
    QStringList rowValues(int row) const;
    void setRowValues(int row, const QStringList& values, int first = 0);
    // Takes into a row what follows from the edit of a cell that held `before`. When that fails the cell gets its text
    // back, and the failure rises.
    void followEdit(int row, int column, const QString& before, const std::function<void(QStringList& values)>& rules);
    // True when no column but tick boxes and row numbers holds a text.
    bool isRowEmpty(int row) const;

    // --- where the operator is ---
    int currentRow() const { return currentIndex().row() + 1; }   // 0: nowhere
    int currentColumn() const { return currentIndex().column(); } // -1: nowhere
    void setCurrent(int row, int column = -1);                    // -1: the first column to see
    // Takes a text into a cell as if it had been typed there; false when the cell does not take it. What it holds
    // already is always taken.
    bool enter(int row, int column, const QString& text);
    // Empties the cells that are selected, as far as they may be edited.
    void clearSelected();
    // Starts an edit as the operator would; false when the cell refuses it.
    bool beginEdit(int row, int column);
    // Whether Return on an empty row goes on behind the grid: rows without gaps, where nothing follows an empty one.
    void setLeavesFromEmptyRow(bool leaves) { m_leavesFromEmptyRow = leaves; }
    // The field of the running edit, or nothing.
    QWidget* editor() const { return m_editor; }
    // Paints its texts.
    const GridLetters& letters() const { return *m_letters; }
    // Ends the running edit, taking over what was typed. False when that cannot be taken, which was told.
    bool endEdit();
    // Ends it and leaves the cell as it was.
    void giveUpEdit();
    // The value that a text typed into a column means; nothing when its list does not take the text.
    std::optional<QString> valueOfText(int column, const QString& text) const {
        return m_model->valueOfText(column, text);
    }
    // Turns a tick box as the operator would; false when the cell refuses it.
    bool toggleCheck(int row, int column);

    // --- sorting ---
    // Moves the mark to a column, or turns it where it stands. True when the column now sorts upwards (▲).
    bool toggleSortMark(int column);
    int sortColumn() const { return m_sortColumn; } // -1: none
    bool sortsUpwards() const { return m_sortUpwards; }
    void setSortMark(int column, bool upwards); // -1: none
    void clearSortMark() { setSortMark(-1, true); }

    // Asked just before a cell is edited; it may change the column's list, and false refuses the edit.
    std::function<bool(int row, int column)> editStarting;
    // A word that a cell tells besides, at its other end; empty: none. Without it no cell does.
    std::function<QString(int row, int column)> aside;
    // Whether Return stops at an empty cell that may be edited; without it, at every one.
    std::function<bool(int row, int column)> isToFill;

signals:
    // The operator changed a cell, which held `before`.
    void cellEdited(int row, int column, const QString& before);
    void rowOpened(int row);
    void headingClicked(int column);
    void currentRowChanged(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void changeEvent(QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void paintEvent(QPaintEvent* event) override;

private:
    friend class GridDelegate;

    bool mayEdit(const QModelIndex& index) const;
    void takeEdit(const QModelIndex& index, const QString& value);
    bool goToNextCell(); // false behind the last one
    QModelIndex nextCellToFill(const QModelIndex& from) const;
    int firstFillColumn(int row) const;
    bool isList() const;
    int tickColumn() const; // -1: none
    void applyWidths();
    bool showsRow(int row) const { return row >= 1 && row <= rows(); }

    GridModel* m_model;
    mutable QPointer<QWidget> m_editor;
    int m_sortColumn = -1;
    bool m_sortUpwards = true;
    bool m_filling = false;
    bool m_leavesFromEmptyRow = false;
    std::unique_ptr<GridLetters> m_letters; // of the font as it stands
};
