#include "ui/GridModel.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <QBrush>

#include <algorithm>
#include <numeric>
#include <utility>

GridEntry GridEntry::parse(const QString& text) {
    const qsizetype separator = text.indexOf(u';');
    if (!text.startsWith(u'#') || separator < 0) return {text, text, {}};
    return {text.mid(1, separator - 1), text.mid(separator + 1), {}};
}

void GridModel::setColumns(const QList<GridColumn>& columns) {
    beginResetModel();
    m_columns = columns;
    m_rows.clear();
    m_own.clear();
    m_sourceRows = 0;
    endResetModel();
}

void GridModel::setEntries(int column, const GridEntries& entries) {
    m_columns[column].entries = entries;
    if (!m_rows.empty()) emit dataChanged(index(0, column), index(rowCount() - 1, column));
}

void GridModel::setTitleMark(int column, const QString& mark) {
    m_markedColumn = column;
    m_mark = mark;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int GridModel::newOwnRow() {
    const int number = -1 - static_cast<int>(m_own.size());
    m_own.insert(number, {});
    return number;
}

void GridModel::setRowCount(int rows) {
    setSource(0, nullptr);
    if (rows == 0) return;
    beginInsertRows({}, 0, rows - 1);
    for (int row = 0; row < rows; ++row) m_rows.push_back(newOwnRow());
    endInsertRows();
}

void GridModel::setSource(int rows, RowSource source) {
    beginResetModel();
    m_source = std::move(source);
    m_own.clear();
    m_rows.resize(rows);
    std::iota(m_rows.begin(), m_rows.end(), 0);
    m_sourceRows = rows;
    endResetModel();
}

void GridModel::growSource(int rows) {
    if (rows <= m_sourceRows) return;
    const int first = rowCount();
    beginInsertRows({}, first, first + rows - m_sourceRows - 1);
    while (m_sourceRows < rows) m_rows.push_back(m_sourceRows++);
    endInsertRows();
}

void GridModel::insertEmptyRow(int row) {
    beginInsertRows({}, row, row);
    m_rows.insert(m_rows.begin() + row, newOwnRow());
    endInsertRows();
}

// The cells of an own row stay under its number, so that no other row is given it.
void GridModel::removeOneRow(int row) {
    beginRemoveRows({}, row, row);
    if (const auto own = m_own.find(m_rows[row]); own != m_own.end()) own->clear();
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void GridModel::swapTwoRows(int first, int second) {
    std::swap(m_rows[first], m_rows[second]);
    for (const int row : {first, second}) emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

QStringList GridModel::cells(int row) const {
    const int place = m_rows[row];
    return place < 0 ? m_own.value(place) : m_source(place);
}

QStringList& GridModel::ownCells(int row) {
    if (m_rows[row] >= 0) {
        const QStringList values = cells(row);
        m_rows[row] = newOwnRow();
        m_own[m_rows[row]] = values;
    }
    QStringList& values = m_own[m_rows[row]];
    values.resize(m_columns.size());
    return values;
}

QString GridModel::value(int row, int column) const { return cells(row).value(column); }

void GridModel::setValue(int row, int column, const QString& value) {
    if (this->value(row, column) == value) return;
    ownCells(row)[column] = value;
    emit dataChanged(index(row, column), index(row, column));
}

QString GridModel::shown(int row, int column) const {
    const GridColumn& form = m_columns.at(column);
    if (form.kind == GridColumn::RowNumber) return QString::number(row + 1);
    const QString held = value(row, column);
    if (form.kind == GridColumn::Number && isPlainNumber(held))
        return form.wholeYen ? formatThousands(held) : groupThousands(held);
    if (form.kind == GridColumn::Number) return held;
    const auto found = std::find_if(form.entries.begin(), form.entries.end(),
                                    [&held](const GridEntry& entry) { return entry.value == held; });
    return found == form.entries.end() ? held : found->shown;
}

std::optional<QString> GridModel::valueOfText(int column, const QString& text) const {
    const GridColumn& form = m_columns.at(column);
    const QString narrow = Text::toNarrowLetters(text);
    if (form.numbersOnly && isPlainNumber(narrow)) return narrow.trimmed();
    if (text.isEmpty() || (form.entries.isEmpty() && !form.numbersOnly)) return form.narrow ? narrow : text;
    for (const GridEntry& entry : form.entries)
        if (text == entry.listText() || text == entry.shown || text == entry.value) return entry.value;
    if (form.freeText) return form.narrow ? narrow : text;
    const QString sought = Text::toHalfWidth(text);
    const auto matches = [&sought](const GridEntry& entry) {
        return Text::toHalfWidth(entry.listText()).contains(sought, Qt::CaseInsensitive);
    };
    const auto first = std::find_if(form.entries.begin(), form.entries.end(), matches);
    if (first == form.entries.end() || std::any_of(first + 1, form.entries.end(), matches)) return std::nullopt;
    return first->value;
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::background(const GridColumn& column) const {
    if (column.kind == GridColumn::RowNumber) return QBrush(Style::heading);
    return column.background.isValid() ? QVariant(QBrush(column.background)) : QVariant();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const GridColumn& column = m_columns.at(index.column());
    const bool ticks = column.kind == GridColumn::Check;
    switch (role) {
    case Qt::DisplayRole:
        return ticks ? QVariant() : shown(index.row(), index.column());
    case Qt::EditRole:
        return value(index.row(), index.column());
    case Qt::CheckStateRole:
        return ticks ? QVariant(value(index.row(), index.column()) == u"1" ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::TextAlignmentRole:
        if (column.kind == GridColumn::Number) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        if (column.kind == GridColumn::RowNumber) return QVariant(Qt::AlignCenter);
        return QVariant(column.alignment | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        return background(column);
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return m_columns.at(section).title + (section == m_markedColumn ? m_mark : QString());
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    const GridColumn& column = m_columns.at(index.column());
    if (column.kind == GridColumn::RowNumber) return Qt::ItemIsEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (column.editable && column.kind != GridColumn::Check) flags |= Qt::ItemIsEditable;
    return flags;
}
