#pragma once

#include "composition/ItemRules.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ItemPage;
}

class Grid;
class QPushButton;

// The items of what is composed, with picture and help text of the current one.
class ItemPage : public QWidget {
    Q_OBJECT

public:
    explicit ItemPage(QWidget* parent = nullptr);
    ~ItemPage() override;

    // Shows the items, and writes into them from then on. An edit that fails leaves the row as it was.
    void show(Composition& composition);
    // The grid of the items.
    Grid* grid() const;
    // A command beside those over the rows.
    void addCommand(QPushButton* command);

    ItemRules::Habits habits = ItemRules::orderHabits;

signals:
    void changed();
    // The items stand in another order.
    void rowsMoved();

private:
    bool offerChoices(int row, int column);
    void takeEdit(int row, int column, const QString& before);
    void takeRows();
    void showHelp(int row);

    const std::unique_ptr<Ui::ItemPage> ui;
    Composition* m_composition = nullptr;
};
