#pragma once

#include "reports/ReportRecordset.h"

// The empty record set of `GetCsEstimateData`: the contract between it and the layouts of the five documents.
ReportRecordset csEstimateRecordset();
