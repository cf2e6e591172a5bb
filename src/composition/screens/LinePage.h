#pragma once

#include "composition/PriceRemark.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class LinePage;
}

class Grid;

// The lines of one item at a time. `index` is the place of the controls in their arrays and tells the kind of lines: 2
// base and make elements, 3 complete parts.
class LinePage : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex)

public:
    explicit LinePage(QWidget* parent = nullptr);
    ~LinePage() override;

    int index() const { return m_index; }
    // To be set once: it names the controls.
    void setIndex(int index);

    // Shows unit price and amount of each of these tiers. Without it there is one amount, that of the customer's tier.
    void showColumns(const QStringList& tiers);

    // Writes what is edited into this composition from now on; nothing is in view before `enter`.
    void setComposition(Composition& composition);
    // Offers the items that can have lines; the item in view stays when it is still there, else the first is shown.
    // `tiers` are those that lines are priced for.
    void enter(const QStringList& tiers);
    // Shows the item in view anew, after its lines changed behind the grid.
    void refresh(const QStringList& tiers);
    void clear();

    // The grid of the lines.
    Grid* grid() const;

    // Completes an item ahead of being shown.
    std::function<void(ComposedItem&)> showing;
    // Whether the prices of the lines are those of the price list in force, which tells of an amount that was typed
    // over; without it their own unit prices do.
    std::function<bool()> pricedByList;

signals:
    // After an edit or a command of the operator.
    void changed();

private:
    ComposedItem* item() const;
    LineContext context() const;
    void showItem(int row);
    void showLabels();
    void showSum();
    void showRemarks();
    QString remarkOn(const Cells& line, qsizetype tier);
    bool offerChoices(int row, int column);
    void takeEdit(int row, int column, const QString& before);
    void takeRows();

    const std::unique_ptr<Ui::LinePage> ui;
    int m_index = -1;
    const LineRules* m_rules = nullptr;
    Composition* m_composition = nullptr;
    QStringList m_tiers;
    int m_itemId = 0; // 0: no item in view
    bool m_filling = false;
    ListPrices m_listPrices;
    QHash<std::pair<int, int>, QString> m_remarks; // by row and column
};
