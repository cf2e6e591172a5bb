#include "estimates/EstimateChecks.h"

#include "base/Numbers.h"
#include "composition/LineRules.h"

namespace {

qsizetype freeLines(const QStringList& amounts) {
    return std::count_if(amounts.begin(), amounts.end(), [](const QString& amount) { return Val(amount) == 0; });
}

QString freeLinesOf(const QString& page, const QStringList& amounts) {
    const qsizetype lines = freeLines(amounts);
    return lines == 0 ? QString() : u"%1に0円の行 %2"_qs.arg(page).arg(lines);
}

// Nothing is claimed before an amount stands in one of the rows.
QString claimsRemark(const EstimateDraft& draft) {
    QStringList amounts;
    for (const ClaimRow& row : draft.usedClaims())
        if (!row.ask.AskPrice.isEmpty()) amounts << row.ask.AskPrice;
    const Money rest = Money::yen(draft.amounts().total) - sumOfAmounts(amounts);
    if (amounts.isEmpty() || rest == Money()) return {};
    return u"請求が総合計と %1円 違います"_qs.arg(formatThousands(rest.toYen()));
}

} // namespace

int firstClaimRow(const QList<ClaimRow>& rows) {
    const auto used = std::find_if(rows.begin(), rows.end(), [](const ClaimRow& row) { return row.isUsed(); });
    return used == rows.end() ? 0 : static_cast<int>(used - rows.begin());
}

int rowOfLostAmount(const EstimateDraft& draft, const EstimateDraft& loaded, const QString& receiptSet) {
    for (int row = 0; row < draft.claims.size(); ++row) {
        const ClaimRow& claim = draft.claims.at(row);
        const bool received = !claim.ask.PayPrice.isEmpty() && claim.ask.PayPrice != receiptSet;
        const bool amount = !claim.ask.AskPrice.isEmpty() || received;
        if (amount && !claim.isUsed() && !loaded.claims.value(row).isUsed()) return row;
    }
    return -1;
}

QString lostAmountWords(int row) {
    return u"%1 行目に金額がありますが、法別がないため登録できません。\n基本情報で法別を選択するか、金額を消して下さい。"_qs
        .arg(row + 1);
}

QStringList EstimateRemarks::all() const {
    QStringList told{name, total, makeLines, partLines, claims};
    told.removeAll(QString());
    return told;
}

EstimateRemarks remarksOf(const EstimateDraft& draft) {
    EstimateRemarks remarks;
    remarks.claims = claimsRemark(draft);
    if (!draft.composition.hasLines()) return remarks;
    if ((draft.customer.CustNm1 + draft.customer.CustNm2).trimmed().isEmpty()) remarks.name = u"氏名なし"_qs;
    if (draft.amounts().total == 0) remarks.total = u"0円の見積"_qs;
    remarks.makeLines =
        freeLinesOf(u"基本・製作要素"_qs, draft.composition.column(&ComposedItem::make, MakeLine::Price));
    remarks.partLines = freeLinesOf(u"完成要素"_qs, draft.composition.column(&ComposedItem::parts, PartsLine::Price));
    return remarks;
}
