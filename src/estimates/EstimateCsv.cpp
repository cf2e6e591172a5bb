#include "estimates/EstimateCsv.h"

#include "base/basCommon.h"

namespace {

template <class Record> struct CsvField {
    QString column;
    QString Record::*member;
};

const QList<CsvField<clsCustomer>>& customerFields() {
    static const QList<CsvField<clsCustomer>> fields{
        {u"顧客番号"_qs, &clsCustomer::CustNo},   {u"名前1"_qs, &clsCustomer::CustNm1},
        {u"名前2"_qs, &clsCustomer::CustNm2},     {u"フリガナ1"_qs, &clsCustomer::CustKn1},
        {u"フリガナ2"_qs, &clsCustomer::CustKn2}, {u"郵便番号"_qs, &clsCustomer::Zip},
        {u"都道府県"_qs, &clsCustomer::Pref},     {u"市区郡"_qs, &clsCustomer::City},
        {u"住所1"_qs, &clsCustomer::Addr1},       {u"住所2"_qs, &clsCustomer::Addr2},
        {u"電話"_qs, &clsCustomer::Tel},          {u"性別"_qs, &clsCustomer::Sex},
        {u"生年月日"_qs, &clsCustomer::Birth}};
    return fields;
}

} // namespace

QStringList EstimateCsv::columns() {
    QStringList columns{u"見積番号"_qs, u"見積名称"_qs};
    for (const auto& field : customerFields()) columns << field.column;
    return columns << u"金額"_qs;
}

CsvRow EstimateCsv::row(const clsCsEstimate& estimate, const clsCustomer& customer) {
    QStringList fields{estimate.EstNo, estimate.EstNm};
    for (const auto& field : customerFields()) fields << customer.*field.member;
    const QString person = JoinWithSpace(customer.CustNm1, customer.CustNm2);
    return {fields << estimate.EstSum, u"%1 %2"_qs.arg(estimate.EstNo, person).trimmed()};
}
