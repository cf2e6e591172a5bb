#pragma once

#include "reports/ReportRecordset.h"

// The empty record set of `GetCsEstimateListData`: the contract between it and the layout of the estimate data list.
ReportRecordset csEstListRecordset();
