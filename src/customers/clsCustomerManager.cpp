#include "customers/clsCustomerManager.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basMessage.h"
#include "customers/EstimateTables.h"
#include "db/AskingOutside.h"
#include "db/SqlAlike.h"

#include <QRegularExpression>

#include <algorithm>

clsCustomerManager gCustomerManager;

const QString automaticNumber = u"(自動採番)"_qs;

namespace {

const QString customerTable = u"顧客情報"_qs;

QString sameQuestion(const clsCustomer& customer) {
    return u"  氏    名：（%1 %2）\n  生年月日：（%3）\n  住    所：（%4 %5%6%7）\n  電話番号：（%8）\n\n"
           u"が同一のデータが既に登録済みです。同一顧客として枝番管理しますか？"_qs.arg(
               customer.CustNm1, customer.CustNm2, customer.Birth, customer.Pref, customer.City, customer.Addr1,
               customer.Addr2, customer.Tel);
}

const QList<Field<clsCustomer>>& shownWithEst() {
    static const QList<Field<clsCustomer>> shown =
        gCustomerManager.fieldsOf({&clsCustomer::CustId, &clsCustomer::CustSubId, &clsCustomer::CustNo,
                                   &clsCustomer::CustNm1, &clsCustomer::CustNm2, &clsCustomer::CustKn1,
                                   &clsCustomer::CustKn2, &clsCustomer::Tel, &clsCustomer::Pref, &clsCustomer::City});
    return shown;
}

const QList<QString clsCustomer::*>& comparedFromEstimate() {
    static const QList<QString clsCustomer::*> compared{
        &clsCustomer::CustNo,  &clsCustomer::CustNm1, &clsCustomer::CustNm2, &clsCustomer::CustKn1,
        &clsCustomer::CustKn2, &clsCustomer::Sex,     &clsCustomer::Birth,   &clsCustomer::Zip,
        &clsCustomer::Pref,    &clsCustomer::City,    &clsCustomer::Addr1,   &clsCustomer::Addr2,
        &clsCustomer::Tel,     &clsCustomer::Fax,     &clsCustomer::Insured, &clsCustomer::FamilyType,
        &clsCustomer::Memo};
    return compared;
}

// What the estimate editor does not show it must not write back as it was loaded.
void keepUnshown(clsCustomer& customer, const clsCustomer& stored) {
    customer.mail = stored.mail;
    customer.PriceType = stored.PriceType;
}

const QString rowKey = u"[顧客情報].[顧客ID] & '|' & [顧客情報].[顧客枝番]"_qs;

// The customers who have an estimate, once for each of them.
QString customersWithEstimates(const SqlTerm& asked) {
    const QString both =
        u"(%1 INNER JOIN [%2] ON %3)"_qs.arg(estimateTable, customerTable, customerOfEstimate().match());
    return u" FROM "_qs + withNamedTables(both, asked);
}

// What concerns the customer alone is asked outside of the EXISTS, where the customers' own indexes serve.
SqlTerm havingEstimates(const SqlTerm& where) {
    const bool outside = where.namesOnly(customerTable);
    const SqlTerm exists = SqlAllOf({customerOfEstimate().match(), outside ? SqlTerm() : where})
                               .wrapped(u"EXISTS (SELECT [顧客見積情報].[見積ID] FROM "_qs +
                                            withNamedTables(estimateTable, where) + u" WHERE "_qs,
                                        u")"_qs);
    return outside ? SqlAllOf({where.wrapped(u"("_qs, u")"_qs), exists}) : exists;
}

} // namespace

clsCustomerManager::clsCustomerManager()
    : TableManager(u"顧客情報"_qs,
                   {{&clsCustomer::CustId, u"顧客ID"_qs},      {&clsCustomer::CustSubId, u"顧客枝番"_qs},
                    {&clsCustomer::CustNo, u"顧客番号"_qs},    {&clsCustomer::CustNm1, u"名前1"_qs},
                    {&clsCustomer::CustNm2, u"名前2"_qs},      {&clsCustomer::CustKn1, u"フリガナ1"_qs},
                    {&clsCustomer::CustKn2, u"フリガナ2"_qs},  {&clsCustomer::Sex, u"性別"_qs},
                    {&clsCustomer::Birth, u"生年月日"_qs},     {&clsCustomer::Zip, u"郵便番号"_qs},
                    {&clsCustomer::Pref, u"都道府県"_qs},      {&clsCustomer::City, u"市区郡"_qs},
                    {&clsCustomer::Addr1, u"住所1"_qs},        {&clsCustomer::Addr2, u"住所2"_qs},
                    {&clsCustomer::Tel, u"電話"_qs},           {&clsCustomer::Fax, u"FAX"_qs},
                    {&clsCustomer::mail, u"EMAIL"_qs},         {&clsCustomer::PriceType, u"価格区分"_qs},
                    {&clsCustomer::Insured, u"被保険者名"_qs}, {&clsCustomer::FamilyType, u"本人区分"_qs},
                    {&clsCustomer::AddDate, u"登録日"_qs},     {&clsCustomer::UpdDate, u"更新日"_qs},
                    {&clsCustomer::UpdUserNo, u"編集者No"_qs}, {&clsCustomer::Memo, u"備考"_qs}}) {}

bool clsCustomerManager::GetData(const QString& CustId, const QString& CustSubId, clsCustomer& customer) {
    return get({CustId, CustSubId}, customer);
}

void clsCustomerManager::DeleteData(const QString& CustId, const QString& CustSubId) { remove({CustId, CustSubId}); }

// --- who a customer is ---

QString clsCustomerManager::GetNewSubId(const QString& CustId) {
    double branch = Val(nextNumber(keyed({CustId})));
    while (hasLeftovers({CustId, numberText(branch)})) ++branch;
    return numberText(branch);
}

// Charts, laws and estimates outlive a deleted branch; no new branch may find them as its own.
bool clsCustomerManager::hasLeftovers(const CustomerKey& branch) {
    for (const QString& table : {u"顧客カルテ"_qs, u"顧客保険"_qs, u"顧客見積情報"_qs})
        if (scalar(SqlSelect(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table), SqlEqual(table, key(), branch))) != u"0")
            return true;
    return false;
}

bool clsCustomerManager::FindSame(const clsCustomer& customer, clsCustomer& same) {
    return findLike(customer,
                    {&clsCustomer::CustNm1, &clsCustomer::CustNm2, &clsCustomer::Sex, &clsCustomer::Birth,
                     &clsCustomer::Zip, &clsCustomer::Pref, &clsCustomer::City},
                    same);
}

bool clsCustomerManager::IsChanged(const clsCustomer& customer, const clsCustomer& stored) {
    const auto differs = [&](QString clsCustomer::*member) {
        return Text::rightTrimmed(customer.*member) != Text::rightTrimmed(stored.*member);
    };
    return std::any_of(comparedFromEstimate().begin(), comparedFromEstimate().end(), differs);
}

// --- saving ---

bool clsCustomerManager::SaveData(clsCustomer& customer) { return findItsPlace(customer) && write(customer); }

bool clsCustomerManager::SaveDataFromEstimate(clsCustomer& customer, const ConfirmUpdate& confirm) {
    clsCustomer stored;
    if (customer.CustId.isEmpty() || !GetData(customer.CustId, customer.CustSubId, stored))
        return drawNewId(customer) && write(customer);
    if (!IsChanged(customer, stored)) return true;
    const CustomerUpdate decision = ask(confirm, stored, customer);
    if (decision != CustomerUpdate::NewCustomer) keepUnshown(customer, stored);
    return takeDecision(customer, decision) && write(customer);
}

// Of a person without an id the operator says whether it is one who is known.
bool clsCustomerManager::findItsPlace(clsCustomer& customer) {
    clsCustomer same;
    if (customer.CustId.isEmpty()) {
        const qint16 answer =
            FindSame(customer, same) ? ShowMessage(Message::QuestionCancel, sameQuestion(customer)) : qint16(AnswerNo);
        if (answer != AnswerYes) return answer == AnswerNo && drawNewId(customer);
        customer.CustId = same.CustId;
        customer.CustSubId.clear();
        customer.CustNo = same.CustNo;
    }
    if (customer.CustSubId.isEmpty()) customer.CustSubId = GetNewSubId(customer.CustId);
    return true;
}

// The question is the same one as long as stored and typed values are.
CustomerUpdate clsCustomerManager::ask(const ConfirmUpdate& confirm, const clsCustomer& stored,
                                       const clsCustomer& typed) const {
    QStringList values;
    for (const Field<clsCustomer>& field : fields()) values << stored.*field.member << typed.*field.member;
    return static_cast<CustomerUpdate>(AskingOutside::ask(
        values.join(u'\t'), [confirm, stored, typed] { return static_cast<int>(confirm(stored, typed)); }));
}

bool clsCustomerManager::takeDecision(clsCustomer& customer, CustomerUpdate decision) {
    switch (decision) {
    case CustomerUpdate::Overwrite:
        return true;
    case CustomerUpdate::NewBranch:
        customer.CustSubId = GetNewSubId(customer.CustId);
        return true;
    case CustomerUpdate::NewCustomer:
        customer.CustNo.clear();
        return drawNewId(customer);
    default:
        return false;
    }
}

bool clsCustomerManager::write(clsCustomer& customer) {
    if (!drawNumber(customer)) return false;
    save(customer);
    return true;
}

bool clsCustomerManager::drawNewId(clsCustomer& customer) {
    customer.CustId = drawNew(u"顧客ID"_qs);
    customer.CustSubId = u"1"_qs;
    if (!customer.CustId.isEmpty()) return true;
    ShowMessage(Message::Information, u"新規の顧客IDを自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
    return false;
}

bool clsCustomerManager::drawNumber(clsCustomer& customer) {
    if (!customer.CustNo.isEmpty() && customer.CustNo != automaticNumber) return true;
    customer.CustNo = drawNew(u"顧客番号"_qs, Series::Yearly);
    if (!customer.CustNo.isEmpty()) return true;
    ShowMessage(Message::Information, u"新規の顧客番号を自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
    return false;
}

// --- lists ---

// A name typed in one word is that of a person all the same.
SqlTerm clsCustomerManager::SelectContaining(const QString& text) {
    static const QRegularExpression blank(u"[ \\x{3000}]"_qs), digit(u"[0-9\\x{FF10}-\\x{FF19}]"_qs);
    const bool inParts = text.contains(blank);
    QStringList columns{u"[顧客番号]"_qs, inParts ? u"([名前1] & '　' & [名前2])"_qs : u"([名前1] & [名前2])"_qs,
                        inParts ? u"([フリガナ1] & ' ' & [フリガナ2])"_qs : u"([フリガナ1] & [フリガナ2])"_qs,
                        u"([都道府県] & [市区郡] & [住所1] & [住所2])"_qs, u"[電話]"_qs};
    if (text.contains(digit)) columns << u"([生年月日] & '')"_qs;
    QList<SqlTerm> terms;
    for (const QString& column : columns) terms << SqlContainsAlike(column, text);
    return SqlAnyOf(terms);
}

QString clsCustomerManager::SelectList(const SqlTerm& where, const SqlTerm& sort) {
    return SqlSelect(u"SELECT [顧客ID], [顧客枝番], [顧客番号], [名前1] & '　' & [名前2] AS 顧客名,"
                     u" [都道府県] & [市区郡] & [住所1] & [住所2] AS 住所, [電話], [生年月日] FROM [顧客情報]"_qs,
                     where, sort);
}

Recordset clsCustomerManager::GetSelectList(const SqlTerm& where, const SqlTerm& sort) {
    return query(SelectList(where, sort));
}

QString clsCustomerManager::ListWithEst(const SqlTerm& where, const SqlTerm& sort) {
    QStringList columns;
    for (const auto& field : shownWithEst()) columns << u"[顧客情報].[%1]"_qs.arg(field.column);
    return SqlSelect(u"SELECT DISTINCT "_qs + columns.join(u", "_qs) + customersWithEstimates(where), where, sort);
}

void clsCustomerManager::GetListWithEst(QList<clsCustomer>& result, const SqlTerm& where, const SqlTerm& sort) {
    Recordset rows = query(ListWithEst(where, sort));
    const RecordReader<clsCustomer> reader(rows, shownWithEst());
    while (rows.next()) result << reader.read();
}

// The few customers of an estimate number are found from their estimates, not by asking each customer for its own.
QString clsCustomerManager::KeysWithEst(const SqlTerm& where, const SqlTerm& sort) {
    if (!where.names(SqlColumn{u"顧客見積情報"_qs, u"見積番号"_qs})) return Keys(havingEstimates(where), sort);
    const QString shown = rowKey + sort.wrapped(u", "_qs, {}).text();
    return SqlSelect(u"SELECT DISTINCT "_qs + shown + customersWithEstimates(where), where, sort);
}

QString clsCustomerManager::Keys(const SqlTerm& where, const SqlTerm& sort) {
    return SqlSelect(u"SELECT "_qs + rowKey + u" FROM [顧客情報]"_qs, where, sort);
}

QString clsCustomerManager::listKey(const QString& CustId, const QString& CustSubId) {
    return CustId + u'|' + CustSubId;
}

CustomerKey clsCustomerManager::ofListKey(const QString& listKey) {
    return {listKey.section(u'|', 0, -2), listKey.section(u'|', -1)};
}

SqlTerm clsCustomerManager::ofListKeys(const QStringList& listKeys) {
    QStringList ids;
    for (const QString& key : listKeys) ids << ofListKey(key).CustId;
    return SqlOneOf({customerTable, u"顧客ID"_qs}, ids);
}

QList<clsCustomer> clsCustomerManager::customersOf(const QStringList& listKeys) {
    QList<clsCustomer> customers;
    if (!listKeys.isEmpty()) GetList(customers, ofListKeys(listKeys));
    return customers;
}
