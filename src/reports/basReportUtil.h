#pragma once

#include "reports/ReportLayout.h"

#include <QString>

#include <optional>

class clsProfile;

// The print settings of one report class, from the INI section with its name. What is not set, or whose condition does
// not hold, is empty and leaves the printer's own value in force. Lengths are whole twips.
struct ReportPrintSettings {
    QString repName, device; // kept with the entry, never applied
    int prtId = 0;
    QString printer, port;
    std::optional<int> paperBin, orientation, pageSize, copies; // the printer driver's codes
    std::optional<int> pageHeight, pageWidth;                   // for the user-defined sizes from 256 up
    std::optional<int> topMargin, bottomMargin, leftMargin, rightMargin;
};

// "297mm", "11inch" or twips as they stand; -1 for a text that is no length.
int reportLength(const QString& text);

// The layout on the paper and with the margins that are set; positions are relative to them, so the whole page moves
// along. What leaves no room for the layout's content raises an error that names section and keys.
ReportLayout withPageSettings(ReportLayout layout, const ReportPrintSettings& settings);

ReportPrintSettings readReportPrintSettings(const clsProfile& profile, const QString& reportClass);
