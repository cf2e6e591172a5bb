#pragma once

#include "ui/GridColumn.h"
#include "ui/Screen.h"
#include "ui/SelectRows.h"

#include <functional>
#include <optional>

class KeyedList;
namespace Ui {
class frmSelectList;
}

// A modal choice of one row. Set `Recordset`, `TblName` and `HideCols` before the load; afterwards either `Cancel` is
// set, or `Selected` holds the fields of the chosen row (or `EstId` an estimate chosen in the detail list).
class frmSelectList : public Screen {
    Q_OBJECT

public:
    explicit frmSelectList(QWidget* parent = nullptr);
    ~frmSelectList() override;

    SelectRows Recordset;
    std::optional<LongTable> Long; // instead of `Recordset`
    QString TblName;               // the title; empty: "マスタ選択"
    QStringList HideCols;          // column words that are not shown
    // Opens the estimates of a person above this list and gives the chosen one, or empty. Without it the command is
    // not shown.
    std::function<QString(QWidget* parent)> EstDetail;

    bool Cancel = true;
    SelectedRow Selected;
    QString EstId;

    // Wide enough to show every column.
    QSize sizeHint() const override;

protected:
    void load() override;

private:
    QList<GridColumn> columns() const;
    void showRows();
    void showRowsWith(const QString& sought);
    void allowChoice(bool hasRows);
    void choose();
    void openDetail();

    std::unique_ptr<Ui::frmSelectList> ui;
    KeyedList* m_long = nullptr; // fills the grid from a long table
    QList<int> m_shownRows;      // places in Recordset, in the order of the grid
};
