#pragma once

#include "db/KeyReader.h"

#include <QCache>
#include <QHash>

#include <functional>

class Grid;
class QLabel;

// Fills a grid from the database however long the list is: the keys are read in the background, and the rows of the
// part that is looked at are fetched by their keys. The count shows as "12,345件", with "…" while more are coming.
class KeyedList : public QObject {
    Q_OBJECT

public:
    // Gives the cells of rows by their keys; a row that has gone is left out.
    using Fetch = std::function<QHash<QString, QStringList>(const QStringList& keys)>;

    KeyedList(Grid* grid, QLabel* count, ConnectionSettings settings, Fetch fetch);

    // Shows the rows of a statement whose first column is the key. Those before go as soon as nothing comes at once:
    // who acts on a row means one of the new list. A failure to read is told and brings them back, with their sort
    // mark.
    void show(const QString& statement);
    // Waits for the first rows as long as a key may take to act. False when there is none to act on.
    bool awaitRows();
    // Reads the rows of the keys anew; what was written into cells is gone.
    void refetch();
    // Rewrites a row from the database; it goes when it is not there any more.
    void refresh(int row, const QString& key);
    // Tells that a row is not there any more, and takes it off; `what` is the word for what it showed.
    void tellGone(int row, const QString& what);
    // Puts a row that was stored just now at the end, and makes it the current one.
    void append(const QString& key);
    // No row is there, and none is on its way.
    bool isEmpty() const;

signals:
    // The first rows of a new list stand in the grid, or it is known that there are none.
    void shown();

private:
    // Where the operator was in the list that was shown last, and what it was sorted by.
    struct Place {
        int row = 0;
        int sortColumn = -1;
        bool sortsUpwards = true;
    };

    void awaitUnseen();
    void showRead();
    void remove(int row);
    void hideOld();
    void showOld();
    void takeFirst();
    void takeMore();
    void tellFailure(const AppError& error);
    void showCount();
    QStringList cells(int place);
    QList<QStringList> fetchBlock(int block);

    Grid* m_grid;
    QLabel* m_count;
    KeyReader m_reader;
    Fetch m_fetch;
    QCache<int, QList<QStringList>> m_blocks; // the cells of the rows looked at last
    Place m_old;
    bool m_awaits = false; // the first rows are not here yet
};
