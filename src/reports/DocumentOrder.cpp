#include "reports/DocumentOrder.h"

#include <algorithm>

namespace {

using Field = DocumentOrder::Field;

bool isTicked(const PrintGridRow& row, DocumentKind kind) { return row.ticked.at(static_cast<size_t>(kind) - 1); }

DocumentOrder refused(const QString& message, Field field = Field::None, int row = -1) {
    DocumentOrder order;
    order.outcome = DocumentOrder::Outcome::Refused;
    order.message = message;
    order.field = field;
    order.row = row;
    return order;
}

// An invoice or receipt over nothing is a slip of the hand.
std::optional<DocumentOrder> missingAmount(const QList<PrintGridRow>& rows) {
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

// A paper for a row without its 法別 belongs to nobody, unless the order has no claim at all.
std::optional<DocumentOrder> missingLaw(const QList<PrintGridRow>& rows) {
    for (int row = 0; row < rows.size(); ++row)
        if (hasTick(rows.at(row)) && !rows.at(row).hasLaw)
            return refused(u"法別を選択して下さい。"_qs, Field::AskPrice, row);
    return std::nullopt;
}

DocumentOrder tickedKinds(const QList<PrintGridRow>& rows) {
    DocumentOrder order;
    for (const PrintGridRow& row : rows)
        for (size_t kind = 0; kind < order.claims.size(); ++kind)
            if (row.ticked.at(kind)) order.claims.at(kind).append(row.askNo);
    return order;
}

DocumentOrder withoutClaim(const QList<PrintGridRow>& rows) {
    DocumentOrder order;
    order.outcome = DocumentOrder::Outcome::WithoutClaim;
    for (const PrintGridRow& row : rows) {
        for (size_t kind = 0; kind < order.claims.size(); ++kind)
            if (row.ticked.at(kind)) order.claims.at(kind) = {1};
        if (isTicked(row, DocumentKind::Invoice) && order.askPrice == Money()) order.askPrice = row.askPrice;
        if (isTicked(row, DocumentKind::Receipt) && order.payPrice == Money()) order.payPrice = row.payPrice;
    }
    return order;
}

DocumentOrder wholeEstimate() {
    DocumentOrder order;
    order.outcome = DocumentOrder::Outcome::WithoutClaim;
    order.claims.fill({1});
    return order;
}

} // namespace

DocumentOrder orderDocuments(const QList<PrintGridRow>& rows) {
    if (const auto refusal = missingAmount(rows)) return *refusal;
    if (!std::any_of(rows.begin(), rows.end(), hasTick)) {
        const bool claimEntered = !rows.isEmpty() && rows.first().hasLaw;
        return claimEntered ? refused(u"帳票を選択して下さい。"_qs) : wholeEstimate();
    }
    const bool anyLaw = std::any_of(rows.begin(), rows.end(), [](const PrintGridRow& row) { return row.hasLaw; });
    if (!anyLaw) return withoutClaim(rows);
    if (const auto refusal = missingLaw(rows)) return *refusal;
    return tickedKinds(rows);
}
