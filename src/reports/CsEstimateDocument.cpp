#include "reports/CsEstimateDocument.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "price/basPriceLookup.h"
#include "reports/CsEstimateFields.h"
#include "reports/LineRows.h"
#include "reports/ReportText.h"

#include <algorithm>

namespace {

using LineRows::Values;

// A discount that was never entered leaves the amount as it is.
int percentage(const QString& text) { return text.trimmed().isEmpty() ? 100 : ToInt(Val(text)); }

int discounted(double subtotal, int first, int second) {
    qint32 amount = 0, unusedParts = 0, unusedTax = 0, unusedTotal = 0;
    CalcAmounts(ToInt(subtotal), 0, first, second, 100, 0, amount, unusedParts, unusedTax, unusedTotal);
    return amount;
}

// Builds the rows of one claim and copy behind those that are there already.
class Document {
public:
    Document(const CsEstimateSource& source, ReportRecordset& records, Values header)
        : m_source(source), m_records(records), m_header(std::move(header)), m_first(records.rowCount()) {}

    void addRows() {
        const double makeSum = addMakeRows();
        const QStringList rates = reducingRates({m_source.estimate.Discount1, m_source.estimate.Discount2});
        if (!rates.isEmpty())
            addDiscount(makeSum, rates, percentage(m_source.estimate.Discount1),
                        percentage(m_source.estimate.Discount2));
        else if (!m_source.completeElements.isEmpty())
            addRow({});
        if (m_source.completeElements.isEmpty()) return;
        const double partsSum = addCompleteRows();
        const QStringList partRates = reducingRates({m_source.estimate.Discount3});
        if (!partRates.isEmpty()) addDiscount(partsSum, partRates, percentage(m_source.estimate.Discount3), 100);
    }

private:
    void addRow(const Values& values) {
        m_records.AddNew();
        for (const auto& [name, value] : m_header) m_records.Set(name, value);
        for (const auto& [name, value] : values) m_records.Set(name, value);
        if (m_records.rowCount() == m_first + 1) m_records.Set(u"Kazu"_qs, m_records.value(m_first, u"Suryo"_qs));
    }

    static QStringList reducingRates(const QStringList& rates) {
        QStringList reducing;
        for (const QString& rate : rates)
            if (percentage(rate) != 100) reducing.append(rate.trimmed());
        return reducing;
    }

    void addDiscount(double subtotal, const QStringList& rates, int first, int second) {
        addRow(LineRows::subtotal(subtotal));
        QString words = u"( 小計 "_qs;
        for (const QString& rate : rates) words += u"× %1/100 "_qs.arg(rate);
        addRow({{u"SumCal"_qs, words + u')'}, {u"Price"_qs, discounted(subtotal, first, second)}});
    }

    double addMakeRows() {
        double subtotal = 0;
        for (const clsCsMakeElmt& line : m_source.makeElements) {
            addRow(LineRows::makeLine(line, m_source.items, m_source.pickStyles));
            subtotal += Val(line.Price);
        }
        return subtotal;
    }

    double addCompleteRows() {
        addRow(LineRows::partsHead());
        double subtotal = 0;
        for (const clsCsCmpltElmt& line : m_source.completeElements) {
            addRow(LineRows::partsLine(line));
            subtotal += Val(line.Price);
        }
        return subtotal;
    }

    const CsEstimateSource& m_source;
    ReportRecordset& m_records;
    Values m_header;
    int m_first;
};

// --- header ---

QString issueDateOf(const CsEstimateSource& source, const clsCsEstAsk& claim) {
    switch (source.kind) {
    case DocumentKind::Estimate:
        return source.estimate.EstPrtDate;
    case DocumentKind::Breakdown:
        return source.estimate.ItmPrtDate;
    case DocumentKind::Detail:
        return source.estimate.DtlPrtDate;
    case DocumentKind::Invoice:
        return claim.AskPrtDate;
    case DocumentKind::Receipt:
        return claim.PayPrtDate;
    }
    return {};
}

QString titleAmountOf(const CsEstimateSource& source, const clsCsEstAsk& claim) {
    if (source.kind == DocumentKind::Invoice) return claim.AskPrice;
    if (source.kind == DocumentKind::Receipt && !source.wholeSum) return claim.PayPrice;
    return source.estimate.EstSum;
}

Values estimateValues(const CsEstimateSource& source, const clsCsEstAsk& claim) {
    const clsCsEstimate& estimate = source.estimate;
    const bool isReceipt = source.kind == DocumentKind::Receipt;
    return {
        {u"EstNo"_qs, estimate.EstNo},
        {u"EstNoExt"_qs, isReceipt ? receiptNumberSuffix(claim, source.claims, source.insNames) : QString()},
        {u"PrtDate"_qs, ReportText::issueDate(issueDateOf(source, claim), source.switches.dateForm, true)},
        {u"PrtPrice"_qs, Val(titleAmountOf(source, claim))},
        {u"ClaimNm"_qs, claim.ClaimNm},
        {u"EstName"_qs, estimate.EstNm},
        {u"Total"_qs, Val(estimate.Total)},
        {u"TaxRate"_qs, Val(estimate.Tax)},
        {u"Tax"_qs, Val(estimate.EstSum) - Val(estimate.Total)},
        {u"EstSum"_qs, Val(estimate.EstSum)},
        {u"Charge1Nm"_qs, estimate.Charge1Nm},
        {u"JuryoEra"_qs, FormatEraDate(estimate.DelvFinDate, u"ggg"_qs)},
        {u"IninEra"_qs, FormatEraDate(estimate.DelvFinDate, u"ggg"_qs)},
        {u"SeikyuEra"_qs, FormatEraDate(claim.AskPrtDate, u"ggg"_qs)},
        {u"MitumoriEra"_qs, FormatEraDate(estimate.EstPrtDate, u"ggg"_qs)},
    };
}

QString birthdayText(const clsCustomer& customer, int form) {
    if (!parseDate(customer.Birth)) return {};
    if (form == 1) return u"生年月日："_qs + FormatEraDate(customer.Birth, u"ggg e 年 m 月 d 日"_qs);
    return form == 2 ? u"生年："_qs + FormatEraDate(customer.Birth, u"ggg e 年"_qs) : QString();
}

Values customerValues(const CsEstimateSource& source) {
    const clsCustomer& customer = source.customer;
    const DocumentSwitches& prints = source.switches;
    Values values{
        {u"CustNm"_qs, JoinWithSpace(customer.CustNm1, customer.CustNm2)},
        {u"CustNo"_qs, customer.CustNo},
        {u"Birthday"_qs, birthdayText(customer, prints.birth)},
    };
    if (prints.address)
        values += Values{{u"Zip"_qs, u'〒' + customer.Zip},
                         {u"Pref"_qs, customer.Pref},
                         {u"City"_qs, customer.City},
                         {u"Addr1"_qs, customer.Addr1},
                         {u"Addr2"_qs, customer.Addr2}};
    if (prints.tel) values.append({u"Tel"_qs, u"電話番号："_qs + customer.Tel});
    if (prints.sex) values.append({u"Sex"_qs, u"性別："_qs + customer.Sex});
    if (!source.familyType.isEmpty()) values.append({u"FamilyType"_qs, u"本人区分："_qs + source.familyType});
    if (prints.insured) values.append({u"Insured"_qs, u"被保険者名："_qs + customer.Insured});
    return values;
}

Values claimBoxValues(const CsEstimateSource& source) {
    const ClaimBox box = claimBox(source.claims, source.insNames, source.insurersOff);
    Values values;
    for (size_t place = 0; place < box.places.size(); ++place) {
        values.append({u"Ins%1"_qs.arg(place + 1), box.places.at(place).name});
        if (const auto amount = box.places.at(place).amount)
            values.append({u"AskPrice%1"_qs.arg(place + 1), amount->toDouble()});
    }
    return values;
}

} // namespace

ReportRecordset csEstimateRows(const CsEstimateSource& source) {
    ReportRecordset records = csEstimateRecordset();
    const Values shared = customerValues(source) + claimBoxValues(source);
    for (int copy = 1; copy <= source.copies; ++copy)
        for (const clsCsEstAsk& claim : source.claims) {
            const int number = ToInt(Val(claim.AskNo));
            if (!source.claimNumbers.contains(number)) continue;
            const Values own{{u"AskNo"_qs, number}, {u"Copy"_qs, copy}};
            Document(source, records, own + estimateValues(source, claim) + shared).addRows();
        }
    return records;
}
