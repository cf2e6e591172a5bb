#include "estimates/EstimateListFilter.h"

#include "base/basCommon.h"
#include "db/TableManager.h"

namespace {

enum class Match { Start, Part };

struct TextTerm {
    QString expression;
    QString EstimateListFilter::*text;
    Match match;
};

struct PeriodTerm {
    QString expression;
    EstimateListFilter::Period EstimateListFilter::*period;
};

using Filter = EstimateListFilter;

const QList<TextTerm>& customerTerms() {
    static const QList<TextTerm> terms{{u"[顧客情報].[顧客番号]"_qs, &Filter::CsNo, Match::Start},
                                       {u"[顧客情報].[名前1]"_qs, &Filter::Name1, Match::Part},
                                       {u"[顧客情報].[名前2]"_qs, &Filter::Name2, Match::Part},
                                       {u"[顧客情報].[フリガナ1]"_qs, &Filter::Kana1, Match::Part},
                                       {u"[顧客情報].[フリガナ2]"_qs, &Filter::Kana2, Match::Part}};
    return terms;
}

const QList<TextTerm>& addressTerms() {
    static const QList<TextTerm> terms{{u"[顧客情報].[郵便番号]"_qs, &Filter::Zip, Match::Start},
                                       {u"[顧客情報].[都道府県]"_qs, &Filter::Pref, Match::Part},
                                       {u"[顧客情報].[市区郡]"_qs, &Filter::City, Match::Part},
                                       {u"[顧客情報].[住所1] & [顧客情報].[住所2]"_qs, &Filter::Addr, Match::Part},
                                       {u"[顧客情報].[電話]"_qs, &Filter::TelNo, Match::Part},
                                       {u"[顧客見積情報].[見積番号]"_qs, &Filter::EstNo, Match::Start}};
    return terms;
}

const QList<TextTerm>& productTerms() {
    static const QList<TextTerm> terms{{u"[顧客見積情報].[製品コード]"_qs, &Filter::ProductCd, Match::Start},
                                       {u"[顧客見積情報].[見積名称]"_qs, &Filter::ProductNm, Match::Part},
                                       {u"[顧客見積情報].[製作担当者]"_qs, &Filter::Producer, Match::Part}};
    return terms;
}

const QList<PeriodTerm>& periodTerms() {
    static const QList<PeriodTerm> terms{{u"[顧客見積情報].[受付日]"_qs, &Filter::RecvDate},
                                         {u"[顧客見積情報].[採型日]"_qs, &Filter::PickPtnDate},
                                         {u"[顧客見積情報].[納品実績日]"_qs, &Filter::DelvFinDate},
                                         {u"[顧客見積情報].[耐用完了日]"_qs, &Filter::LifeEnd}};
    return terms;
}

const QList<TextTerm>& chartTerms() {
    static const QList<TextTerm> terms{{u"[顧客カルテ].[病名原因]"_qs, &Filter::DiseaseNm, Match::Part},
                                       {u"[受注先].[受注先コード]"_qs, &Filter::OrderCd, Match::Start},
                                       {u"[顧客カルテ].[受注先]"_qs, &Filter::OrderNm, Match::Part},
                                       {u"[顧客カルテ].[主治医]"_qs, &Filter::Doctor, Match::Part}};
    return terms;
}

const QList<TextTerm>& claimTerms() {
    static const QList<TextTerm> terms{{u"[請求先].[請求先コード]"_qs, &Filter::ClaimCd, Match::Start},
                                       {u"[顧客見積請求].[請求先]"_qs, &Filter::ClaimNm, Match::Part}};
    return terms;
}

void addTexts(QStringList& terms, const Filter& filter, const QList<TextTerm>& forms) {
    for (const auto& [expression, text, match] : forms) {
        const auto condition = match == Match::Part ? SqlContains : SqlStartsWith;
        if (const QString term = condition(expression, filter.*text); !term.isEmpty()) terms << u' ' + term;
    }
}

void addDate(QStringList& terms, const QString& expression, const QString& sign, const QString& date) {
    if (!date.isEmpty())
        terms << u' ' + expression + u' ' + sign + u" #"_qs + formatDate(date, u"yyyy/mm/dd"_qs) + u'#';
}

// Of the claim lines of an estimate at least one answers all of it.
void addClaims(QStringList& terms, const Filter& filter) {
    QStringList parts;
    if (!filter.InsNo.isEmpty()) parts << u" [顧客見積請求].[法別No] = "_qs + sqlNumber(filter.InsNo);
    addTexts(parts, filter, claimTerms());
    if (parts.isEmpty()) return;
    terms << u" [顧客見積情報].[見積ID] IN  (SELECT [顧客見積請求].[見積ID] FROM ([顧客見積請求] LEFT JOIN [請求先]"
             u" ON ([顧客見積請求].[請求先No] = [請求先].[請求先No])) WHERE "_qs +
                 parts.join(u" AND "_qs) + u')';
}

} // namespace

QString EstimateListFilter::condition() const {
    QStringList terms;
    addTexts(terms, *this, customerTerms());
    addDate(terms, u"[顧客情報].[生年月日]"_qs, u"="_qs, Birth);
    addTexts(terms, *this, addressTerms());
    QStringList numbers;
    for (const QString& number : ProcKbn) numbers << sqlNumber(number);
    if (!numbers.isEmpty()) terms << u" [顧客見積情報].[処理区分] IN ("_qs + numbers.join(u',') + u')';
    addTexts(terms, *this, productTerms());
    for (const auto& [expression, period] : periodTerms()) {
        addDate(terms, expression, u">="_qs, (this->*period).from);
        addDate(terms, expression, u"<="_qs, (this->*period).to);
    }
    addTexts(terms, *this, chartTerms());
    addClaims(terms, *this);
    return terms.join(u" AND "_qs);
}

QString withCustomers(const QString& condition, const QList<CustomerKey>& customers) {
    if (customers.isEmpty()) return condition;
    QStringList ids, terms;
    for (const CustomerKey& customer : customers) ids << sqlText(customer.CustId);
    ids.removeDuplicates();
    for (const CustomerKey& customer : customers)
        terms << u"([顧客情報].[顧客ID] = "_qs + sqlText(customer.CustId) + u" AND [顧客情報].[顧客枝番] = "_qs +
                     sqlNumber(customer.CustSubId) + u')';
    // The numbers alone, too, as an engine looks them up where it would try every estimate for the pairs.
    const QString narrowed =
        u"[顧客見積情報].[顧客ID] IN ("_qs + ids.join(u',') + u") AND ("_qs + terms.join(u" OR "_qs) + u')';
    return condition.isEmpty() ? narrowed : condition + u" AND "_qs + narrowed;
}
