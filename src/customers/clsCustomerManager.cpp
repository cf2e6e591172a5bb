#include "customers/clsCustomerManager.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/AskingOutside.h"
#include "db/clsAutoIdsManager.h"

clsCustomerManager gCustomerManager;

const QString automaticNumber = u"(自動採番)"_qs;

namespace {

const QStringList stamps{u"登録日"_qs, u"更新日"_qs};
const QStringList keys{u"顧客ID"_qs, u"顧客枝番"_qs};

QString keyFilter(const QString& CustId, const QString& CustSubId) {
    return u"[顧客ID] = "_qs + sqlText(CustId) + u" and [顧客枝番] = "_qs + sqlNumber(CustSubId);
}

QString sameQuestion(const clsCustomer& customer) {
    return u"  氏    名：（%1 %2）\n  生年月日：（%3）\n  住    所：（%4 %5%6%7）\n  電話番号：（%8）\n\n"
           u"が同一のデータが既に登録済みです。同一顧客として枝番管理しますか？"_qs.arg(
               customer.CustNm1, customer.CustNm2, customer.Birth, customer.Pref, customer.City, customer.Addr1,
               customer.Addr2, customer.Tel);
}

const QList<Field<clsCustomer>>& shownWithEst() {
    static const QList<Field<clsCustomer>> shown{
        {&clsCustomer::CustId, u"顧客ID"_qs},     {&clsCustomer::CustSubId, u"顧客枝番"_qs},
        {&clsCustomer::CustNo, u"顧客番号"_qs},   {&clsCustomer::CustNm1, u"名前1"_qs},
        {&clsCustomer::CustNm2, u"名前2"_qs},     {&clsCustomer::CustKn1, u"フリガナ1"_qs},
        {&clsCustomer::CustKn2, u"フリガナ2"_qs}, {&clsCustomer::Tel, u"電話"_qs},
        {&clsCustomer::Pref, u"都道府県"_qs},     {&clsCustomer::City, u"市区郡"_qs}};
    return shown;
}

const QString ofCustomer =
    u"([顧客見積情報].[顧客ID] = [顧客情報].[顧客ID]) AND ([顧客見積情報].[顧客枝番] = [顧客情報].[顧客枝番])"_qs;
const QString ofCustomers = u"([顧客見積情報] INNER JOIN [顧客情報] ON "_qs + ofCustomer + u')';

// The estimates with all that a search may ask of them.
QString fromEstimates(const QString& estimates) {
    return u" FROM ((("_qs + estimates +
           u" LEFT JOIN [顧客カルテ]"
           u" ON ([顧客見積情報].[顧客ID] = [顧客カルテ].[顧客ID])"
           u" AND ([顧客見積情報].[顧客枝番] = [顧客カルテ].[顧客枝番])"
           u" AND ([顧客見積情報].[カルテNo] = [顧客カルテ].[カルテNo]))"
           u" LEFT JOIN [受注先] ON [顧客カルテ].[受注先No] = [受注先].[受注先No])"
           u" LEFT JOIN [製作担当者] ON [顧客見積情報].[製作担当者No] = [製作担当者].[製作担当者No])"_qs;
}

// What concerns the customer alone is asked outside of the EXISTS, where the customers' own indexes serve.
bool concernsCustomersAlone(const QString& where) {
    for (const QString& table :
         {u"[顧客見積情報]"_qs, u"[顧客カルテ]"_qs, u"[受注先]"_qs, u"[製作担当者]"_qs, u"[顧客見積請求]"_qs})
        if (where.contains(table)) return false;
    return true;
}

// The few customers are found from their estimates then, not by asking each customer for its own.
bool namesFewEstimates(const QString& where) { return where.contains(u"[顧客見積情報].[見積番号]"_qs); }

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
    return readFirst(customer, keyFilter(CustId, CustSubId));
}

void clsCustomerManager::DeleteData(const QString& CustId, const QString& CustSubId) {
    execute(u"DELETE FROM [顧客情報] WHERE "_qs + keyFilter(CustId, CustSubId));
}

QString clsCustomerManager::GetNewSubId(const QString& CustId) {
    const QString last = connection().scalar(
        u"SELECT MAX([顧客枝番]) AS [最終枝番] FROM [顧客情報]  WHERE [顧客ID] = "_qs + sqlText(CustId));
    double branch = Val(last) + 1;
    while (hasLeftovers(CustId, numberText(branch))) ++branch;
    return numberText(branch);
}

// Charts, laws and estimates outlive a deleted branch; no new branch may find them as its own.
bool clsCustomerManager::hasLeftovers(const QString& CustId, const QString& CustSubId) {
    for (const QString& table : {u"顧客カルテ"_qs, u"顧客保険"_qs, u"顧客見積情報"_qs}) {
        const QString rows =
            connection().scalar(u"SELECT COUNT(*) FROM [%1] WHERE "_qs.arg(table) + keyFilter(CustId, CustSubId));
        if (rows != u"0") return true;
    }
    return false;
}

bool clsCustomerManager::FindSame(const clsCustomer& customer, clsCustomer& same) {
    maker().RemoveAll();
    for (const QString& column :
         {u"名前1"_qs, u"名前2"_qs, u"性別"_qs, u"生年月日"_qs, u"郵便番号"_qs, u"都道府県"_qs, u"市区郡"_qs})
        maker().AddKey(column, valueOf(customer, column));
    QList<clsCustomer> found;
    readList(found, maker().GetSqlForSelect());
    if (found.isEmpty()) return false;
    same = found.first();
    return true;
}

bool clsCustomerManager::IsChanged(const clsCustomer& customer, const clsCustomer& stored) {
    static const QList<QString clsCustomer::*> compared{
        &clsCustomer::CustNo,  &clsCustomer::CustNm1, &clsCustomer::CustNm2, &clsCustomer::CustKn1,
        &clsCustomer::CustKn2, &clsCustomer::Sex,     &clsCustomer::Birth,   &clsCustomer::Zip,
        &clsCustomer::Pref,    &clsCustomer::City,    &clsCustomer::Addr1,   &clsCustomer::Addr2,
        &clsCustomer::Tel,     &clsCustomer::Fax,     &clsCustomer::Insured, &clsCustomer::FamilyType,
        &clsCustomer::Memo};
    for (const auto member : compared)
        if (Text::rightTrimmed(customer.*member) != Text::rightTrimmed(stored.*member)) return true;
    return false;
}

bool clsCustomerManager::drawNewId(clsCustomer& customer) {
    customer.CustId = gAutoIdsManager.GetNewId(u"顧客ID"_qs);
    customer.CustSubId = u"1"_qs;
    if (!customer.CustId.isEmpty()) return true;
    ShowMessage(902, u"新規の顧客IDを自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
    return false;
}

// Numbers typed by hand may run ahead of the counter, which then skips them.
bool clsCustomerManager::drawNumber(clsCustomer& customer) {
    if (!customer.CustNo.isEmpty() && customer.CustNo != automaticNumber) return true;
    clsCustomer taken;
    do {
        const QString value = gAutoIdsManager.GetNewId(u"顧客番号"_qs);
        if (value.isEmpty()) {
            ShowMessage(902, u"新規の顧客番号を自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
            return false;
        }
        customer.CustNo = gSysYear + value;
    } while (readFirst(taken, u"顧客番号 = "_qs + sqlText(customer.CustNo)));
    return true;
}

void clsCustomerManager::insertNew(const clsCustomer& customer) { insert(customer, columnsWithout(stamps)); }

void clsCustomerManager::overwrite(const clsCustomer& customer) {
    update(customer, columnsWithout(stamps + keys), keys);
}

bool clsCustomerManager::SaveData(clsCustomer& customer) {
    bool isNew = true;
    if (!customer.CustId.isEmpty()) {
        if (customer.CustSubId.isEmpty()) {
            customer.CustSubId = GetNewSubId(customer.CustId);
        } else {
            clsCustomer stored;
            isNew = !GetData(customer.CustId, customer.CustSubId, stored);
        }
    } else {
        clsCustomer same;
        const qint16 answer = FindSame(customer, same) ? ShowMessage(909, sameQuestion(customer)) : qint16(AnswerNo);
        if (answer == AnswerYes) {
            customer.CustId = same.CustId;
            customer.CustSubId = GetNewSubId(same.CustId);
            customer.CustNo = same.CustNo;
        } else if (answer != AnswerNo || !drawNewId(customer)) {
            return false;
        }
    }
    if (!drawNumber(customer)) return false;
    if (isNew)
        insertNew(customer);
    else
        overwrite(customer);
    return true;
}

// The question is the same one as long as stored and typed values are.
CustomerUpdate clsCustomerManager::askConfirmation(const clsCustomer& stored, const clsCustomer& typed) const {
    if (!confirmUpdate) throw AppError(u"顧客登録確認の画面がありません。"_qs, u"clsCustomerManager"_qs);
    QStringList values;
    for (const Field<clsCustomer>& field : fields()) values << stored.*field.member << typed.*field.member;
    return static_cast<CustomerUpdate>(AskingOutside::ask(
        values.join(u'\t'), [this, stored, typed] { return static_cast<int>(confirmUpdate(stored, typed)); }));
}

bool clsCustomerManager::SaveDataFromEstimate(clsCustomer& customer) {
    clsCustomer stored;
    const bool known = !customer.CustId.isEmpty() && GetData(customer.CustId, customer.CustSubId, stored);
    bool isNew = !known;
    if (!known) {
        if (!drawNewId(customer)) return false;
    } else {
        if (!IsChanged(customer, stored)) return true;
        switch (askConfirmation(stored, customer)) {
        case CustomerUpdate::Closed:
            return false;
        case CustomerUpdate::Overwrite:
            break;
        case CustomerUpdate::NewBranch:
            customer.CustSubId = GetNewSubId(customer.CustId);
            isNew = true;
            break;
        case CustomerUpdate::NewCustomer:
            if (!drawNewId(customer)) return false;
            customer.CustNo.clear();
            isNew = true;
            break;
        }
    }
    if (!drawNumber(customer)) return false;
    if (isNew)
        insertNew(customer);
    else
        overwrite(customer);
    return true;
}

QString clsCustomerManager::SelectContaining(const QString& text) {
    // Kana and letters are stored in both widths; the engines know the two cases of narrow letters only.
    QStringList forms{text, Text::toHalfKana(text), Text::toFullWidth(text.toUpper()),
                      Text::toFullWidth(text.toLower())};
    forms.removeDuplicates();
    QStringList terms;
    for (const QString& column :
         {u"[顧客番号]"_qs, u"([名前1] & '　' & [名前2])"_qs, u"([都道府県] & [市区郡] & [住所1] & [住所2])"_qs,
          u"[電話]"_qs, u"([生年月日] & '')"_qs})
        for (const QString& form : forms) terms << column + u" LIKE '%"_qs + SqlQuote(form, true) + u"%'"_qs;
    return u'(' + terms.join(u" OR "_qs) + u')';
}

qint64 clsCustomerManager::Count(const QString& where) {
    QString sql = u"SELECT COUNT(*) FROM [顧客情報]"_qs;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    return connection().scalar(sql).toLongLong();
}

Recordset clsCustomerManager::GetSelectList(const QString& where, const QString& order) {
    return connection().query(SelectList(where, order));
}

QString clsCustomerManager::SelectList(const QString& where, const QString& order) {
    QString sql = u"SELECT [顧客ID], [顧客枝番], [顧客番号], [名前1] & '　' & [名前2] AS 顧客名,"
                  u" [都道府県] & [市区郡] & [住所1] & [住所2] AS 住所, [電話], [生年月日] FROM [顧客情報]"_qs;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    if (!order.isEmpty()) sql += u" ORDER BY "_qs + order;
    return sql;
}

QString clsCustomerManager::ListWithEst(const QString& where, const QString& order) {
    QStringList columns;
    for (const auto& field : shownWithEst()) columns << u"[顧客情報].[%1]"_qs.arg(field.column);
    QString sql = u" SELECT DISTINCT "_qs + columns.join(u", "_qs) + fromEstimates(ofCustomers);
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    if (!order.isEmpty()) sql += u" ORDER BY "_qs + order;
    return sql;
}

void clsCustomerManager::GetListWithEst(QList<clsCustomer>& result, const QString& where, const QString& order) {
    const QString sql = ListWithEst(where, order);
    WriteSqlLog(sql);
    Recordset rows = connection().query(sql);
    const RecordReader<clsCustomer> reader(rows, shownWithEst());
    while (rows.next()) result << reader.read();
}

QString clsCustomerManager::KeysWithEst(const QString& where, const QString& order) {
    const QString key = u"[顧客情報].[顧客ID] & '|' & [顧客情報].[顧客枝番]"_qs;
    const QString sorted = order.isEmpty() ? order : u" ORDER BY "_qs + order;
    if (namesFewEstimates(where))
        return u"SELECT DISTINCT "_qs + key + (order.isEmpty() ? order : u", "_qs + order) +
               fromEstimates(ofCustomers) + u" WHERE "_qs + where + sorted;
    QString sql = u"SELECT "_qs + key + u" FROM [顧客情報] WHERE "_qs;
    const bool outside = !where.isEmpty() && concernsCustomersAlone(where);
    if (outside) sql += u'(' + where + u") AND "_qs;
    sql +=
        u"EXISTS (SELECT [顧客見積情報].[見積ID]"_qs + fromEstimates(u"[顧客見積情報]"_qs) + u" WHERE "_qs + ofCustomer;
    if (!where.isEmpty() && !outside) sql += u" AND "_qs + where;
    return sql + u')' + sorted;
}

QString clsCustomerManager::Keys(const QString& where, const QString& order) {
    QString sql = u"SELECT [顧客ID] & '|' & [顧客枝番] FROM [顧客情報]"_qs;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    if (!order.isEmpty()) sql += u" ORDER BY "_qs + order;
    return sql;
}

QString clsCustomerManager::listKey(const QString& CustId, const QString& CustSubId) {
    return CustId + u'|' + CustSubId;
}

CustomerKey clsCustomerManager::ofListKey(const QString& listKey) {
    return {listKey.section(u'|', 0, -2), listKey.section(u'|', -1)};
}

QString clsCustomerManager::ofListKeys(const QStringList& listKeys) {
    QStringList ids;
    for (const QString& key : listKeys) ids << sqlText(ofListKey(key).CustId);
    return u"[顧客ID] IN ("_qs + ids.join(u',') + u')';
}

QList<clsCustomer> clsCustomerManager::customersOf(const QStringList& listKeys) {
    QList<clsCustomer> customers;
    if (!listKeys.isEmpty()) GetList(customers, ofListKeys(listKeys));
    return customers;
}
