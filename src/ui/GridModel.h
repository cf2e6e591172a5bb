#pragma once

#include "ui/GridColumn.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>
#include <vector>

// The cells of a grid as text. Rows may come from a source that is asked for a row each time one of its
// cells is looked at; only the rows that were written to are kept. Rows and columns count from 0 here.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // Gives the values of a source row (counted from 0), one for each column.
    using RowSource = std::function<QStringList(int row)>;

    using QAbstractTableModel::QAbstractTableModel;

    void setColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& columns() const { return m_columns; }
    void setEntries(int column, const GridEntries& entries);
    void setTitleMark(int column, const QString& mark);

    void setRowCount(int rows);
    void setSource(int rows, RowSource source);
    // More rows of the same source, up to so many in all.
    void growSource(int rows);
    void insertEmptyRow(int row);
    void removeOneRow(int row);
    void swapTwoRows(int first, int second);

    QString value(int row, int column) const;
    void setValue(int row, int column, const QString& value);
    // The value as the grid shows it: an entry's text, thousands separators, the row number.
    QString shown(int row, int column) const;
    // The value that a typed or chosen text means in a column: an entry by its texts or by its only match. Nothing when
    // the column does not take the text.
    std::optional<QString> valueOfText(int column, const QString& text) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    // The cells of a row, and the same to write to.
    QStringList cells(int row) const;
    QStringList& ownCells(int row);
    QVariant background(const GridColumn& column) const;

    QList<GridColumn> m_columns;
    RowSource m_source;
    int newOwnRow();

    int m_sourceRows = 0;
    std::vector<int> m_rows; // a row's place in the source, or, below 0, its number among the rows that stand here
    QHash<int, QStringList> m_own;
    int m_markedColumn = -1;
    QString m_mark;
};
