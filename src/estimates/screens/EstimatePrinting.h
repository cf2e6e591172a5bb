#pragma once

#include "estimates/EstimateDraft.h"
#include "reports/DocumentRequest.h"

// The papers of an estimate as it stands on the screen, stored or not.
namespace EstimatePrinting {

enum class To { Preview, Printer };

struct Job {
    EstimateDraft draft;
    DocumentRequest request;   // not a refused one
    bool receivedMark = false; // 受領印
    bool wholeSum = false;     // receipts are made over the grand total
    To to = To::Preview;
};

// The rows of the print grid with their claims, as `requestDocuments` asks for them.
struct TickedRow {
    std::array<bool, 5> ticked{};
};
QList<PrintGridRow> gridRows(const EstimateDraft& draft, const QList<TickedRow>& ticks);

// True for an estimate without a line, which has nothing to print; the operator is told.
bool refusesEmpty(const EstimateDraft& draft);

// Makes the documents one after the other, each kind once for all its claims; within a kind the forms of the accident
// insurance come first. A paper that has no room for an amount is told and left out, the others go on. Failures rise.
// Gives in words how many papers went to which printer; empty after a preview.
QString run(const Job& job);

// The doctor's opinion with the certificate of fitting, one page.
void runOpinion(const EstimateDraft& draft, To to);

} // namespace EstimatePrinting
