#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "estimates/EstimateLines.h"
#include "estimates/EstimateRecords.h"

#include <QList>
#include <QString>

#include <functional>

// A row of the insurance grid with its claim: 法別 and payer, and what the claim line holds.
struct ClaimRow {
    QString InsNo, InsNm;
    QString ClaimNo, ClaimCd, ClaimNm;
    clsCsEstAsk ask; // dates and amounts

    bool isUsed() const { return !InsNo.isEmpty() && InsNo != u"0"; }
};

// One order as it stands on the screen: everything that one press of 反映 writes.
struct EstimateDraft {
    clsCustomer customer;
    clsChart chart;
    QString orderCd;               // code of the ordering party as typed
    QList<ClaimRow> claims;        // the rows of the insurance grid, empty ones included
    clsCsEstimate estimate;        // `UpdDate` is that of the last load
    QList<clsCsItem> items;        // numbered from 1
    EstimateLines lines;
    QString partialPayment;        // the advance payment, empty when not filled
    bool uncollected = false;      // the operator's 未回収

    QList<ClaimRow> usedClaims() const;
    // The claim lines as they are stored: numbered from 1, with the advance payment in the first.
    QList<clsCsEstAsk> claimLines() const;
};

enum class SaveResult { Saved, Refused };

// Writes customer, chart, insurances, header, items, lines and claims in one transaction, or nothing. The numbers drawn
// stand in the draft afterwards. Questions are put through `ShowMessage`; a refusal rolls back and leaves the draft as
// it was. Failures rise after the rollback.
SaveResult saveEstimate(Connection& connection, EstimateDraft& draft);

// Reads a stored estimate with all that hangs on it. False when there is no such estimate. Its amounts are those
// stored; a customer or chart that is gone leaves empty members.
bool loadEstimate(const QString& EstId, EstimateDraft& draft);

// Removes an estimate and its rows in one transaction; customer and chart stay.
void deleteEstimate(Connection& connection, const QString& EstId);

// The insurance rows of a customer branch, at most 4, without payers.
QList<ClaimRow> insuranceRowsOf(const QString& CustId, const QString& CustSubId);

inline constexpr int claimRowCount = 4;
