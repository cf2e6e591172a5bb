#pragma once

#include "reports/CsEstimateValues.h"

// The price sheets of the workers' accident insurance: sections whose letters and order are fixed for each 種目, all of
// which stand on the sheet, also those in which nothing was made.

enum class WorkSheet { Limb, Equip, Wheelchair };

// The section of a make element by words in its name, from 1; 7: none. The sections print from the highest down.
int workSection(WorkSheet sheet, const QString& element);

// The rows of `GetCsEstWorkData`, `GetCsEstWorkEquip` and `GetCsEstWorkWheelchair`, which differ in their sections.
ReportRecordset workSheetRows(WorkSheet sheet, const CsEstimateSource& source);

// 形式 and 種別 of the item that a sheet is headed by: that of the first basic price, else the first item.
CsEstimateValues::Values sheetHead(const CsEstimateSource& source);
