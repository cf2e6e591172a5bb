#pragma once

#include "estimates/EstimateDraft.h"

// The first row, from 0, with an amount that a save would lose, as no 法別 stands beside it; -1: none. A row whose 法別
// the operator took away since `loaded` goes with its amounts, and so does the amount that a receipt had set.
int rowOfLostAmount(const EstimateDraft& draft, const EstimateDraft& loaded, const QString& receiptSet);

QString lostAmountWords(int row);

// The row of the first claim, from 0; without a claim the first row.
int firstClaimRow(const QList<ClaimRow>& rows);

// What an order that is under way lacks without its save asking about it, in words; empty where nothing is to be told.
// A new order is not reproached with being empty.
struct EstimateRemarks {
    QString name;                 // nobody's
    QString total;                // an order over nothing
    QString makeLines, partLines; // lines of 0 yen
    QString claims;               // what is claimed is not the total

    QStringList all() const;
};
EstimateRemarks remarksOf(const EstimateDraft& draft);
