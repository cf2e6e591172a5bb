#include "reports/CsEstimateValues.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "reports/ReportText.h"

namespace CsEstimateValues {

namespace {

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

// A discount that was never entered leaves the amount as it is.
bool reduces(const QString& rate) { return !rate.trimmed().isEmpty() && ToInt(Val(rate)) != 100; }

} // namespace

Values header(const CsEstimateSource& source, const clsCsEstAsk& claim, int copy) {
    const Values own{{u"AskNo"_qs, ToInt(Val(claim.AskNo))}, {u"Copy"_qs, copy}};
    return own + estimateValues(source, claim) + customerValues(source) + claimBoxValues(source);
}

QStringList reducingRates(const QStringList& rates) {
    QStringList reducing;
    for (const QString& rate : rates)
        if (reduces(rate)) reducing.append(rate.trimmed());
    return reducing;
}

QString discountWords(const QStringList& rates) {
    if (rates.isEmpty()) return {};
    QString words = u"( 小計 "_qs;
    for (const QString& rate : rates) words += u"× %1/100 "_qs.arg(rate);
    return words + u')';
}

void forEachDocument(const CsEstimateSource& source, const EachDocument& each) {
    for (int copy = 1; copy <= source.copies; ++copy)
        for (const clsCsEstAsk& claim : source.claims)
            if (source.claimNumbers.contains(ToInt(Val(claim.AskNo)))) each(claim, copy);
}

void addRow(ReportRecordset& records, const Values& header, const Values& values) {
    records.AddNew();
    for (const auto& [name, value] : header) records.Set(name, value);
    for (const auto& [name, value] : values) records.Set(name, value);
}

} // namespace CsEstimateValues
