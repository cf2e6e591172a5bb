#include "price/PriceManagers.h"

#include "base/basMessage.h"
#include "db/Schema.h"

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
    return {{&Record::NewPrice1, u"新価格１"_qs}, {&Record::NewPrice2, u"新価格２"_qs},
            {&Record::NewPrice3, u"新価格３"_qs}, {&Record::OldPrice1, u"旧価格１"_qs},
            {&Record::OldPrice2, u"旧価格２"_qs}, {&Record::OldPrice3, u"旧価格３"_qs}};
}

} // namespace

clsPriceItemManager::clsPriceItemManager()
    : PriceManager(u"価格種目"_qs, withStamps<clsPriceItem>({{&clsPriceItem::ID, u"ID"_qs},
                                                             {&clsPriceItem::Item, u"種目"_qs},
                                                             {&clsPriceItem::PickKbn, u"採型区分"_qs},
                                                             {&clsPriceItem::Name, u"名称"_qs},
                                                             {&clsPriceItem::Form, u"形式"_qs}})) {}

void clsPriceItemManager::GetListSumItem(QList<clsPriceItem>& result) { sumList(result, &clsPriceItem::Item, {}); }

void clsPriceItemManager::GetListSumPickPtnKbn(QList<clsPriceItem>& result, const QString& Item) {
    sumList(result, &clsPriceItem::PickKbn, SqlAllOf({inUse(), equal(&clsPriceItem::Item, Item)}));
}

void clsPriceItemManager::GetListSumName(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn) {
    sumList(result, &clsPriceItem::Name,
            SqlAllOf({inUse(), equal(&clsPriceItem::Item, Item), equal(&clsPriceItem::PickKbn, PickPtnKbn)}));
}

void clsPriceItemManager::GetListSumForm(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn,
                                         const QString& Name) {
    sumList(result, &clsPriceItem::Form,
            SqlAllOf({inUse(), equal(&clsPriceItem::Item, Item), equal(&clsPriceItem::PickKbn, PickPtnKbn),
                      equal(&clsPriceItem::Name, Name)}));
}

clsPriceBaseManager::clsPriceBaseManager()
    : PriceManager(u"価格基本"_qs,
                   withStamps<clsPriceBase>(QList<Field<clsPriceBase>>{{&clsPriceBase::ID, u"ID"_qs},
                                                                       {&clsPriceBase::Seq, u"順番"_qs},
                                                                       {&clsPriceBase::Item, u"種目"_qs},
                                                                       {&clsPriceBase::PickKbn, u"採型区分"_qs},
                                                                       {&clsPriceBase::Name, u"名称"_qs},
                                                                       {&clsPriceBase::Form, u"形式"_qs},
                                                                       {&clsPriceBase::Apply, u"適用"_qs},
                                                                       {&clsPriceBase::PickStyle, u"採型採寸区分"_qs}} +
                                            threePrices<clsPriceBase>())) {}

clsPriceAddManager::clsPriceAddManager()
    : PriceManager(u"価格加算"_qs, withStamps<clsPriceAdd>({{&clsPriceAdd::ID, u"ID"_qs},
                                                            {&clsPriceAdd::Seq, u"順番"_qs},
                                                            {&clsPriceAdd::Item, u"種目"_qs},
                                                            {&clsPriceAdd::PickKbn, u"採型区分"_qs},
                                                            {&clsPriceAdd::AddElmt, u"加算要素"_qs},
                                                            {&clsPriceAdd::GrantRepair, u"交付修理区分"_qs},
                                                            {&clsPriceAdd::NewPrice, u"新価格"_qs},
                                                            {&clsPriceAdd::OldPrice, u"旧価格"_qs}})) {}

clsPriceElmtManager::clsPriceElmtManager()
    : PriceManager(u"価格要素"_qs,
                   withStamps<clsPriceElmt>(QList<Field<clsPriceElmt>>{{&clsPriceElmt::ID, u"ID"_qs},
                                                                       {&clsPriceElmt::Seq, u"順番"_qs},
                                                                       {&clsPriceElmt::Item, u"種目"_qs},
                                                                       {&clsPriceElmt::PickKbn, u"採型区分"_qs},
                                                                       {&clsPriceElmt::MakeElmt, u"製作要素"_qs},
                                                                       {&clsPriceElmt::Materials, u"原材料"_qs}} +
                                            threePrices<clsPriceElmt>())) {}

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

SqlTerm clsPricePartsManager::usable(const QString& Item) const {
    return SqlAllOf({equal(&clsPriceParts::Item, Item), equal(&clsPriceParts::UseSet, u"1"_qs), inUse()});
}

void clsPricePartsManager::GetListSumPartsNm(QList<clsPriceParts>& result, const QString& Item) {
    Recordset rows =
        query(SqlSelect(u"SELECT 名称 FROM 価格部品"_qs, usable(Item)) + u" GROUP BY 名称 ORDER BY 名称 DESC"_qs);
    const RecordReader<clsPriceParts> reader(rows, fieldsOf({&clsPriceParts::Name}));
    while (rows.next()) result << reader.read();
}

void clsPricePartsManager::GetListSumForm(QList<clsPriceParts>& result, const QString& Item, const QString& PartsNm) {
    sumList(result, &clsPriceParts::Form, SqlAllOf({usable(Item), equal(&clsPriceParts::Name, PartsNm)}));
}

clsBaseElmtSelectManager::clsBaseElmtSelectManager()
    : TableManager(u"基本要素選択"_qs, {{&clsBaseElmtSelect::ID, u"ID"_qs},
                                        {&clsBaseElmtSelect::Item, u"種目"_qs},
                                        {&clsBaseElmtSelect::PickKbn, u"採型区分"_qs},
                                        {&clsBaseElmtSelect::MakeElmt, u"製作要素"_qs},
                                        {&clsBaseElmtSelect::Materials, u"原材料"_qs}}) {}

bool clsBaseElmtSelectManager::GetData(qint32 id, clsBaseElmtSelect& record) {
    return get({QString::number(id)}, record);
}

void clsBaseElmtSelectManager::GetListSumMakeElmt(QList<clsBaseElmtSelect>& result, const QString& Item,
                                                  const QString& PickKbn) {
    Recordset rows = query(
        SqlSelect(u"SELECT MIN(ID) AS ID, 製作要素 FROM 基本要素選択"_qs,
                  SqlAllOf({equal(&clsBaseElmtSelect::Item, Item), equal(&clsBaseElmtSelect::PickKbn, PickKbn)})) +
        u" GROUP BY 製作要素 ORDER BY MIN(ID)"_qs);
    const RecordReader<clsBaseElmtSelect> reader(rows,
                                                 fieldsOf({&clsBaseElmtSelect::ID, &clsBaseElmtSelect::MakeElmt}));
    while (rows.next()) result << reader.read();
}

QString clsBaseElmtSelectManager::GetLastID() { return largestNumber(); }

void clsBaseElmtSelectManager::DeleteData(const QString& id) {
    if (id.isEmpty())
        removeAll();
    else
        remove({id});
}

void clsBaseElmtSelectManager::SaveInit(const clsBaseElmtSelect& record) { insert(record); }

SqlTerm PriceGroupFilter(const QList<std::pair<QString, QString>>& columnsAndValues) {
    QList<SqlTerm> terms;
    for (const auto& [column, value] : columnsAndValues)
        terms << SqlContains(SqlTerm(u"[%1]"_qs.arg(column)).wrapped({}, u" "_qs), value);
    return SqlAllOf(terms);
}

PriceTable& priceTable(const QString& name) {
    for (PriceTable* table : std::initializer_list<PriceTable*>{
             &gPriceItemManager, &gPriceBaseManager, &gPriceAddManager, &gPriceElmtManager, &gPricePartsManager})
        if (table->name() == name) return *table;
    throw AppError(u"%1 は価格の表ではありません。"_qs.arg(name), u"PriceTable"_qs);
}

namespace {

void bindPrices(Connection& connection) {
    for (const QString& table : Schema::priceTables()) priceTable(table).bind(connection);
}

} // namespace

BoundPrices::BoundPrices(Connection& prices, Connection& main) : m_main(main) { bindPrices(prices); }

BoundPrices::~BoundPrices() {
    guarded([this] { bindPrices(m_main); });
}
