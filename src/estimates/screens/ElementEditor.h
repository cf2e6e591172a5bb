#pragma once

#include "base/Money.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "estimates/EstimateLines.h"
#include "estimates/GridRules.h"
#include "estimates/screens/EstimateItemChoice.h"
#include "estimates/screens/GridRowCommands.h"
#include "ui/ChoiceBox.h"
#include "ui/Grid.h"

#include "ui_EstimateItemChoice.h"

#include <functional>

// The entries of a grid cell for the choices of a rule.
GridEntries gridEntries(const CellChoices& choices);

// The items as an element page needs them: the rows of the item grid with the shown texts of their six cells.
struct ShownItem {
    Cells cells;
    QStringList texts;
};

// How one kind of line stands in its grid.
template <class Line> struct ElementRules {
    bool (*mayEdit)(const Cells&, int, const LineContext&);
    CellChoices (*choices)(const Cells&, int, const LineContext&);
    void (*edited)(Cells&, int, const QString&, const LineContext&);
    int cellCount;
    QList<std::pair<int, QString Line::*>> columns; // from the first text to the price

    int priceColumn() const { return columns.last().first; }

    Cells cellsOf(const Line& line) const {
        Cells cells(cellCount);
        for (const auto& [column, member] : columns) cells[column] = line.*member;
        return cells;
    }

    // The line of a row; a row without its first text or without a price is none.
    std::optional<Line> lineOf(const Cells& cells) const {
        if (cells.at(columns.first().first).isEmpty() || cells.at(priceColumn()).isEmpty()) return std::nullopt;
        Line line;
        for (const auto& [column, member] : columns) line.*member = cells.at(column);
        return line;
    }
};

const ElementRules<clsCsMakeElmt>& makeRules();
const ElementRules<clsCsCmpltElmt>& partsRules();

// Shows the lines of one item at a time in a grid and keeps the collection of all lines in step with it.
template <class Line> class ElementEditor : public QObject {
public:
    ElementEditor(Grid* grid, EstimateItemChoice* choice, EstimateRowCommands* buttons, QLabel* sum,
                  const ElementRules<Line>& rules, ElementLines<Line>& lines)
        : QObject(grid), m_grid(grid), m_choice(choice->ui.get()), m_sum(sum), m_rules(rules), m_lines(lines) {
        m_grid->editStarting = [this](int row, int column) { return offerChoices(row, column); };
        connect(m_grid, &Grid::cellEdited, this, [this](int row, int column, const QString& before) {
            guarded([&] { takeEdit(row, column, before); });
        });
        auto* commands = new GridRowCommands(m_grid, buttons);
        connect(commands, &GridRowCommands::changed, this, [this] { guarded([this] { gridChanged(); }); });
        connect(m_choice->cboSelectItem, &ChoiceBox::valueChanged, this, [this] {
            if (!m_filling) guarded([this] { showItem(m_choice->cboSelectItem->text().toInt()); });
        });
    }

    // After an edit or a command of the operator.
    std::function<void()> changed;

    // Takes the items that can have lines; the item in view stays when it is still there, else the first is shown.
    void enter(const QList<ShownItem>& items, const QString& ageKbn) {
        m_items = items;
        m_ageKbn = ageKbn;
        const int present = m_itemNo;
        m_filling = true;
        m_choice->cboSelectItem->clearEntries();
        int first = 0;
        for (int number = 1; number <= m_items.size(); ++number) {
            if (!ItemGrid::isUsable(m_items.at(number - 1).cells)) continue;
            m_choice->cboSelectItem->addEntry(QString::number(number), QString::number(number));
            if (first == 0 || number == present) first = number;
        }
        m_choice->cboSelectItem->setText(first == 0 ? QString() : QString::number(first));
        m_filling = false;
        showItem(first);
    }

    // Empties grid and labels; the collection is the caller's.
    void clear() {
        m_items.clear();
        m_filling = true;
        m_choice->cboSelectItem->clearEntries();
        m_filling = false;
        showItem(0);
    }

    // Shows the item in view anew, after its lines changed behind the grid.
    void refresh(const QString& ageKbn) {
        m_ageKbn = ageKbn;
        showItem(m_itemNo);
    }

private:
    LineContext context() const {
        return m_itemNo == 0 ? LineContext() : ItemGrid::context(m_items.at(m_itemNo - 1).cells, m_ageKbn);
    }

    void showItem(int itemNo) {
        m_itemNo = itemNo;
        if (!m_grid->endEdit()) m_grid->giveUpEdit();
        m_grid->setRows(m_grid->rows());
        showLabels();
        int row = 0;
        for (const Line& line : m_lines.of(itemNo)) {
            if (++row > m_grid->rows()) break;
            m_grid->setRowValues(row, m_rules.cellsOf(line));
        }
        showSum();
    }

    void showLabels() {
        const ShownItem item = m_itemNo == 0 ? ShownItem() : m_items.at(m_itemNo - 1);
        m_choice->lblItemIdx->setText(m_itemNo == 0 ? QString() : QString::number(m_itemNo));
        m_choice->lblItem->setText(m_itemNo == 0 ? QString() : item.cells.at(ItemGrid::Item));
        m_choice->lblPickKbn->setText(m_itemNo == 0 ? QString() : item.cells.at(ItemGrid::PickKbn));
        m_choice->lblItemName->setText(item.texts.join(u" / "_qs));
    }

    void showSum() {
        Money sum;
        for (int row = 1; row <= m_grid->rows(); ++row)
            sum += Money::leadingNumber(m_grid->value(row, m_rules.priceColumn()));
        m_sum->setText(formatThousands(sum.toYen()));
    }

    bool offerChoices(int row, int column) {
        const Cells cells = m_grid->rowValues(row);
        if (!m_rules.mayEdit(cells, column, context())) return false;
        m_grid->setEntries(column, gridEntries(m_rules.choices(cells, column, context())));
        return true;
    }

    void takeEdit(int row, int column, const QString& before) {
        Cells cells = m_grid->rowValues(row);
        m_rules.edited(cells, column, before, context());
        m_grid->setRowValues(row, cells);
        gridChanged();
    }

    void gridChanged() {
        writeBack();
        showSum();
        if (changed) changed();
    }

    void writeBack() {
        if (m_itemNo == 0) return;
        QList<Line> lines;
        for (int row = 1; row <= m_grid->rows(); ++row)
            if (const auto line = m_rules.lineOf(m_grid->rowValues(row))) lines << *line;
        m_lines.replace(m_itemNo, lines);
    }

    Grid* m_grid;
    Ui::EstimateItemChoice* m_choice;
    QLabel* m_sum;
    const ElementRules<Line>& m_rules;
    ElementLines<Line>& m_lines;
    QList<ShownItem> m_items;
    QString m_ageKbn;
    int m_itemNo = 0; // 0: no item in view
    bool m_filling = false;
};
