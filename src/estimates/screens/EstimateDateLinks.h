#pragma once

#include "estimates/screens/CsEstimateBasicPage.h"

#include <functional>

class CsEstimatePrintPage;
class CsEstimateSchedulePage;

// The dates of an estimate that hang on each other across the pages of its editor.
namespace EstimateDateLinks {

// `isRefilling` tells that the program writes the fields, from which nothing follows.
void connect(const CsEstimateBasicPage::QuickDates& quick, CsEstimateSchedulePage& schedule, CsEstimatePrintPage& print,
             const std::function<bool()>& isRefilling);

} // namespace EstimateDateLinks
