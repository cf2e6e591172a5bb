#include "payments/PaymentCsv.h"

#include "base/Dates.h"

namespace {

constexpr qsizetype mostClaims = 5;
constexpr int fieldsAheadOfClaim = 4;

QString day(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

} // namespace

QStringList PaymentCsv::columns() {
    return {u"完成年月日"_qs, u"作業状況"_qs, u"顧客氏名"_qs, u"見積番号"_qs, u"見積名称"_qs,
            u"受注先"_qs,     u"金額"_qs,     u"入金日"_qs,   u"入金日"_qs,   u"備考"_qs};
}

QList<CsvRow> PaymentCsv::lines(const PaymentRow& row, const PaymentRows& names) {
    const clsCsEstimate& estimate = row.estimate;
    const QString whose = u"%1 %2"_qs.arg(estimate.EstNo, row.customerName()).trimmed();
    QList<CsvRow> lines{{{day(estimate.CmpltFinDate), row.status, row.customerName(), estimate.EstNo, estimate.EstNm,
                          row.chart.OrderNm, estimate.EstSum, day(estimate.PayInFinDate)},
                         whose}};
    for (const clsCsEstAsk& claim : row.claims.first(qMin(row.claims.size(), mostClaims)))
        lines << CsvRow{QStringList(fieldsAheadOfClaim)
                            << names.lawName(claim.InsNo) << claim.ClaimNm << claim.AskPrice << claim.PayPrice
                            << day(claim.PayDate) << (claim.PayDate.isEmpty() ? u"未入金"_qs : QString()),
                        whose};
    return lines;
}
