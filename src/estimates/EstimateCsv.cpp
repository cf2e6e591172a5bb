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

QString lineOf(const EstimateCsv::Lacking& place, const QString& characters) {
    return u"%1行目 %2：%3"_qs.arg(formatThousands(place.row), place.column, characters);
}

// "U+20BB7", as the log cannot hold the characters either.
QString codePoints(const QString& characters) {
    QStringList points;
    for (const char32_t point : characters.toUcs4()) points << u"U+"_qs + QString::number(point, 16).toUpper();
    return points.join(u' ');
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

QList<EstimateCsv::Lacking> EstimateCsv::lacking(qint64 row, const QStringList& fields) {
    QList<Lacking> found;
    const QStringList names = columns();
    for (int i = 0; i < fields.size(); ++i)
        if (const QString missing = Text::missingInCp932(fields.at(i)); !missing.isEmpty())
            found << Lacking{row, names.at(i), missing};
    return found;
}

QString EstimateCsv::told(const QList<Lacking>& found) {
    QStringList lines;
    for (const Lacking& place : found.first(qMin(found.size(), mostTold))) lines << lineOf(place, place.characters);
    if (found.size() <= mostTold) return lines.join(u'\n');
    for (const Lacking& place : found)
        writeLog(u"Shift_JIS にない文字 "_qs + lineOf(place, codePoints(place.characters)));
    return lines.join(u'\n') +
           u"\nほか %1か所（すべての箇所はログに記録しました）"_qs.arg(formatThousands(found.size() - mostTold));
}
