#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class Grid;

// The rows of a table edited in place: new ones in the blank last row, others changed, moved or marked to go, and all
// written in one run. A mark column shows "*" for a row that differs from what is stored; a hidden key column is empty
// for a new row.
class EditedRows : public QObject {
    Q_OBJECT

public:
    EditedRows(Grid* grid, int markColumn, int keyColumn);

    // Shows stored rows, one value for each column; edits before are gone.
    void load(const QList<QStringList>& rows);
    bool hasEdits() const;

    // --- what the commands do with the current row ---
    // A new row goes at once, a stored one when the rows are written; until then it takes no edits.
    void removeCurrent();
    void moveCurrent(int by);
    void moveCurrentToEnd();

    // What is done with a row when the rows are written. Rows count from 1.
    struct Writers {
        std::function<bool(int row)> check; // false for values that cannot be stored, which was told
        std::function<void(int row)> save;  // a new or edited row
        std::function<void(int row)> remove;
        std::function<void(int row)> place; // one that was moved alone
    };
    // Goes through the rows from the top. False when a row is refused, which then is the current one.
    bool write(const Writers& writers);

signals:
    void changed();

private:
    struct Marks {
        bool edited = false;
        bool moved = false;
        bool removed = false;

        bool any() const { return edited || moved || removed; }
    };

    bool mayEdit(int row) const { return !m_marks.at(row - 1).removed; }
    bool isNew(int row) const;
    void takeEdit(int row);
    void addBlank();
    void mark(int row);

    Grid* m_grid;
    int m_markColumn;
    int m_keyColumn;
    QList<Marks> m_marks; // of all rows but the blank one at the end
};
