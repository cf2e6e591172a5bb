#include "reports/DocumentRequest.h"

#include <algorithm>

namespace {

using Field = DocumentRequest::Field;

bool isTicked(const PrintGridRow& row, DocumentKind kind) { return row.ticked.at(static_cast<size_t>(kind) - 1); }

DocumentRequest refused(const QString& message, Field field = Field::None, int row = -1) {
    DocumentRequest request;
    request.outcome = DocumentRequest::Outcome::Refused;
    request.message = message;
    request.field = field;
    request.row = row;
    return request;
}

// An invoice or receipt over nothing is a slip of the hand.
std::optional<DocumentRequest> missingAmount(const QList<PrintGridRow>& rows) {
    for (int row = 0; row < rows.size(); ++row)
        if (isTicked(rows.at(row), DocumentKind::Invoice) && rows.at(row).askPrice == Money())
            return refused(u"請求金額を入力して下さい。"_qs, Field::AskPrice, row);
    for (int row = 0; row < rows.size(); ++row)
        if (isTicked(rows.at(row), DocumentKind::Receipt) && rows.at(row).payPrice == Money())
            return refused(u"領収金額を入力して下さい。"_qs, Field::PayPrice, row);
    return std::nullopt;
}

bool hasTick(const PrintGridRow& row) {
    return std::any_of(row.ticked.begin(), row.ticked.end(), [](bool ticked) { return ticked; });
}

// A paper for a row without its 法別 belongs to nobody, unless the estimate has no claim at all.
std::optional<DocumentRequest> missingLaw(const QList<PrintGridRow>& rows) {
    for (int row = 0; row < rows.size(); ++row)
        if (hasTick(rows.at(row)) && !rows.at(row).isClaim)
            return refused(u"法別を選択して下さい。"_qs, Field::AskPrice, row);
    return std::nullopt;
}

DocumentRequest tickedKinds(const QList<PrintGridRow>& rows) {
    DocumentRequest request;
    for (const PrintGridRow& row : rows)
        for (size_t kind = 0; kind < request.claims.size(); ++kind)
            if (row.ticked.at(kind)) request.claims.at(kind).append(row.askNo);
    return request;
}

DocumentRequest withoutClaim(const QList<PrintGridRow>& rows) {
    DocumentRequest request;
    request.outcome = DocumentRequest::Outcome::WithoutClaim;
    for (const PrintGridRow& row : rows) {
        for (size_t kind = 0; kind < request.claims.size(); ++kind)
            if (row.ticked.at(kind)) request.claims.at(kind) = {1};
        if (isTicked(row, DocumentKind::Invoice) && request.askPrice == Money()) request.askPrice = row.askPrice;
        if (isTicked(row, DocumentKind::Receipt) && request.payPrice == Money()) request.payPrice = row.payPrice;
    }
    return request;
}

DocumentRequest wholeEstimate() {
    DocumentRequest request;
    request.outcome = DocumentRequest::Outcome::WithoutClaim;
    request.claims.fill({1});
    return request;
}

} // namespace

DocumentRequest requestDocuments(const QList<PrintGridRow>& rows) {
    if (const auto refusal = missingAmount(rows)) return *refusal;
    if (!std::any_of(rows.begin(), rows.end(), hasTick)) {
        const bool claimEntered = !rows.isEmpty() && rows.first().isClaim;
        return claimEntered ? refused(u"帳票を選択して下さい。"_qs) : wholeEstimate();
    }
    const bool anyLaw = std::any_of(rows.begin(), rows.end(), [](const PrintGridRow& row) { return row.isClaim; });
    if (!anyLaw) return withoutClaim(rows);
    if (const auto refusal = missingLaw(rows)) return *refusal;
    return tickedKinds(rows);
}
