#pragma once

#include "reports/ReportClasses.h"

class clsSysSettingManager;

// The papers of the work plan, by date and by ordering party, and of what is not paid.
const ReportPaper& workPlanPaper(bool byOrder);
const ReportPaper& noPaymentPaper();
// The class that prints one, by the settings and the installation.
QString statisticsClass(const ReportPaper& paper, const clsProfile& profile, clsSysSettingManager& settings);
// Whether the installation has the unpaid list with its balances, with which the first claim of a paid order receives
// the grand total.
bool hasBalanceList(const clsProfile& profile);
