#pragma once

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class RowCommands;
}

class Grid;

// 行挿入, 行複写, 行削除, 全行削除, up and down over the rows of one grid, whose number of rows stays the same. `index`
// is the place of the buttons in the control arrays: 1 items, 2 make elements, 3 parts.
class RowCommands : public QWidget {
    Q_OBJECT

public:
    explicit RowCommands(QWidget* parent = nullptr);
    ~RowCommands() override;

    // To be called once: it names the controls.
    void setUp(Grid* grid, int index);

signals:
    // The rows stand in another order: for each row, from 1, the number that it had before, 0 for a new one.
    void rowsMoved(const QList<int>& formerRows);
    // After every command that changed something.
    void changed();

private:
    void insertRow();
    void copyRow();
    void removeRow();
    void removeAllRows();
    void moveRow(int by);
    // Puts the rows into this order; 0 stands for an empty row.
    void rearrange(const QList<int>& formerRows, int current);
    QList<int> presentRows() const;
    int lastEmptyRow() const;

    const std::unique_ptr<Ui::RowCommands> ui;
    Grid* m_grid = nullptr;
};
