#include "estimates/EstimateManagers.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/basCommon.h"
#include "db/clsAutoIdsManager.h"

namespace {

const QString estimateKey = u"見積ID"_qs;
const QString itemKey = u"見積種目No"_qs;
const QString elementKey = u"要素No"_qs;
constexpr int idsPerPart = 500;

const QStringList stamps{u"登録日"_qs, u"更新日"_qs};
const QStringList ledgerColumns{u"品名"_qs, u"装具名"_qs, u"支払法名"_qs, u"値引額"_qs, u"売掛区分"_qs};

QString estimateFilter(const QString& EstId) { return u"[見積ID] = "_qs + sqlText(EstId); }

QString estimatesFilter(const QStringList& EstIds) {
    QStringList quoted;
    for (const QString& id : EstIds) quoted << sqlText(id);
    return u"[見積ID] IN ("_qs + quoted.join(u',') + u')';
}

const QList<Field<clsCsEstimate>>& listEstimateFields() {
    static const QList<Field<clsCsEstimate>> fields{
        {&clsCsEstimate::EstId, u"見積ID"_qs},           {&clsCsEstimate::CustId, u"顧客ID"_qs},
        {&clsCsEstimate::CustSubId, u"顧客枝番"_qs},     {&clsCsEstimate::EstNo, u"見積番号"_qs},
        {&clsCsEstimate::EstNm, u"見積名称"_qs},         {&clsCsEstimate::EstSum, u"見積総合計"_qs},
        {&clsCsEstimate::ProcKbnNo, u"処理区分"_qs},     {&clsCsEstimate::PickPtnDate, u"採型日"_qs},
        {&clsCsEstimate::DelvFinDate, u"納品実績日"_qs}, {&clsCsEstimate::ProductCd, u"製品コード"_qs}};
    return fields;
}

const QList<Field<clsCustomer>>& listCustomerFields() {
    static const QList<Field<clsCustomer>> fields{
        {&clsCustomer::CustNo, u"顧客番号"_qs},   {&clsCustomer::CustNm1, u"名前1"_qs},
        {&clsCustomer::CustNm2, u"名前2"_qs},     {&clsCustomer::CustKn1, u"フリガナ1"_qs},
        {&clsCustomer::CustKn2, u"フリガナ2"_qs}, {&clsCustomer::Zip, u"郵便番号"_qs},
        {&clsCustomer::Pref, u"都道府県"_qs},     {&clsCustomer::City, u"市区郡"_qs},
        {&clsCustomer::Addr1, u"住所1"_qs},       {&clsCustomer::Addr2, u"住所2"_qs},
        {&clsCustomer::Tel, u"電話"_qs},          {&clsCustomer::Sex, u"性別"_qs},
        {&clsCustomer::Birth, u"生年月日"_qs}};
    return fields;
}

struct ListJoin {
    QString table;
    QString text;
};

// The tables that a list of estimates can be filtered and sorted by, each after those that it hangs on. They are joined
// one by one: of a join within a join an engine makes a table first, for each part of the list anew.
const QList<ListJoin>& listJoins() {
    static const QList<ListJoin> joins{
        {u"[顧客情報]"_qs, u" LEFT JOIN [顧客情報] ON ([顧客見積情報].[顧客ID] = [顧客情報].[顧客ID])"
                           u" AND ([顧客見積情報].[顧客枝番] = [顧客情報].[顧客枝番])"_qs},
        {u"[顧客カルテ]"_qs, u" LEFT JOIN [顧客カルテ] ON ([顧客見積情報].[顧客ID] = [顧客カルテ].[顧客ID])"
                             u" AND ([顧客見積情報].[顧客枝番] = [顧客カルテ].[顧客枝番])"
                             u" AND ([顧客見積情報].[カルテNo] = [顧客カルテ].[カルテNo])"_qs},
        {u"[受注先]."_qs, u" LEFT JOIN [受注先] ON [顧客カルテ].[受注先No] = [受注先].[受注先No]"_qs},
        {u"[製作担当者]."_qs,
         u" LEFT JOIN [製作担当者] ON [顧客見積情報].[製作担当者No] = [製作担当者].[製作担当者No]"_qs}};
    return joins;
}

// The clauses behind the columns of a list. No join adds or drops a row, so one that nothing asks for stays away.
QString listClauses(const QString& columns, const QString& where, const QString& order) {
    QString asked = columns + where + order;
    QString joined = u"[顧客見積情報]"_qs;
    for (auto join = listJoins().crbegin(); join != listJoins().crend(); ++join)
        if (asked.contains(join->table)) asked += join->text;
    for (const ListJoin& join : listJoins())
        if (asked.contains(join.table)) joined = u'(' + joined + join.text + u')';
    QString sql = u" FROM "_qs + joined;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    if (!order.isEmpty()) sql += u" ORDER BY "_qs + order;
    return sql;
}

QString drawn(const QString& series) {
    const QString number = gAutoIdsManager.GetNewId(series);
    if (number.isEmpty())
        throw AppError(u"新規の%1を自動的に取得できませんでした。"_qs.arg(series), u"clsCsEstimateManager"_qs);
    return number;
}

} // namespace

// Below the names that they are made with.
clsCsEstimateManager gCsEstimateManager;
clsCsItemManager gCsItemManager;
clsCsMakeElmtManager gCsMakeElmtManager;
clsCsCmpltElmtManager gCsCmpltElmtManager;
clsCsEstAskManager gCsEstAskManager;

clsCsEstimateManager::clsCsEstimateManager()
    : TableManager(u"顧客見積情報"_qs, {{&clsCsEstimate::EstId, u"見積ID"_qs},
                                        {&clsCsEstimate::CustId, u"顧客ID"_qs},
                                        {&clsCsEstimate::CustSubId, u"顧客枝番"_qs},
                                        {&clsCsEstimate::ChartNo, u"カルテNo"_qs},
                                        {&clsCsEstimate::GrantNo, u"交付券番号"_qs},
                                        {&clsCsEstimate::EstNo, u"見積番号"_qs},
                                        {&clsCsEstimate::EstNm, u"見積名称"_qs},
                                        {&clsCsEstimate::ProcKbnNo, u"処理区分"_qs},
                                        {&clsCsEstimate::Claim, u"自費請求先"_qs},
                                        {&clsCsEstimate::RecvDate, u"受付日"_qs},
                                        {&clsCsEstimate::EstDate, u"見積作成日"_qs},
                                        {&clsCsEstimate::ProductCd, u"製品コード"_qs},
                                        {&clsCsEstimate::ProducerNo, u"製作担当者No"_qs},
                                        {&clsCsEstimate::ProducerNm, u"製作担当者"_qs},
                                        {&clsCsEstimate::LifeYear, u"耐用年数"_qs},
                                        {&clsCsEstimate::LifeEnd, u"耐用完了日"_qs},
                                        {&clsCsEstimate::PriceSedYear, u"価格設定年度"_qs},
                                        {&clsCsEstimate::Discount1, u"基本割引１"_qs},
                                        {&clsCsEstimate::Discount2, u"基本割引２"_qs},
                                        {&clsCsEstimate::Discount3, u"部品割引"_qs},
                                        {&clsCsEstimate::Tax, u"合計加算"_qs},
                                        {&clsCsEstimate::Total, u"合計"_qs},
                                        {&clsCsEstimate::EstSum, u"見積総合計"_qs},
                                        {&clsCsEstimate::Category, u"部類識別"_qs},
                                        {&clsCsEstimate::Frame, u"骨格殻別"_qs},
                                        {&clsCsEstimate::TickRsvDate, u"券受日"_qs},
                                        {&clsCsEstimate::PickPtnDate, u"採型日"_qs},
                                        {&clsCsEstimate::TmpSetPlnDate, u"仮合予定日"_qs},
                                        {&clsCsEstimate::TmpSetFinDate, u"仮合実績日"_qs},
                                        {&clsCsEstimate::CmpltPlnDate, u"完成予定日"_qs},
                                        {&clsCsEstimate::CmpltFinDate, u"完成実績日"_qs},
                                        {&clsCsEstimate::DelvPlnDate, u"納品予定日"_qs},
                                        {&clsCsEstimate::DelvFinDate, u"納品実績日"_qs},
                                        {&clsCsEstimate::AskPlnDate, u"請求予定日"_qs},
                                        {&clsCsEstimate::AskFinDate, u"請求完了日"_qs},
                                        {&clsCsEstimate::PayInPlnDate, u"入金予定日"_qs},
                                        {&clsCsEstimate::PayInFinDate, u"入金完了日"_qs},
                                        {&clsCsEstimate::EstPrtDate, u"見積書発行日"_qs},
                                        {&clsCsEstimate::ItmPrtDate, u"内訳書発行日"_qs},
                                        {&clsCsEstimate::DtlPrtDate, u"明細書発行日"_qs},
                                        {&clsCsEstimate::OpnPrtDate, u"意見書発行日"_qs},
                                        {&clsCsEstimate::AddDate, u"登録日"_qs},
                                        {&clsCsEstimate::UpdDate, u"更新日"_qs},
                                        {&clsCsEstimate::UpdUserNo, u"編集者No"_qs},
                                        {&clsCsEstimate::Memo, u"備考"_qs},
                                        {&clsCsEstimate::Articles, u"品名"_qs},
                                        {&clsCsEstimate::EquipMent, u"装具名"_qs},
                                        {&clsCsEstimate::Payment, u"支払法名"_qs},
                                        {&clsCsEstimate::Discount, u"値引額"_qs},
                                        {&clsCsEstimate::Urikake, u"売掛区分"_qs},
                                        {&clsCsEstimate::Charge1No, u"担当義肢装具士No"_qs},
                                        {&clsCsEstimate::Charge1Nm, u"担当義肢装具士名"_qs}}) {}

bool clsCsEstimateManager::GetData(const QString& EstId, clsCsEstimate& estimate) {
    return readFirst(estimate, estimateFilter(EstId));
}

void clsCsEstimateManager::SaveData(clsCsEstimate& estimate) {
    const QStringList columns = columnsWithout(stamps + ledgerColumns);
    if (Text::rightTrimmed(estimate.EstId).isEmpty()) {
        estimate.EstId = drawn(u"見積ID"_qs);
        estimate.EstNo = gSysYear + drawn(u"見積番号"_qs);
        insert(estimate, columns);
        return;
    }
    QStringList data = columns;
    data.removeOne(estimateKey);
    update(estimate, data, {estimateKey});
}

void clsCsEstimateManager::DeleteData(const QString& EstId) {
    maker().RemoveAll();
    maker().AddKey(estimateKey, EstId);
    execute(maker().GetSqlForDelete());
}

void clsCsEstimateManager::GetListWithMst(QList<clsCsEstimate>& estimates, QList<clsCustomer>& customers,
                                          QList<clsChart>& charts, const QString& where, const QString& order) {
    ForEachWithMst(where, order,
                   [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
                       estimates << estimate;
                       customers << customer;
                       charts << chart;
                   });
}

QString clsCsEstimateManager::ListWithMst(const QString& where, const QString& order) {
    QStringList columns;
    for (const auto& field : listEstimateFields()) columns << u"[顧客見積情報].[%1]"_qs.arg(field.column);
    for (const auto& field : listCustomerFields()) columns << u"[顧客情報].[%1]"_qs.arg(field.column);
    columns << u"[顧客カルテ].[受注先]"_qs;
    const QString shown = columns.join(u", "_qs);
    return u"SELECT "_qs + shown + listClauses(shown, where, order);
}

QString clsCsEstimateManager::KeysWithMst(const QString& where, const QString& order) {
    return u"SELECT [顧客見積情報].[見積ID]"_qs + listClauses({}, where, order);
}

QStringList clsCsEstimateManager::IdsWithMst(const QString& where, const QString& order) {
    const QString sql = KeysWithMst(where, order);
    WriteSqlLog(sql);
    Recordset rows = connection().query(sql);
    QStringList ids;
    while (rows.next()) ids << rows.value(0);
    return ids;
}

void clsCsEstimateManager::ForEachOf(const QStringList& ids, const ListRow& take, const std::function<bool()>& pause,
                                     const std::function<void(const QStringList&)>& begin) {
    struct Row {
        clsCsEstimate estimate;
        clsCustomer customer;
        clsChart chart;
    };
    for (qsizetype start = 0; start < ids.size(); start += idsPerPart) {
        const QStringList part = ids.mid(start, idsPerPart);
        if (begin) begin(part);
        QHash<QString, Row> rows;
        ForEachWithMst(u"[顧客見積情報]."_qs + estimatesFilter(part), {},
                       [&rows](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
                           rows.insert(estimate.EstId, {estimate, customer, chart});
                       });
        for (const QString& id : part)
            if (const auto row = rows.constFind(id); row != rows.constEnd())
                take(row->estimate, row->customer, row->chart);
        if (pause && !pause()) return;
    }
}

qint64 clsCsEstimateManager::CountWithMst(const QString& where) {
    const QString sql = u"SELECT COUNT(*)"_qs + listClauses({}, where, {});
    WriteSqlLog(sql);
    return connection().scalar(sql).toLongLong();
}

void clsCsEstimateManager::ForEachWithMst(const QString& where, const QString& order, const ListRow& take) {
    const QString sql = ListWithMst(where, order);
    WriteSqlLog(sql);
    Recordset rows = connection().query(sql);
    const RecordReader<clsCsEstimate> estimates(rows, listEstimateFields());
    const RecordReader<clsCustomer> customers(rows, listCustomerFields());
    const RecordReader<clsChart> charts(rows, {{&clsChart::OrderNm, u"受注先"_qs}});
    while (rows.next()) take(estimates.read(), customers.read(), charts.read());
}

void clsCsEstimateManager::UpdPayDate(const QString& EstId, const QString& PayDate, const QString& UpdUserNo,
                                      bool Flag) {
    maker().RemoveAll();
    if (!PayDate.isEmpty())
        maker().AddData(u"処理区分"_qs, u"1"_qs);
    else if (Flag)
        maker().AddData(u"処理区分"_qs, u"99"_qs);
    maker().AddData(u"入金完了日"_qs, PayDate);
    maker().AddData(u"編集者No"_qs, UpdUserNo);
    maker().AddKey(estimateKey, EstId);
    execute(maker().GetSqlForUpdate());
}

void clsCsEstimateManager::UpUrikake(const QString& EstId, const QString& Articles, const QString& EquipMent,
                                     const QString& Payment, const QString& Discount, const QString& Urikake) {
    clsCsEstimate estimate;
    estimate.EstId = EstId;
    estimate.Articles = Articles;
    estimate.EquipMent = EquipMent;
    estimate.Payment = Payment;
    estimate.Discount = Discount;
    estimate.Urikake = Urikake;
    update(estimate, ledgerColumns, {estimateKey});
}

void clsCsEstimateManager::GetInsData(const QString& EstId, QString& InsList, const QString& strExcInsList,
                                      bool& Excluded) {
    const QString sql = u" SELECT [法別].[法別] FROM (([顧客見積情報] INNER JOIN [顧客見積請求]"
                        u" ON [顧客見積情報].[見積ID] = [顧客見積請求].[見積ID])"
                        u" INNER JOIN [法別] ON [顧客見積請求].[法別No] = [法別].[法別No])"
                        u" WHERE [顧客見積情報].[見積ID] = "_qs +
                        sqlText(EstId) + u" ORDER BY [法別].[法別No];"_qs;
    WriteSqlLog(sql);
    Recordset rows = connection().query(sql);
    while (rows.next()) {
        const QString name = rows.value(u"法別"_qs);
        if (!InsList.isEmpty()) InsList += u',';
        InsList += name.left(2);
        if (!name.isEmpty() && strExcInsList.contains(name)) Excluded = true;
    }
}

clsCsItemManager::clsCsItemManager()
    : EstimateRowManager(u"顧客見積種目"_qs,
                         {{&clsCsItem::EstId, u"見積ID"_qs},
                          {&clsCsItem::EstItemNo, u"見積種目No"_qs},
                          {&clsCsItem::Item, u"種目"_qs},
                          {&clsCsItem::PickKbn, u"採型区分"_qs},
                          {&clsCsItem::Name, u"名称"_qs},
                          {&clsCsItem::Form, u"形式"_qs},
                          {&clsCsItem::PickStyle, u"採型採寸"_qs},
                          {&clsCsItem::GrantRepair, u"交付修理"_qs},
                          {&clsCsItem::MkElmTotal, u"製作要素小計"_qs},
                          {&clsCsItem::CpElmTotal, u"完成要素小計"_qs}},
                         {estimateKey, itemKey}) {}

clsCsMakeElmtManager::clsCsMakeElmtManager()
    : EstimateRowManager(u"顧客見積基本製作要素"_qs,
                         {{&clsCsMakeElmt::EstId, u"見積ID"_qs},
                          {&clsCsMakeElmt::EstItemNo, u"見積種目No"_qs},
                          {&clsCsMakeElmt::ElmtNo, u"要素No"_qs},
                          {&clsCsMakeElmt::MakeElmt, u"製作要素"_qs},
                          {&clsCsMakeElmt::Materials, u"原材料等"_qs},
                          {&clsCsMakeElmt::Suryo, u"数量"_qs},
                          {&clsCsMakeElmt::Price, u"価格"_qs}},
                         {estimateKey, itemKey, elementKey}) {}

clsCsCmpltElmtManager::clsCsCmpltElmtManager()
    : EstimateRowManager(u"顧客見積完成要素"_qs,
                         {{&clsCsCmpltElmt::EstId, u"見積ID"_qs},
                          {&clsCsCmpltElmt::EstItemNo, u"見積種目No"_qs},
                          {&clsCsCmpltElmt::ElmtNo, u"要素No"_qs},
                          {&clsCsCmpltElmt::PartsNm, u"部品名称"_qs},
                          {&clsCsCmpltElmt::Form, u"形式等"_qs},
                          {&clsCsCmpltElmt::MakerNm, u"メーカー名"_qs},
                          {&clsCsCmpltElmt::PartsCd, u"部品コード"_qs},
                          {&clsCsCmpltElmt::Suryo, u"数量"_qs},
                          {&clsCsCmpltElmt::Price, u"価格"_qs}},
                         {estimateKey, itemKey, elementKey}) {}

clsCsEstAskManager::clsCsEstAskManager()
    : EstimateRowManager(u"顧客見積請求"_qs,
                         {{&clsCsEstAsk::EstId, u"見積ID"_qs},
                          {&clsCsEstAsk::AskNo, u"請求No"_qs},
                          {&clsCsEstAsk::InsNo, u"法別No"_qs},
                          {&clsCsEstAsk::ClaimNo, u"請求先No"_qs},
                          {&clsCsEstAsk::ClaimNm, u"請求先"_qs},
                          {&clsCsEstAsk::AskDate, u"請求日"_qs},
                          {&clsCsEstAsk::AskPrice, u"請求金額"_qs},
                          {&clsCsEstAsk::AskPrtDate, u"請求書発行日"_qs},
                          {&clsCsEstAsk::PayDate, u"入金日"_qs},
                          {&clsCsEstAsk::PayPrice, u"領収金額"_qs},
                          {&clsCsEstAsk::PayPrtDate, u"領収書発行日"_qs}},
                         {estimateKey, u"請求No"_qs}) {}

QHash<QString, QList<clsCsEstAsk>> clsCsEstAskManager::ClaimsOf(const QStringList& EstIds) {
    QHash<QString, QList<clsCsEstAsk>> claims;
    if (EstIds.isEmpty()) return claims;
    QList<clsCsEstAsk> rows;
    GetList(rows, estimatesFilter(EstIds), u"[見積ID],[請求No]"_qs);
    for (const clsCsEstAsk& row : rows) claims[row.EstId] << row;
    return claims;
}

void clsCsEstAskManager::UpdPayDate(const QString& EstId, const QString& PayDate) {
    maker().RemoveAll();
    maker().AddData(u"入金日"_qs, PayDate);
    maker().AddKey(estimateKey, EstId);
    maker().AddKey(u"入金日"_qs, QString());
    execute(maker().GetSqlForUpdate());
}

void clsCsEstAskManager::UpdPayDate2(const QString& EstId, const QString& EstSum) {
    maker().RemoveAll();
    maker().AddData(u"領収金額"_qs, EstSum);
    maker().AddKey(estimateKey, EstId);
    execute(maker().GetSqlForUpdate() + u" AND [請求No]=1"_qs);
}
