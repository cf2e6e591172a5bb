#pragma once

#include "db/SqlText.h"
#include "ui/SelectFrom.h"

// The customers under a condition over 顧客情報 (empty: all of them) as a table to choose from, in the order of their
// reading, with the fields 顧客ID, 顧客枝番, 顧客番号, 顧客名, 住所, 電話 and 生年月日.
LongTable customerTable(const SqlTerm& where);

// 顧客選択: lets the operator choose one of them, like `SelectFrom`. That there is none is told.
std::optional<SelectedRow> selectCustomer(QWidget* parent, const SqlTerm& where, const EstDetail& estDetail = {});
