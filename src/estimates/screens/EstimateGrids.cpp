#include "estimates/screens/EstimateGrids.h"

#include "ui/FormPieces.h"
#include "ui/Grid.h"

namespace {

GridColumn rowNumber() {
    GridColumn column;
    column.width = 2;
    column.kind = GridColumn::RowNumber;
    return column;
}

GridColumn text(const QString& title, int width) {
    GridColumn column;
    column.title = title;
    column.width = width;
    column.editable = true;
    return column;
}

GridColumn number(const QString& title, int width) {
    GridColumn column = text(title, width);
    column.kind = GridColumn::Number;
    return column;
}

// The ID of a price row, chosen or typed; what no row has clears the line.
GridColumn quickEntry() {
    GridColumn column = text(u"一括選択"_qs, 10);
    column.freeText = true;
    return column;
}

GridColumn grey(GridColumn column) {
    column.background = Style::computed;
    return column;
}

GridColumn hidden(GridColumn column) {
    column.editable = false;
    column.hidden = true;
    return column;
}

} // namespace

void EstimateGrids::setUpItems(Grid* grid) {
    grid->setColumns({rowNumber(), quickEntry(), text(u"種目"_qs, 20), text(u"採型区分"_qs, 18), text(u"名称"_qs, 34),
                      text(u"型式"_qs, 30), text(u"採型/採寸"_qs, 10), text(u"交付/修理"_qs, 10)});
    grid->setRows(itemRows);
    FormPieces::stretchColumn(grid, Form);
}

void EstimateGrids::setUpMakeElements(Grid* grid) {
    grid->setColumns({rowNumber(), quickEntry(), text(u"製作要素"_qs, 34), text(u"原材料等"_qs, 60),
                      number(u"数量"_qs, 8), hidden(number(u"ﾏｽﾀ価格"_qs, 12)), grey(number(u"価格"_qs, 14))});
    grid->setRows(lineRows);
    FormPieces::stretchColumn(grid, Materials);
}

void EstimateGrids::setUpParts(Grid* grid) {
    grid->setColumns({rowNumber(), quickEntry(), text(u"部品名称"_qs, 34), text(u"部品型式"_qs, 30),
                      text(u"部品ｺｰﾄﾞ"_qs, 18), grey(text(u"ﾒｰｶｰ名"_qs, 20)), number(u"数量"_qs, 8),
                      hidden(number(u"マスタ価格"_qs, 12)), grey(number(u"価格"_qs, 14))});
    grid->setRows(lineRows);
    FormPieces::stretchColumn(grid, PartsForm);
}
