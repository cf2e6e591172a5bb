#include "ui/EditedList.h"

#include "base/basMessage.h"
#include "ui/Grid.h"

EditedList::EditedList(Grid* grid, QLabel* count, ConnectionSettings settings, KeyedList::Fetch fetch)
    : QObject(grid), m_grid(grid),
      m_list(new KeyedList(grid, count, std::move(settings), [this, fetch = std::move(fetch)](const QStringList& keys) {
          return withEdits(fetch(keys));
      })) {
    // A row that has gone has no key, and takes nothing.
    m_grid->editStarting = [this](int row, int) { return !m_grid->value(row, 0).isEmpty(); };
    connect(m_grid, &Grid::cellEdited, this,
            [this](int row, int column, const QString& before) { guarded([&] { takeEdit(row, column, before); }); });
}

QHash<QString, QStringList> EditedList::withEdits(QHash<QString, QStringList> rows) const {
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const auto edit = m_edits.constFind(row.key());
        if (edit == m_edits.constEnd()) continue;
        for (int i = 0; i < row->size(); ++i)
            if (edit->edited.at(i) != edit->found.at(i)) (*row)[i] = edit->edited.at(i);
    }
    return rows;
}

void EditedList::takeEdit(int row, int column, const QString& before) {
    QStringList found = m_grid->rowValues(row);
    found[column] = before;
    if (follow) m_grid->followEdit(row, column, before, [&](QStringList& values) { follow(column, values); });
    const QString key = found.first();
    Row& edit = m_edits[key];
    if (edit.found.isEmpty()) edit.found = found;
    edit.edited = m_grid->rowValues(row);
    if (edit.edited == edit.found) m_edits.remove(key);
    emit changed();
}

void EditedList::edit(int row, int column, const QString& value) {
    const QString before = m_grid->value(row, column);
    if (before == value || !m_grid->editStarting(row, column)) return;
    m_grid->setValue(row, column, value);
    takeEdit(row, column, before);
}

void EditedList::settle(const QStringList& keys) {
    for (const QString& key : keys) m_edits.remove(key);
    m_list->refetch();
    emit changed();
}
