#pragma once

#include "base/Money.h"
#include "reports/DocumentChoice.h"

#include <array>
#include <optional>

// What the operator asked for in the print grid, and whether it can be printed.

// One row of the grid: a claim and its tick boxes in the order of the document kinds.
struct PrintGridRow {
    int askNo = 0;
    std::array<bool, 5> ticked{};
    bool isClaim = false; // a 法別 was chosen
    Money askPrice;
    Money payPrice;
};

struct DocumentRequest {
    enum class Outcome {
        Print,        // the kinds with their claims
        WithoutClaim, // no claim was entered: the kinds for one claim of number 1 that is never saved
        Refused       // `message` says why; `row` and `field` are where to go
    };
    enum class Field { None, AskPrice, PayPrice };
    Outcome outcome = Outcome::Print;
    std::array<QList<int>, 5> claims; // 請求No for each kind, in the order of the kinds
    Money askPrice, payPrice;         // of the claim that was not entered; 0: the grand total
    QString message;
    Field field = Field::None;
    int row = -1; // from 0

    const QList<int>& claimsOf(DocumentKind kind) const { return claims.at(static_cast<size_t>(kind) - 1); }
};

// Without a tick an estimate with a claim in its first row is refused, any other one printed as a whole: all five kinds
// for one claim over the total.
DocumentRequest requestDocuments(const QList<PrintGridRow>& rows);
