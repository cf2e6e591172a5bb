#pragma once

#include "estimates/EstimateDraft.h"
#include "reports/DocumentOrder.h"

// The ordinary documents of an order as it stands on the screen, stored or not.
namespace EstimatePrinting {

enum class To { Preview, Printer };

struct Job {
    EstimateDraft draft;
    DocumentOrder order;       // not a refused one
    bool receivedMark = false; // 受領印
    bool wholeSum = false;     // receipts are made over the grand total
    To to = To::Preview;
};

// The rows of the print grid with their claims, as `orderDocuments` asks for them.
struct TickedRow {
    std::array<bool, 5> ticked{};
};
QList<PrintGridRow> gridRows(const EstimateDraft& draft, const QList<TickedRow>& ticks);

// True for an order without a line, which has nothing to print; the operator is told.
bool refusesEmpty(const EstimateDraft& draft);

// Makes the documents one after the other, each kind once for all its claims. Failures rise.
void run(const Job& job);

} // namespace EstimatePrinting
