#include "master/MasterManagers.h"

clsMstEstimateManager gMstEstimateManager;
clsMstItemManager gMstItemManager;
clsMstMakeElmtManager gMstMakeElmtManager;
clsMstCmpltElmtManager gMstCmpltElmtManager;

clsMstEstimateManager::clsMstEstimateManager()
    : TableManager(u"マスタ見積情報"_qs, {{&clsMstEstimate::ProductId, u"製品ID"_qs},
                                          {&clsMstEstimate::ProductCd, u"製品コード"_qs},
                                          {&clsMstEstimate::ProductNm, u"製品名称"_qs},
                                          {&clsMstEstimate::PriceSedYear, u"価格設定年度"_qs},
                                          {&clsMstEstimate::PriceSmall, u"小人価格"_qs},
                                          {&clsMstEstimate::PriceMiddle, u"中人価格"_qs},
                                          {&clsMstEstimate::PriceBig, u"大人価格"_qs},
                                          {&clsMstEstimate::AddDate, u"登録日"_qs},
                                          {&clsMstEstimate::UpdDate, u"更新日"_qs},
                                          {&clsMstEstimate::UpdUserNo, u"編集者No"_qs},
                                          {&clsMstEstimate::Memo, u"備考"_qs}}) {}

void clsMstEstimateManager::GetList(QList<clsMstEstimate>& MstEsts, const SqlTerm& where, const SqlTerm& sort) {
    readOrdered(MstEsts, where, sort);
}

bool clsMstEstimateManager::GetData(const QString& ProductId, clsMstEstimate& MstEst) {
    return get({ProductId}, MstEst);
}

Recordset clsMstEstimateManager::GetSelectList(const SqlTerm& where, const SqlTerm& sort) {
    return query(SqlSelect(
        u"SELECT [製品ID], [製品コード], [製品名称], [小人価格], [中人価格], [大人価格] FROM [マスタ見積情報]"_qs,
        where, sort));
}

QList<clsMstEstimate> clsMstEstimateManager::mastersOf(const QStringList& ProductIds) {
    QList<clsMstEstimate> masters;
    if (!ProductIds.isEmpty()) GetList(masters, SqlOneOf(column(&clsMstEstimate::ProductId), ProductIds), byKey());
    return masters;
}

QString clsMstEstimateManager::Keys(const SqlTerm& where, const SqlTerm& sort) {
    return SqlSelect(u"SELECT [製品ID] FROM [マスタ見積情報]"_qs, where, sort);
}

QString clsMstEstimateManager::idOfCode(const QString& ProductCd) {
    if (Text::rightTrimmed(ProductCd).isEmpty()) return {}; // no code is no code in common
    QList<clsMstEstimate> found;
    GetList(found, equal(&clsMstEstimate::ProductCd, ProductCd), column(&clsMstEstimate::ProductCd));
    return found.isEmpty() ? QString() : found.first().ProductId;
}

void clsMstEstimateManager::SaveData(clsMstEstimate& MstEst) {
    if (const QString known = idOfCode(MstEst.ProductCd); !known.isEmpty()) MstEst.ProductId = known;
    if (!Text::rightTrimmed(MstEst.ProductId).isEmpty()) return update(MstEst);
    MstEst.ProductId = drawNeeded(u"製品ID"_qs);
    insert(MstEst);
}

void clsMstEstimateManager::DeleteData(const QString& ProductId) { remove({ProductId}); }

clsMstItemManager::clsMstItemManager()
    : OwnedRowsManager(u"マスタ見積種目"_qs, {{&clsMstItem::ProductId, u"製品ID"_qs},
                                              {&clsMstItem::ProductItemNo, u"製品種目No"_qs},
                                              {&clsMstItem::Item, u"種目"_qs},
                                              {&clsMstItem::PickKbn, u"採型区分"_qs},
                                              {&clsMstItem::Name, u"名称"_qs},
                                              {&clsMstItem::Form, u"形式"_qs},
                                              {&clsMstItem::PickStyle, u"採型採寸"_qs},
                                              {&clsMstItem::GrantRepair, u"交付修理"_qs}}) {}

clsMstMakeElmtManager::clsMstMakeElmtManager()
    : OwnedRowsManager(u"マスタ見積基本製作要素"_qs, {{&clsMstMakeElmt::ProductId, u"製品ID"_qs},
                                                      {&clsMstMakeElmt::ProductItemNo, u"製品種目No"_qs},
                                                      {&clsMstMakeElmt::ElmtNo, u"要素No"_qs},
                                                      {&clsMstMakeElmt::MakeElmt, u"製作要素"_qs},
                                                      {&clsMstMakeElmt::Materials, u"原材料等"_qs},
                                                      {&clsMstMakeElmt::Suryo, u"数量"_qs},
                                                      {&clsMstMakeElmt::PriceSmall, u"小人価格"_qs},
                                                      {&clsMstMakeElmt::PriceMiddle, u"中人価格"_qs},
                                                      {&clsMstMakeElmt::PriceBig, u"大人価格"_qs}}) {}

void clsMstMakeElmtManager::SaveData2(const clsMstMakeElmt& line) {
    update(line, {u"小人価格"_qs, u"中人価格"_qs, u"大人価格"_qs});
}

clsMstCmpltElmtManager::clsMstCmpltElmtManager()
    : OwnedRowsManager(u"マスタ見積完成要素"_qs, {{&clsMstCmpltElmt::ProductId, u"製品ID"_qs},
                                                  {&clsMstCmpltElmt::ProductItemNo, u"製品種目No"_qs},
                                                  {&clsMstCmpltElmt::ElmtNo, u"要素No"_qs},
                                                  {&clsMstCmpltElmt::PartsNm, u"部品名称"_qs},
                                                  {&clsMstCmpltElmt::Form, u"形式等"_qs},
                                                  {&clsMstCmpltElmt::MakerNm, u"メーカー名"_qs},
                                                  {&clsMstCmpltElmt::PartsCd, u"部品コード"_qs},
                                                  {&clsMstCmpltElmt::Suryo, u"数量"_qs},
                                                  {&clsMstCmpltElmt::Price, u"価格"_qs}}) {}

void clsMstCmpltElmtManager::SaveData2(const clsMstCmpltElmt& line) { update(line, {u"価格"_qs}); }
