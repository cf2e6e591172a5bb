#pragma once

#include <QObject>

class Grid;

// Copying out of a grid and pasting into it, block by block as in a spreadsheet, by keys and by the menu under the
// right button. What is pasted goes through each cell as if it were typed there; what a cell does not take is told at
// the end.
class GridHands : public QObject {
    Q_OBJECT

public:
    explicit GridHands(Grid* grid);

private:
    void copy();
    void cut();
    void paste();
    QRect selected() const; // rows from 1
    QList<int> columnsFrom(int column) const;

    Grid* m_grid;
};
