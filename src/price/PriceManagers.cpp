#include "price/PriceManagers.h"

clsPriceItemManager gPriceItemManager;
clsPriceBaseManager gPriceBaseManager;
clsPriceAddManager gPriceAddManager;
clsPriceElmtManager gPriceElmtManager;
clsPricePartsManager gPricePartsManager;
clsBaseElmtSelectManager gBaseElmtSelectManager;

namespace {

// The stamps and the flag that all price rows end with.
template <class Record> QList<Field<Record>> withStamps(QList<Field<Record>> fields) {
    return fields << Field<Record>{&Record::AddDate, u"登録日"_qs} << Field<Record>{&Record::UpdDate, u"更新日"_qs}
                  << Field<Record>{&Record::UpdUserNo, u"編集者No"_qs} << Field<Record>{&Record::UseFlg, u"有効Flg"_qs};
}

template <class Record> QList<Field<Record>> threePrices() {
    return {{&Record::NewPrice1, u"新価格１"_qs}, {&Record::NewPrice2, u"新価格２"_qs}, {&Record::NewPrice3, u"新価格３"_qs},
            {&Record::OldPrice1, u"旧価格１"_qs}, {&Record::OldPrice2, u"旧価格２"_qs}, {&Record::OldPrice3, u"旧価格３"_qs}};
}

// "[種目] = 'a' AND [採型区分] = 'b'" of the given pairs.
QString allEqual(const QList<std::pair<QString, QString>>& pairs) {
    QStringList terms;
    for (const auto& [column, value] : pairs) terms << column + u" = "_qs + sqlText(value);
    return terms.join(u" AND "_qs);
}

const QString valid = u"有効Flg = 0 AND "_qs;
const QString usable = u" AND 使用設定 = 1 AND 有効Flg = 0"_qs;

} // namespace

clsPriceItemManager::clsPriceItemManager()
    : PriceManager(u"価格種目"_qs, withStamps<clsPriceItem>({{&clsPriceItem::ID, u"ID"_qs},
                                                             {&clsPriceItem::Item, u"種目"_qs},
                                                             {&clsPriceItem::PickKbn, u"採型区分"_qs},
                                                             {&clsPriceItem::Name, u"名称"_qs},
                                                             {&clsPriceItem::Form, u"形式"_qs}})) {}

void clsPriceItemManager::GetItemGrpList(QList<clsPriceItem>& result, const QString& where) {
    groupList(result, u"種目"_qs, &clsPriceItem::Item, where);
}

void clsPriceItemManager::GetPickKbnGrpList(QList<clsPriceItem>& result, const QString& where) {
    groupList(result, u"採型区分"_qs, &clsPriceItem::PickKbn, where);
}

void clsPriceItemManager::GetNameGrpList(QList<clsPriceItem>& result, const QString& where) {
    groupList(result, u"名称"_qs, &clsPriceItem::Name, where);
}

void clsPriceItemManager::GetFormGrpList(QList<clsPriceItem>& result, const QString& where) {
    groupList(result, u"形式"_qs, &clsPriceItem::Form, where);
}

void clsPriceItemManager::GetListSumItem(QList<clsPriceItem>& result) {
    sumList(result, u"種目"_qs, &clsPriceItem::Item, {});
}

void clsPriceItemManager::GetListSumPickPtnKbn(QList<clsPriceItem>& result, const QString& Item) {
    sumList(result, u"採型区分"_qs, &clsPriceItem::PickKbn, valid + allEqual({{u"種目"_qs, Item}}));
}

void clsPriceItemManager::GetListSumName(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn) {
    sumList(result, u"名称"_qs, &clsPriceItem::Name,
            valid + allEqual({{u"種目"_qs, Item}, {u"採型区分"_qs, PickPtnKbn}}));
}

void clsPriceItemManager::GetListSumForm(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn,
                                         const QString& Name) {
    sumList(result, u"形式"_qs, &clsPriceItem::Form,
            valid + allEqual({{u"種目"_qs, Item}, {u"採型区分"_qs, PickPtnKbn}, {u"名称"_qs, Name}}));
}

clsPriceBaseManager::clsPriceBaseManager()
    : PriceManager(u"価格基本"_qs, withStamps<clsPriceBase>(QList<Field<clsPriceBase>>{
                                       {&clsPriceBase::ID, u"ID"_qs},
                                       {&clsPriceBase::Seq, u"順番"_qs},
                                       {&clsPriceBase::Item, u"種目"_qs},
                                       {&clsPriceBase::PickKbn, u"採型区分"_qs},
                                       {&clsPriceBase::Name, u"名称"_qs},
                                       {&clsPriceBase::Form, u"形式"_qs},
                                       {&clsPriceBase::Apply, u"適用"_qs},
                                       {&clsPriceBase::PickStyle, u"採型採寸区分"_qs}} +
                                   threePrices<clsPriceBase>())) {}

void clsPriceBaseManager::GetItemGrpList(QList<clsPriceBase>& result, const QString& where) {
    groupList(result, u"種目"_qs, &clsPriceBase::Item, where);
}

void clsPriceBaseManager::GetPickKbnGrpList(QList<clsPriceBase>& result, const QString& where) {
    groupList(result, u"採型区分"_qs, &clsPriceBase::PickKbn, where);
}

void clsPriceBaseManager::GetNameGrpList(QList<clsPriceBase>& result, const QString& where) {
    groupList(result, u"名称"_qs, &clsPriceBase::Name, where);
}

void clsPriceBaseManager::GetFormGrpList(QList<clsPriceBase>& result, const QString& where) {
    groupList(result, u"形式"_qs, &clsPriceBase::Form, where);
}

void clsPriceBaseManager::GetItemPickKbnGrpList(QList<clsPriceBase>& result, const QString& where) {
    combinedList(result, {{&clsPriceBase::Item, u"種目"_qs}, {&clsPriceBase::PickKbn, u"採型区分"_qs}}, where);
}

clsPriceAddManager::clsPriceAddManager()
    : PriceManager(u"価格加算"_qs, withStamps<clsPriceAdd>({{&clsPriceAdd::ID, u"ID"_qs},
                                                            {&clsPriceAdd::Seq, u"順番"_qs},
                                                            {&clsPriceAdd::Item, u"種目"_qs},
                                                            {&clsPriceAdd::PickKbn, u"採型区分"_qs},
                                                            {&clsPriceAdd::AddElmt, u"加算要素"_qs},
                                                            {&clsPriceAdd::GrantRepair, u"交付修理区分"_qs},
                                                            {&clsPriceAdd::NewPrice, u"新価格"_qs},
                                                            {&clsPriceAdd::OldPrice, u"旧価格"_qs}})) {}

void clsPriceAddManager::GetItemGrpList(QList<clsPriceAdd>& result, const QString& where) {
    groupList(result, u"種目"_qs, &clsPriceAdd::Item, where);
}

void clsPriceAddManager::GetPickKbnGrpList(QList<clsPriceAdd>& result, const QString& where) {
    groupList(result, u"採型区分"_qs, &clsPriceAdd::PickKbn, where);
}

void clsPriceAddManager::GetAddElmtGrpList(QList<clsPriceAdd>& result, const QString& where) {
    groupList(result, u"加算要素"_qs, &clsPriceAdd::AddElmt, where);
}

void clsPriceAddManager::GetItemPickKbnAddElmtGrpList(QList<clsPriceAdd>& result, const QString& where) {
    combinedList(result,
                 {{&clsPriceAdd::Item, u"種目"_qs},
                  {&clsPriceAdd::PickKbn, u"採型区分"_qs},
                  {&clsPriceAdd::AddElmt, u"加算要素"_qs}},
                 where);
}

clsPriceElmtManager::clsPriceElmtManager()
    : PriceManager(u"価格要素"_qs,
                   withStamps<clsPriceElmt>(QList<Field<clsPriceElmt>>{{&clsPriceElmt::ID, u"ID"_qs},
                                                                       {&clsPriceElmt::Seq, u"順番"_qs},
                                                                       {&clsPriceElmt::Item, u"種目"_qs},
                                                                       {&clsPriceElmt::PickKbn, u"採型区分"_qs},
                                                                       {&clsPriceElmt::MakeElmt, u"製作要素"_qs},
                                                                       {&clsPriceElmt::Materials, u"原材料"_qs}} +
                                            threePrices<clsPriceElmt>())) {}

void clsPriceElmtManager::GetItemGrpList(QList<clsPriceElmt>& result, const QString& where) {
    groupList(result, u"種目"_qs, &clsPriceElmt::Item, where);
}

void clsPriceElmtManager::GetPickKbnGrpList(QList<clsPriceElmt>& result, const QString& where) {
    groupList(result, u"採型区分"_qs, &clsPriceElmt::PickKbn, where);
}

void clsPriceElmtManager::GetMakeElmtGrpList(QList<clsPriceElmt>& result, const QString& where) {
    groupList(result, u"製作要素"_qs, &clsPriceElmt::MakeElmt, where);
}

void clsPriceElmtManager::GetMaterialsGrpList(QList<clsPriceElmt>& result, const QString& where) {
    groupList(result, u"原材料"_qs, &clsPriceElmt::Materials, where);
}

void clsPriceElmtManager::GetItemPickKbnMakeElmtMaterialsGrpList(QList<clsPriceElmt>& result, const QString& where) {
    combinedList(result,
                 {{&clsPriceElmt::Item, u"種目"_qs},
                  {&clsPriceElmt::PickKbn, u"採型区分"_qs},
                  {&clsPriceElmt::MakeElmt, u"製作要素"_qs},
                  {&clsPriceElmt::Materials, u"原材料"_qs}},
                 where);
}

clsPricePartsManager::clsPricePartsManager()
    : PriceManager(u"価格部品"_qs, withStamps<clsPriceParts>({{&clsPriceParts::ID, u"ID"_qs},
                                                              {&clsPriceParts::Item, u"種目"_qs},
                                                              {&clsPriceParts::Name, u"名称"_qs},
                                                              {&clsPriceParts::Form, u"形式"_qs},
                                                              {&clsPriceParts::MakerNm, u"メーカ名"_qs},
                                                              {&clsPriceParts::PartsCd, u"部品コード"_qs},
                                                              {&clsPriceParts::UseSet, u"使用設定"_qs},
                                                              {&clsPriceParts::UseChar, u"使用設定文字"_qs},
                                                              {&clsPriceParts::UseDmmy, u"使用設定ダミー"_qs},
                                                              {&clsPriceParts::Memo, u"備考"_qs},
                                                              {&clsPriceParts::NewPrice, u"新価格"_qs},
                                                              {&clsPriceParts::OldPrice, u"旧価格"_qs}})) {}

void clsPricePartsManager::GetItemGrpList(QList<clsPriceParts>& result, const QString& where) {
    groupList(result, u"種目"_qs, &clsPriceParts::Item, where);
}

void clsPricePartsManager::GetNameGrpList(QList<clsPriceParts>& result, const QString& where) {
    groupList(result, u"名称"_qs, &clsPriceParts::Name, where);
}

void clsPricePartsManager::GetFormGrpList(QList<clsPriceParts>& result, const QString& where) {
    groupList(result, u"形式"_qs, &clsPriceParts::Form, where);
}

void clsPricePartsManager::GetMakerNmGrpList(QList<clsPriceParts>& result, const QString& where) {
    groupList(result, u"メーカ名"_qs, &clsPriceParts::MakerNm, where);
}

void clsPricePartsManager::GetPartsCdGrpList(QList<clsPriceParts>& result, const QString& where) {
    groupList(result, u"部品コード"_qs, &clsPriceParts::PartsCd, where);
}

void clsPricePartsManager::GetListSumPartsNm(QList<clsPriceParts>& result, const QString& Item) {
    Recordset rows = connection().query(u"SELECT 名称 FROM 価格部品 WHERE 種目 = %1%2 GROUP BY 名称 ORDER BY 名称 DESC"_qs.arg(
        sqlText(Item), usable));
    while (rows.next()) {
        clsPriceParts part;
        part.Name = rows.value(u"名称"_qs);
        result << part;
    }
}

void clsPricePartsManager::GetListSumForm(QList<clsPriceParts>& result, const QString& Item, const QString& PartsNm) {
    sumList(result, u"形式"_qs, &clsPriceParts::Form, allEqual({{u"種目"_qs, Item}, {u"名称"_qs, PartsNm}}) + usable);
}

clsBaseElmtSelectManager::clsBaseElmtSelectManager()
    : TableManager(u"基本要素選択"_qs, {{&clsBaseElmtSelect::ID, u"ID"_qs},
                                        {&clsBaseElmtSelect::Item, u"種目"_qs},
                                        {&clsBaseElmtSelect::PickKbn, u"採型区分"_qs},
                                        {&clsBaseElmtSelect::MakeElmt, u"製作要素"_qs},
                                        {&clsBaseElmtSelect::Materials, u"原材料"_qs}}) {}

bool clsBaseElmtSelectManager::GetData(qint32 id, clsBaseElmtSelect& record) {
    return readFirst(record, u"[ID] = %1"_qs.arg(id));
}

void clsBaseElmtSelectManager::GetListSumMakeElmt(QList<clsBaseElmtSelect>& result, const QString& Item,
                                                  const QString& PickKbn) {
    Recordset rows = connection().query(
        u"SELECT MIN(ID) AS ID, 製作要素 FROM 基本要素選択 WHERE 種目 = %1 AND 採型区分 = %2 GROUP BY 製作要素 ORDER BY MIN(ID)"_qs
            .arg(sqlText(Item), sqlText(PickKbn)));
    while (rows.next()) {
        clsBaseElmtSelect record;
        record.ID = rows.value(u"ID"_qs);
        record.MakeElmt = rows.value(u"製作要素"_qs);
        result << record;
    }
}

QString clsBaseElmtSelectManager::GetLastID() { return connection().scalar(u"SELECT MAX([ID]) FROM [基本要素選択]"_qs); }

void clsBaseElmtSelectManager::DeleteData(const QString& id) {
    QString sql = u"DELETE FROM [基本要素選択]"_qs;
    if (!id.isEmpty()) sql += u" WHERE [ID] = %1"_qs.arg(sqlText(id));
    execute(sql);
}

void clsBaseElmtSelectManager::SaveInit(const clsBaseElmtSelect& record) { insert(record, columnsWithout({})); }
