#pragma once

#include "ui/GridColumn.h"

class Grid;

// The three grids of an estimate: its items, and the lines of one item. The master estimate shows the same.
namespace EstimateGrids {

inline constexpr int itemRows = 5;
inline constexpr int lineRows = 50;

enum ItemColumn { ItemId = 1, Item, PickKbn, Name, Form, PickStyle, GrantRepair };
enum MakeColumn { MakeId = 1, MakeElmt, Materials, MakeSuryo, MakeUnitPrice, MakePrice };
enum PartsColumn { PartsId = 1, PartsNm, PartsForm, PartsCd, MakerNm, PartsSuryo, PartsUnitPrice, PartsPrice };

// Columns and empty rows.
void setUpItems(Grid* grid);
void setUpMakeElements(Grid* grid);
void setUpParts(Grid* grid);

} // namespace EstimateGrids
