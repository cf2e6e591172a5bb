#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "db/DraftSave.h"
#include "estimates/EstimateAmounts.h"
#include "estimates/EstimateComposition.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

// A row of the insurance grid with its claim: 法別 and payer, and what the claim line holds.
struct ClaimRow {
    QString InsNo, InsNm;
    QString ClaimNo, ClaimCd, ClaimNm;
    clsCsEstAsk ask; // dates and amounts

    bool isUsed() const { return !InsNo.isEmpty() && InsNo != u"0"; }
};

// One estimate as it stands on the screen: everything that one press of 反映 writes.
struct EstimateDraft {
    clsCustomer customer;
    clsChart chart;
    QString orderCd;        // code of the ordering party as typed
    QList<ClaimRow> claims; // the rows of the insurance grid, empty ones included
    clsCsEstimate estimate;
    Composition composition;
    QString partialPayment;   // the advance payment, empty when not filled
    bool uncollected = false; // the operator's 未回収
    QString storedRows;       // the estimate's own rows as they stood when it was loaded or saved; empty for a new one
    SaveDoubt<EstimateDraft> doubt;

    QList<ClaimRow> usedClaims() const;
    // The claim lines as they are stored: numbered from 1, with the advance payment in the first.
    QList<clsCsEstAsk> claimLines() const;
    EstimateAmounts amounts() const;
    // Brings the stored amounts in line with the composition and the percentages.
    void takeAmounts();

    // --- what the commands of the editor make of it ---
    // A new estimate for the same contents: without numbers, of the price year in force.
    void becomeNew();
    // Nobody's: no person, no case, no payer.
    void clearPerson();
    // How much of the estimate part goes: all, all but the people in charge and the discounts, or the dates and claims
    // alone. The tax stays.
    enum class Clearing { Everything, ContentsAndDates, Dates };
    void clearEstimate(Clearing level);
    void takeCurrentTax();

    // Is from now on the estimate that a save made (see DraftSave), with the contents as they are. Another person or
    // case that was chosen since stays.
    void takeIdentity(const EstimateDraft& before, const EstimateDraft& after);
};

// An estimate to be filled in: whole prices, the tax of the settings.
EstimateDraft newEstimate();

enum class SaveResult { Saved, Refused };

// Writes customer, chart, insurances, header, items, lines and claims in one transaction, or nothing. Afterwards the
// draft is what `loadEstimate` gives. Questions are put through `ShowMessage`: also when another machine has changed
// the estimate since it was loaded. A refusal rolls back and leaves the draft as it was; `confirm` asks about a
// customer who is stored otherwise. Failures rise after the rollback.
SaveResult saveEstimate(Connection& connection, EstimateDraft& draft, const ConfirmUpdate& confirm);

// Reads a stored estimate with all that hangs on it. False when there is no such estimate. Its amounts are those
// stored; a customer or chart that is gone leaves empty members.
bool loadEstimate(const QString& EstId, EstimateDraft& draft);

// Removes an estimate and its rows in one transaction; customer and chart stay. `UpdDate` is that of the load: when
// another machine has stored the estimate since, an error rises and nothing is removed.
void deleteEstimate(Connection& connection, const QString& EstId, const std::optional<QString>& UpdDate = {});

// The insurance rows of a customer branch, at most 4, without payers.
QList<ClaimRow> claimRowsOf(const QString& CustId, const QString& CustSubId);

inline constexpr int claimRowCount = 4;
