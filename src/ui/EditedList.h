#pragma once

#include "ui/KeyedList.h"

#include <QMap>

// A list of any length whose rows are edited in place. The first column is the key. What was edited stays by the key of
// its row, however the list is sorted or scrolled, until it is settled: written, or given up. (`EditedRows` is for
// tables that stand in the grid as a whole, with rows added, moved and deleted.)
class EditedList : public QObject {
    Q_OBJECT

public:
    EditedList(Grid* grid, QLabel* count, ConnectionSettings settings, KeyedList::Fetch fetch);

    KeyedList& list() { return *m_list; }
    // Shows the rows of a statement whose first column is the key; the edits stay.
    void show(const QString& statement) { m_list->show(statement); }

    // What follows in a row from the edit of one of its cells; an error gives the cell its text back and rises.
    std::function<void(int column, QStringList& values)> follow;

    // A row with what it held when its edit began, one value for each column.
    struct Row {
        QStringList found, edited;
        const QString& key() const { return found.first(); }
    };
    // The rows that differ from what was found, in the order of their keys.
    QList<Row> edits() const { return m_edits.values(); }
    bool hasEdits() const { return !m_edits.isEmpty(); }
    // These rows have no edit any more; the list shows what is stored.
    void settle(const QStringList& keys);

    // Sets cells of a row as an edit of the operator does.
    void edit(int row, int column, const QString& value);

signals:
    void changed();

private:
    void takeEdit(int row, int column, const QString& before);
    QHash<QString, QStringList> withEdits(QHash<QString, QStringList> rows) const;

    Grid* m_grid;
    KeyedList* m_list;
    QMap<QString, Row> m_edits;
};
