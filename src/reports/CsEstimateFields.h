#pragma once

#include "reports/ReportRecordset.h"

// The empty record set of `GetCsEstimateData`: the contract between it and the layouts of the five documents.
ReportRecordset csEstimateRecordset();

// That of `GetCsEstWorkData`, `GetCsEstWorkEquip`, `GetCsEstWorkWheelchair` and `GetCsEstimateWorkOther`: the same
// without what only the public forms of one line need, with 形式, 種別 and 備考.
ReportRecordset csEstWorkRecordset();

// The one row of `GetCsEstReceiptData`.
ReportRecordset csEstReceiptRecordset();
