#include "payments/PaidFile.h"

#include "base/Dates.h"

namespace {

QString day(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

} // namespace

ListFile PaidFile::form() {
    constexpr int textFile = 1;
    return {{u"入金日"_qs, u"区分"_qs, u"受注先"_qs, u"顧客氏名"_qs, u"納品日"_qs, u"金額"_qs},
            {},
            u"入金ファイル.txt"_qs,
            ListFile::textFilters,
            textFile,
            u'\t'};
}

CsvRow PaidFile::line(const PaymentRow& row) {
    const clsCsEstimate& estimate = row.estimate;
    return {{day(estimate.PayInFinDate), u"売上"_qs, row.chart.OrderNm, row.customerName(),
             u" 納品日「%1」"_qs.arg(day(estimate.DelvFinDate)), estimate.EstSum},
            u"%1 %2"_qs.arg(estimate.EstNo, row.customerName()).trimmed()};
}
