#include "estimates/EstimateChecks.h"

int rowOfLostAmount(const EstimateDraft& draft, const EstimateDraft& loaded, const QString& receiptSet) {
    for (int row = 0; row < draft.claims.size(); ++row) {
        const ClaimRow& claim = draft.claims.at(row);
        const bool received = !claim.ask.PayPrice.isEmpty() && claim.ask.PayPrice != receiptSet;
        const bool amount = !claim.ask.AskPrice.isEmpty() || received;
        if (amount && !claim.isUsed() && !loaded.claims.value(row).isUsed()) return row;
    }
    return -1;
}
