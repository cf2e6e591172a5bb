#include "reports/DocumentOrder.h"

namespace {

bool isTicked(const PrintGridRow& row, DocumentKind kind) { return row.ticked.at(static_cast<size_t>(kind) - 1); }

DocumentOrder refused(const QString& message, int row = -1) {
    DocumentOrder order;
    order.outcome = DocumentOrder::Outcome::Refused;
    order.message = message;
    order.row = row;
    return order;
}

// An invoice or receipt over nothing is a slip of the hand.
std::optional<DocumentOrder> missingAmount(const QList<PrintGridRow>& rows) {
    for (int row = 0; row < rows.size(); ++row)
        if (isTicked(rows.at(row), DocumentKind::Invoice) && rows.at(row).askPrice == Money())
            return refused(u"請求金額を入力して下さい。"_qs, row);
    for (int row = 0; row < rows.size(); ++row)
        if (isTicked(rows.at(row), DocumentKind::Receipt) && rows.at(row).payPrice == Money())
            return refused(u"領収金額を入力して下さい。"_qs, row);
    return std::nullopt;
}

DocumentOrder wholeEstimate() {
    DocumentOrder order;
    order.outcome = DocumentOrder::Outcome::PrintWhole;
    order.claims.fill({1});
    return order;
}

} // namespace

DocumentOrder orderDocuments(const QList<PrintGridRow>& rows) {
    if (const auto refusal = missingAmount(rows)) return *refusal;
    DocumentOrder order;
    bool any = false;
    for (const PrintGridRow& row : rows)
        for (size_t kind = 0; kind < order.claims.size(); ++kind)
            if (row.ticked.at(kind)) {
                order.claims.at(kind).append(row.askNo);
                any = true;
            }
    if (any) return order;
    const bool claimEntered = !rows.isEmpty() && rows.first().hasLaw;
    return claimEntered ? refused(u"帳票を選択して下さい。"_qs) : wholeEstimate();
}
