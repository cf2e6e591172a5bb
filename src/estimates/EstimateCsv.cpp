#include "estimates/EstimateCsv.h"

#include "base/Text.h"
#include "base/basCommon.h"
#include "base/clsLogger.h"

namespace {

constexpr qsizetype mostTold = 15;

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

QString whoseOf(const clsCsEstimate& estimate, const clsCustomer& customer) {
    return u"%1 %2"_qs.arg(estimate.EstNo, JoinWithSpace(customer.CustNm1, customer.CustNm2)).trimmed();
}

QString lineOf(const EstimateCsv::Lacking& place) {
    return u"%1行目（%2） %3：%4"_qs.arg(formatThousands(place.row), place.whose, place.column,
                                         place.characters.join(u'、'));
}

} // namespace

QStringList EstimateCsv::columns() {
    QStringList columns{u"見積番号"_qs, u"見積名称"_qs};
    for (const auto& field : customerFields()) columns << field.column;
    return columns << u"金額"_qs;
}

QStringList EstimateCsv::fields(const clsCsEstimate& estimate, const clsCustomer& customer) {
    QStringList fields{estimate.EstNo, estimate.EstNm};
    for (const auto& field : customerFields()) fields << customer.*field.member;
    return fields << estimate.EstSum;
}

QList<EstimateCsv::Lacking> EstimateCsv::lacking(qint64 row, const clsCsEstimate& estimate,
                                                 const clsCustomer& customer) {
    QList<Lacking> found;
    const QStringList values = fields(estimate, customer), names = columns();
    for (int i = 0; i < values.size(); ++i)
        if (const QStringList missing = Text::missingInCp932(values.at(i)); !missing.isEmpty())
            found << Lacking{row, whoseOf(estimate, customer), names.at(i), missing};
    return found;
}

QString EstimateCsv::told(const QList<Lacking>& found) {
    QStringList lines;
    for (const Lacking& place : found.first(qMin(found.size(), mostTold))) lines << lineOf(place);
    if (found.size() <= mostTold) return lines.join(u'\n');
    // The log is written in the same code page as the file.
    for (const Lacking& place : found) writeLog(u"Shift_JIS にない文字 "_qs + Text::withCodePoints(lineOf(place)));
    return lines.join(u'\n') +
           u"\nほか %1か所（すべての箇所はログに記録しました）"_qs.arg(formatThousands(found.size() - mostTold));
}
