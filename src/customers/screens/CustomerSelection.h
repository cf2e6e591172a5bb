#pragma once

#include "ui/SelectFrom.h"

// 顧客選択: lets the operator choose one of the customers under a condition over 顧客情報 (empty: all of them). Gives
// the fields 顧客ID, 顧客枝番, 顧客番号, 顧客名, 住所, 電話 and 生年月日, like `SelectFrom`.
std::optional<SelectedRow> selectCustomer(QWidget* parent, const QString& where, const EstDetail& estDetail = {});
