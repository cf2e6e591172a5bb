#include "estimates/EstimateManagers.h"

#include "customers/EstimateTables.h"
#include "estimates/ListedLaws.h"

clsCsEstimateManager gCsEstimateManager;
clsCsItemManager gCsItemManager;
clsCsMakeElmtManager gCsMakeElmtManager;
clsCsCmpltElmtManager gCsCmpltElmtManager;
clsCsEstAskManager gCsEstAskManager;

namespace {

constexpr int idsPerPart = 500;

const QStringList ledgerColumns{u"品名"_qs, u"装具名"_qs, u"支払法名"_qs, u"値引額"_qs, u"売掛区分"_qs};

// Their columns one behind the other.
SqlTerm columnsOf(const clsCsEstimateManager::ListFields& fields) {
    QList<SqlTerm> columns;
    for (const auto& field : fields.estimate) columns << gCsEstimateManager.column(field.member);
    for (const auto& field : fields.customer) columns << gCustomerManager.column(field.member);
    for (const auto& field : fields.chart) columns << gChartManager.column(field.member);
    return SqlTerm::joined(columns, u", "_qs);
}

// Columns of a list, of estimates joined with what the columns, the condition and the order name.
QString selectListed(const SqlTerm& shown, const SqlTerm& where, const SqlTerm& sort = {}) {
    const SqlTerm asked = SqlTerm::joined({shown, where, sort}, {});
    const SqlReference customer = customerOfEstimate();
    const QString estimates = asked.names(customer.other) ? customer.leftJoin(estimateTable) : estimateTable;
    return SqlSelect(u"SELECT "_qs + shown.text() + u" FROM "_qs + withNamedTables(estimates, asked), where, sort);
}

} // namespace

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

bool clsCsEstimateManager::GetData(const QString& EstId, clsCsEstimate& estimate) { return get({EstId}, estimate); }

void clsCsEstimateManager::SaveData(clsCsEstimate& estimate) {
    if (!Text::rightTrimmed(estimate.EstId).isEmpty()) return update(estimate, dataColumns(ledgerColumns));
    estimate.EstId = drawNeeded(u"見積ID"_qs);
    estimate.EstNo = drawNeeded(u"見積番号"_qs, Series::Yearly);
    insert(estimate, newColumns(ledgerColumns));
}

void clsCsEstimateManager::DeleteData(const QString& EstId) { remove({EstId}); }

SqlTerm clsCsEstimateManager::ListOrder(const QList<SqlColumn>& columns, bool upwards) const {
    return SqlTerm::joined({SqlSorted(columns, upwards), byKey()}, u", "_qs);
}

void clsCsEstimateManager::GetListWithMst(QList<clsCsEstimate>& estimates, QList<clsCustomer>& customers,
                                          QList<clsChart>& charts, const SqlTerm& where, const SqlTerm& sort) {
    ForEachWithMst(where, sort, [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
        estimates << estimate;
        customers << customer;
        charts << chart;
    });
}

const clsCsEstimateManager::ListFields& clsCsEstimateManager::listFields() {
    static const ListFields fields{
        gCsEstimateManager.fieldsOf({&clsCsEstimate::EstId, &clsCsEstimate::CustId, &clsCsEstimate::CustSubId,
                                     &clsCsEstimate::EstNo, &clsCsEstimate::EstNm, &clsCsEstimate::EstSum,
                                     &clsCsEstimate::ProcKbnNo, &clsCsEstimate::PickPtnDate,
                                     &clsCsEstimate::DelvFinDate, &clsCsEstimate::ProductCd}),
        gCustomerManager.fieldsOf({&clsCustomer::CustNo, &clsCustomer::CustNm1, &clsCustomer::CustNm2,
                                   &clsCustomer::CustKn1, &clsCustomer::CustKn2, &clsCustomer::Zip, &clsCustomer::Pref,
                                   &clsCustomer::City, &clsCustomer::Addr1, &clsCustomer::Addr2, &clsCustomer::Tel,
                                   &clsCustomer::Sex, &clsCustomer::Birth}),
        gChartManager.fieldsOf({&clsChart::OrderNm})};
    return fields;
}

QString clsCsEstimateManager::ListWithMst(const SqlTerm& where, const SqlTerm& sort) {
    return selectListed(columnsOf(listFields()), where, sort);
}

QString clsCsEstimateManager::KeysWithMst(const SqlTerm& where, const SqlTerm& sort) {
    return selectListed(gCsEstimateManager.byKey(), where, sort);
}

QStringList clsCsEstimateManager::IdsWithMst(const SqlTerm& where, const SqlTerm& sort) {
    Recordset rows = query(KeysWithMst(where, sort));
    QStringList ids;
    while (rows.next()) ids << rows.value(0);
    return ids;
}

void clsCsEstimateManager::ForEachOf(const QStringList& ids, const ListRow& take, const std::function<bool()>& pause,
                                     const std::function<void(const QStringList&)>& begin, const ListFields& fields) {
    struct Row {
        clsCsEstimate estimate;
        clsCustomer customer;
        clsChart chart;
    };
    for (qsizetype start = 0; start < ids.size(); start += idsPerPart) {
        const QStringList part = ids.mid(start, idsPerPart);
        if (begin) begin(part);
        QHash<QString, Row> rows;
        forEach(fields, SqlOneOf(column(&clsCsEstimate::EstId), part), {},
                [&rows](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
                    rows.insert(estimate.EstId, {estimate, customer, chart});
                });
        for (const QString& id : part)
            if (const auto row = rows.constFind(id); row != rows.constEnd())
                take(row->estimate, row->customer, row->chart);
        if (pause && !pause()) return;
    }
}

qint64 clsCsEstimateManager::CountWithMst(const SqlTerm& where) {
    return scalar(selectListed(SqlTerm(u"COUNT(*)"_qs, {}), where)).toLongLong();
}

void clsCsEstimateManager::ForEachWithMst(const SqlTerm& where, const SqlTerm& sort, const ListRow& take) {
    forEach(listFields(), where, sort, take);
}

void clsCsEstimateManager::forEach(const ListFields& fields, const SqlTerm& where, const SqlTerm& sort,
                                   const ListRow& take) {
    Recordset rows = query(selectListed(columnsOf(fields), where, sort));
    const RecordReader<clsCsEstimate> estimates(rows, fields.estimate);
    const RecordReader<clsCustomer> customers(rows, fields.customer);
    const RecordReader<clsChart> charts(rows, fields.chart);
    while (rows.next()) take(estimates.read(), customers.read(), charts.read());
}

Recordset clsCsEstimateManager::GetProductList(const QString& ProductCd) {
    const SqlColumn code{u"マスタ見積情報"_qs, u"製品コード"_qs};
    return query(SqlSelect(u"SELECT [製品ID], [製品コード], [製品名称] FROM [マスタ見積情報]"_qs,
                           SqlStartsWith(code, ProductCd), code));
}

void clsCsEstimateManager::UpdPayDate(const QString& EstId, const QString& PayDate, const QString& UpdUserNo,
                                      bool Flag) {
    clsCsEstimate paid;
    paid.EstId = EstId;
    paid.ProcKbnNo = PayDate.isEmpty() ? u"99"_qs : u"1"_qs;
    paid.PayInFinDate = PayDate;
    paid.UpdUserNo = UpdUserNo;
    QStringList columns{u"入金完了日"_qs, u"編集者No"_qs};
    if (Flag || !PayDate.isEmpty()) columns << u"処理区分"_qs;
    update(paid, columns);
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
    update(estimate, ledgerColumns);
}

void clsCsEstimateManager::GetInsData(const QString& EstId, QString& InsList, const QString& strExcInsList,
                                      bool& Excluded) {
    Recordset rows = query(SqlSelect(u"SELECT [法別].[法別] FROM (([顧客見積情報] INNER JOIN [顧客見積請求]"
                                     u" ON [顧客見積情報].[見積ID] = [顧客見積請求].[見積ID])"
                                     u" INNER JOIN [法別] ON [顧客見積請求].[法別No] = [法別].[法別No])"_qs,
                                     keyed({EstId}), u"[法別].[法別No]"_qs));
    ListedLaws laws{InsList, Excluded};
    while (rows.next()) laws.add(rows.value(u"法別"_qs), strExcInsList);
    InsList = laws.shown;
    Excluded = laws.excluded;
}

clsCsItemManager::clsCsItemManager()
    : OwnedRowsManager(u"顧客見積種目"_qs, {{&clsCsItem::EstId, u"見積ID"_qs},
                                            {&clsCsItem::EstItemNo, u"見積種目No"_qs},
                                            {&clsCsItem::Item, u"種目"_qs},
                                            {&clsCsItem::PickKbn, u"採型区分"_qs},
                                            {&clsCsItem::Name, u"名称"_qs},
                                            {&clsCsItem::Form, u"形式"_qs},
                                            {&clsCsItem::PickStyle, u"採型採寸"_qs},
                                            {&clsCsItem::GrantRepair, u"交付修理"_qs},
                                            {&clsCsItem::MkElmTotal, u"製作要素小計"_qs},
                                            {&clsCsItem::CpElmTotal, u"完成要素小計"_qs}}) {}

clsCsMakeElmtManager::clsCsMakeElmtManager()
    : OwnedRowsManager(u"顧客見積基本製作要素"_qs, {{&clsCsMakeElmt::EstId, u"見積ID"_qs},
                                                    {&clsCsMakeElmt::EstItemNo, u"見積種目No"_qs},
                                                    {&clsCsMakeElmt::ElmtNo, u"要素No"_qs},
                                                    {&clsCsMakeElmt::MakeElmt, u"製作要素"_qs},
                                                    {&clsCsMakeElmt::Materials, u"原材料等"_qs},
                                                    {&clsCsMakeElmt::Suryo, u"数量"_qs},
                                                    {&clsCsMakeElmt::Price, u"価格"_qs}}) {}

clsCsCmpltElmtManager::clsCsCmpltElmtManager()
    : OwnedRowsManager(u"顧客見積完成要素"_qs, {{&clsCsCmpltElmt::EstId, u"見積ID"_qs},
                                                {&clsCsCmpltElmt::EstItemNo, u"見積種目No"_qs},
                                                {&clsCsCmpltElmt::ElmtNo, u"要素No"_qs},
                                                {&clsCsCmpltElmt::PartsNm, u"部品名称"_qs},
                                                {&clsCsCmpltElmt::Form, u"形式等"_qs},
                                                {&clsCsCmpltElmt::MakerNm, u"メーカー名"_qs},
                                                {&clsCsCmpltElmt::PartsCd, u"部品コード"_qs},
                                                {&clsCsCmpltElmt::Suryo, u"数量"_qs},
                                                {&clsCsCmpltElmt::Price, u"価格"_qs}}) {}

clsCsEstAskManager::clsCsEstAskManager()
    : OwnedRowsManager(u"顧客見積請求"_qs, {{&clsCsEstAsk::EstId, u"見積ID"_qs},
                                            {&clsCsEstAsk::AskNo, u"請求No"_qs},
                                            {&clsCsEstAsk::InsNo, u"法別No"_qs},
                                            {&clsCsEstAsk::ClaimNo, u"請求先No"_qs},
                                            {&clsCsEstAsk::ClaimNm, u"請求先"_qs},
                                            {&clsCsEstAsk::AskDate, u"請求日"_qs},
                                            {&clsCsEstAsk::AskPrice, u"請求金額"_qs},
                                            {&clsCsEstAsk::AskPrtDate, u"請求書発行日"_qs},
                                            {&clsCsEstAsk::PayDate, u"入金日"_qs},
                                            {&clsCsEstAsk::PayPrice, u"領収金額"_qs},
                                            {&clsCsEstAsk::PayPrtDate, u"領収書発行日"_qs}}) {}

QHash<QString, QList<clsCsEstAsk>> clsCsEstAskManager::ClaimsOf(const QStringList& EstIds) {
    QHash<QString, QList<clsCsEstAsk>> claims;
    if (EstIds.isEmpty()) return claims;
    QList<clsCsEstAsk> rows;
    GetList(rows, SqlOneOf(column(&clsCsEstAsk::EstId), EstIds), byKey());
    for (const clsCsEstAsk& row : rows) claims[row.EstId] << row;
    return claims;
}

void clsCsEstAskManager::UpdPayDate(const QString& EstId, const QString& PayDate) {
    sql().RemoveAll();
    sql().AddData(u"入金日"_qs, PayDate);
    sql().AddKey(u"見積ID"_qs, EstId);
    sql().AddKey(u"入金日"_qs, QString());
    execute(sql().GetSqlForUpdate());
}

void clsCsEstAskManager::UpdPayDate2(const QString& EstId, const QString& EstSum) {
    clsCsEstAsk first;
    first.PayPrice = EstSum;
    update(first, {u"領収金額"_qs}, {EstId, u"1"_qs});
}
