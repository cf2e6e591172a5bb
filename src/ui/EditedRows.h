#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class Grid;

// The rows of a table edited in place: new ones in the blank last row, others changed, moved or marked to go, and all
// written in one run. A mark column shows "*" for a row that differs from what is stored and "×" for one that is to go;
// a hidden key column is empty for a new row.
class EditedRows : public QObject {
    Q_OBJECT

public:
    EditedRows(Grid* grid, int markColumn, int keyColumn);

    // Shows stored rows, one value for each column; edits before are gone.
    void load(const QList<QStringList>& rows);
    // The rows but the blank one at the end.
    int count() const { return static_cast<int>(m_marks.size()); }
    bool hasEdits() const;
    bool isNew(int row) const;
    bool isRemoved(int row) const { return m_marks.at(row - 1).removed; }
    bool isMoved(int row) const { return m_marks.at(row - 1).moved; }

    // --- what a screen says of its own ---
    // A new row begins, before its first value is taken over.
    std::function<void(int row)> startRow;
    // An edit of a row that is to go was refused.
    std::function<void()> editRefused;
    // Whether two neighbours may change places; any may when nothing is set.
    std::function<bool(int row, int other)> mayMove;

    // --- what the commands do with the current row ---
    // A new row goes at once, a stored one when the rows are written; until then it takes no edits. Once more takes the
    // mark back.
    void removeCurrent();
    // False when there is no place to move to.
    bool moveCurrent(int by);
    bool moveCurrentToEnd();
    // A row that stands elsewhere now though it was not moved itself.
    void noteMoved(int row);

    // What is done with a row when the rows are written. Rows count from 1.
    struct Writers {
        std::function<bool(int row)> check;  // false for values that cannot be stored, which was told
        std::function<void(int row)> save;   // a new or edited row; a new one is given its key
        std::function<bool(int row)> remove; // false when it has to stay, which was told
        std::function<void(int row)> place;  // one that was moved alone
    };
    // Goes through the rows from the top; what was written has no mark any more, also when the run ends early. False
    // when a row is refused, which then is the current one.
    bool write(const Writers& writers);

signals:
    void changed();
    // Rows changed places, once for each command.
    void moved();

private:
    struct Marks {
        bool edited = false;
        bool moved = false;
        bool removed = false;

        bool any() const { return edited || moved || removed; }
        QString text() const;
    };

    bool mayEdit(int row) const;
    bool swapCurrent(int by);
    bool endMove(bool done);
    bool writeRow(int row, const Writers& writers);
    void drop(int row);
    void takeEdit(int row);
    void addBlank();
    void mark(int row);

    Grid* m_grid;
    int m_markColumn;
    int m_keyColumn;
    QList<Marks> m_marks; // of all rows but the blank one at the end
};
