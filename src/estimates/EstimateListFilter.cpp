#include "estimates/EstimateListFilter.h"

#include "base/Dates.h"
#include "db/SqlAlike.h"
#include "db/SqlKeys.h"

namespace {

SqlColumn customer(const QString& column) { return {u"顧客情報"_qs, column}; }
SqlColumn estimate(const QString& column) { return {u"顧客見積情報"_qs, column}; }
SqlColumn chart(const QString& column) { return {u"顧客カルテ"_qs, column}; }
SqlColumn claim(const QString& column) { return {u"顧客見積請求"_qs, column}; }

SqlTerm dated(const SqlTerm& column, const QString& sign, const QString& date) {
    if (date.isEmpty()) return {};
    return column.wrapped({}, u" %1 #%2#"_qs.arg(sign, formatDate(date, u"yyyy/mm/dd"_qs)));
}

// Each term has a blank ahead.
SqlTerm together(const QList<SqlTerm>& terms) { return SqlTerm::joined(terms, u" AND  "_qs).wrapped(u" "_qs, {}); }

SqlTerm within(const SqlColumn& column, const EstimateListFilter::Period& period) {
    return SqlPeriod(column, period.from, period.to);
}

} // namespace

// Of the claim lines of an estimate at least one answers all of it.
SqlTerm EstimateListFilter::claims() const {
    const SqlReference payer{u"顧客見積請求"_qs, u"請求先"_qs};
    const SqlTerm asked = together({InsNo.isEmpty() ? SqlTerm() : SqlEqual(claim(u"法別No"_qs), InsNo),
                                    SqlStartsWith(SqlColumn{payer.other, u"請求先コード"_qs}, ClaimCd),
                                    SqlContainsAlike(claim(u"請求先"_qs), ClaimNm)});
    if (asked.isEmpty()) return {};
    return SqlTerm(estimate(u"見積ID"_qs))
        .wrapped({}, u" IN  (SELECT [顧客見積請求].[見積ID] FROM "_qs + payer.leftJoin(u"[顧客見積請求]"_qs) +
                         u" WHERE "_qs + asked.text() + u')');
}

SqlTerm EstimateListFilter::condition() const {
    return together({SqlStartsWith(customer(u"顧客番号"_qs), CsNo),
                     SqlContainsAlike(customer(u"名前1"_qs), Name1),
                     SqlContainsAlike(customer(u"名前2"_qs), Name2),
                     SqlContainsAlike(customer(u"フリガナ1"_qs), Kana1),
                     SqlContainsAlike(customer(u"フリガナ2"_qs), Kana2),
                     dated(customer(u"生年月日"_qs), u"="_qs, Birth),
                     SqlStartsWith(customer(u"郵便番号"_qs), Zip),
                     SqlContains(customer(u"都道府県"_qs), Pref),
                     SqlContains(customer(u"市区郡"_qs), City),
                     SqlContainsAlike(SqlTerm::joined({customer(u"住所1"_qs), customer(u"住所2"_qs)}, u" & "_qs), Addr),
                     SqlContains(customer(u"電話"_qs), TelNo),
                     SqlStartsWith(estimate(u"見積番号"_qs), EstNo),
                     ProcKbn.isEmpty() ? SqlTerm() : SqlOneOf(estimate(u"処理区分"_qs), ProcKbn),
                     SqlStartsWith(estimate(u"製品コード"_qs), ProductCd),
                     SqlContainsAlike(estimate(u"見積名称"_qs), ProductNm),
                     SqlContainsAlike(estimate(u"製作担当者"_qs), Producer),
                     within(estimate(u"受付日"_qs), RecvDate),
                     within(estimate(u"採型日"_qs), PickPtnDate),
                     within(estimate(u"納品実績日"_qs), DelvFinDate),
                     within(estimate(u"耐用完了日"_qs), LifeEnd),
                     SqlContainsAlike(chart(u"病名原因"_qs), DiseaseNm),
                     SqlStartsWith(SqlColumn{u"受注先"_qs, u"受注先コード"_qs}, OrderCd),
                     SqlContainsAlike(chart(u"受注先"_qs), OrderNm),
                     SqlContainsAlike(chart(u"主治医"_qs), Doctor),
                     claims()});
}

bool EstimateListFilter::asksForPersonAlone() const {
    EstimateListFilter others = *this;
    for (const auto member :
         {&EstimateListFilter::CsNo, &EstimateListFilter::Name1, &EstimateListFilter::Name2, &EstimateListFilter::Kana1,
          &EstimateListFilter::Kana2, &EstimateListFilter::Birth, &EstimateListFilter::Zip, &EstimateListFilter::Pref,
          &EstimateListFilter::City, &EstimateListFilter::Addr, &EstimateListFilter::TelNo})
        (others.*member).clear();
    return others.condition().isEmpty() && !condition().isEmpty();
}

SqlTerm withCustomers(const SqlTerm& condition, const QList<CustomerKey>& customers) {
    if (customers.isEmpty()) return condition;
    QStringList ids;
    QList<SqlTerm> terms;
    for (const CustomerKey& key : customers) {
        ids << key.CustId;
        terms << gCustomerManager.keyed(key).wrapped(u"("_qs, u")"_qs);
    }
    ids.removeDuplicates();
    // The numbers alone, too, as an engine looks them up where it would try every estimate for the pairs.
    return SqlAllOf({condition, SqlOneOf(estimate(u"顧客ID"_qs), ids), SqlAnyOf(terms)});
}
