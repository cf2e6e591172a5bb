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

// How far a report is moved on its paper, in tenths of a millimetre, so that it meets a form that was printed before.
struct ReportOffset {
    int right = 0, down = 0;
    bool operator==(const ReportOffset&) const = default;
};

inline constexpr int largestOffset = 500; // either way

// The offset of a report on a printer, or else that on any printer (its name is empty), from the report's section. What
// is no pair of numbers within the range counts as none.
ReportOffset readReportOffset(const clsProfile& profile, const QString& reportClass, const QString& printer);
void saveReportOffset(const clsProfile& profile, const QString& reportClass, const QString& printer,
                      ReportOffset offset);

// The scan of the report's paper form, which previews show behind it; empty: none.
QString readReportUnderlay(const clsProfile& profile, const QString& reportClass);
void saveReportUnderlay(const clsProfile& profile, const QString& reportClass, const QString& path);
