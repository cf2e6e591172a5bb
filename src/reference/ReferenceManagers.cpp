#include "reference/ReferenceManagers.h"

#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsAutoIdsManager.h"

clsPrefectureManager gPrefectureManager;
clsInsManager gInsManager;
clsClaimManager gClaimManager;
clsOrderManager gOrderManager;
clsDoctorManager gDoctorManager;
clsProducerManager gProducerManager;
clsStaffManager gStaffManager;
clsProcKbnManager gProcKbnManager;
clsInsClaimManager gInsClaimManager;
clsEquipmentManager gEquipmentManager;

QString orderTextNow() { return formatDate(currentDateTime(), u"yyyymmddhhnnss"_qs); }

namespace {

// Address and contact columns of payers and ordering parties, with order and flag behind.
template <class Record> QList<Field<Record>> withContact(QList<Field<Record>> fields) {
    return fields << Field<Record>{&Record::Zip, u"郵便番号"_qs} << Field<Record>{&Record::Addr1, u"住所１"_qs}
                  << Field<Record>{&Record::Addr2, u"住所２"_qs} << Field<Record>{&Record::Tel, u"電話"_qs}
                  << Field<Record>{&Record::Fax, u"FAX"_qs} << Field<Record>{&Record::Email, u"EMAIL"_qs}
                  << Field<Record>{&Record::Url, u"URL"_qs} << Field<Record>{&Record::MasterNm, u"代表者氏名"_qs}
                  << Field<Record>{&Record::ChargeNm, u"担当者氏名"_qs} << Field<Record>{&Record::Seq, u"順番"_qs}
                  << Field<Record>{&Record::UseFlg, u"有効Flg"_qs};
}

QString equalsOrNull(const QString& column, const QString& value) {
    return value.isEmpty() ? column + u" IS NULL"_qs : column + u" = "_qs + sqlText(value);
}

} // namespace

// --- 都道府県 ---

clsPrefectureManager::clsPrefectureManager()
    : ReferenceManager(
          u"都道府県"_qs,
          {{&clsPrefecture::PrefNo, u"管理No"_qs},
           {&clsPrefecture::Pref, u"都道府県"_qs},
           {&clsPrefecture::City, u"市区郡"_qs},
           {&clsPrefecture::Seq, u"順番"_qs}},
          {&clsPrefecture::PrefNo, u"管理No"_qs, &clsPrefecture::Pref, u"都道府県"_qs, &clsPrefecture::Seq, false}) {}

namespace {

void readGroups(Connection& connection, QList<clsPrefecture>& result, const QString& column,
                QString clsPrefecture::*member, const QString& where) {
    QString sql = u"SELECT [%1] , MAX([管理No]) AS 項番 , MAX([順番]) FROM [都道府県]"_qs.arg(column);
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    Recordset rows = connection.query(sql + u" GROUP BY [%1]  ORDER BY MAX([順番]) DESC"_qs.arg(column));
    while (rows.next()) {
        clsPrefecture group;
        group.PrefNo = rows.value(u"項番"_qs);
        group.*member = rows.value(column);
        result << group;
    }
}

} // namespace

void clsPrefectureManager::GetPrefGrpList(QList<clsPrefecture>& result, const QString& where) {
    readGroups(connection(), result, u"都道府県"_qs, &clsPrefecture::Pref, where);
}

void clsPrefectureManager::GetCityGrpList(QList<clsPrefecture>& result, const QString& where) {
    readGroups(connection(), result, u"市区郡"_qs, &clsPrefecture::City, where);
}

QString clsPrefectureManager::CheckExistData(const QString& pref, const QString& city) {
    const QString number =
        connection().scalar(u"SELECT [管理No] FROM [都道府県] WHERE "_qs + equalsOrNull(u"[都道府県]"_qs, pref) +
                            u" AND "_qs + equalsOrNull(u"[市区郡]"_qs, city));
    return number.isEmpty() ? u"0"_qs : number;
}

void clsPrefectureManager::SaveData(clsPrefecture& pair, SaveMode mode) {
    const bool isNew = mode == SaveMode::Row && (blank(pair.PrefNo) || pair.PrefNo == u"0");
    if (!isNew) {
        ReferenceManager::SaveData(pair, mode);
        return;
    }
    pair.PrefNo = CheckExistData(pair.Pref, pair.City);
    if (pair.PrefNo != u"0") return;
    if (blank(pair.Seq)) pair.Seq = orderTextNow();
    insert(pair, dataColumns());
    pair.PrefNo = CheckExistData(pair.Pref, pair.City);
}

// --- 法別 ---

clsInsManager::clsInsManager()
    : ReferenceManager(u"法別"_qs,
                       {{&clsIns::InsNo, u"法別No"_qs},
                        {&clsIns::InsNm, u"法別"_qs},
                        {&clsIns::Seq, u"順番"_qs},
                        {&clsIns::UseFlg, u"有効Flg"_qs}},
                       {&clsIns::InsNo, u"法別No"_qs, &clsIns::InsNm, u"法別"_qs, &clsIns::Seq, true}) {}

void clsInsManager::insertNew(clsIns& ins) {
    const QString last =
        connection().scalar(u"SELECT 法別.法別No FROM 法別 WHERE 法別No<>99 ORDER BY 法別.法別No DESC;"_qs);
    ins.InsNo = numberText(Val(last) + 1);
    if (blank(ins.Seq)) ins.Seq = orderTextNow();
    if (blank(ins.UseFlg)) ins.UseFlg = u"0"_qs;
    insert(ins, columnsWithout({}));
}

void clsInsManager::SaveData2(clsIns& ins) {
    Transaction transaction(connection());
    if (blank(ins.InsNo))
        insertNew(ins);
    else
        update(ins, {u"法別"_qs}, {u"法別No"_qs});
    transaction.commit();
}

// --- 請求先, 受注先 ---

template <class Record> bool PartyManager<Record>::GetDataCd(const QString& code, Record& record) {
    return this->readFirst(record, u"[%1コード] = "_qs.arg(this->table()) + sqlText(Text::rightTrimmed(code)));
}

template <class Record> Recordset PartyManager<Record>::GetSelectList(const QString& where, const QString& order) {
    QString sql = u"SELECT [%1No], [%1コード], [%1] FROM [%1]"_qs.arg(this->table());
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    return this->connection().query(sql + u" ORDER BY "_qs + order + u" DESC ;"_qs);
}

template <class Record> QString PartyManager<Record>::CheckExistData(const QString& code, const QString& name) {
    return this->existing(this->table() + u"コード"_qs, code, this->table(), name);
}

template <class Record> qint16 PartyManager<Record>::askWhichName(const Record& typed, const Record& master) const {
    const QString what = this->table();
    return ShowMessage(909, u"入力された%1はマスタ登録内容と異なります。\nマスタの内容に置き換えますか？\n\n"
                            u"　　%1コード：%2\n　　(入力)%3\n　　(マスタ)%4\n\n"
                            u"※「いいえ」ボタンを選択するとマスタの内容が上書きされます。"_qs.arg(
                                what, typed.*this->key().name, typed.*m_name, master.*m_name));
}

template <class Record> Reconciled PartyManager<Record>::ReconcileData(Record& record) {
    QString& code = record.*this->key().name;
    code = Text::rightTrimmed(code); // as it is stored
    record.*m_name = Text::rightTrimmed(record.*m_name);
    if (code.isEmpty()) return Reconciled::Done;
    QList<Record> found;
    this->GetList(found, u"%1コード = "_qs.arg(this->table()) + sqlText(code), u"[順番]"_qs, Direction::Descending);
    if (found.isEmpty()) {
        record.Seq = orderTextNow();
        record.UseFlg = u"0"_qs;
        this->insertNew(record);
        return Reconciled::Done;
    }
    const Record master = found.first();
    record.*this->key().number = master.*this->key().number;
    if (record.*m_name == master.*m_name) return Reconciled::Done;
    switch (askWhichName(record, master)) {
    case AnswerYes:
        record.*m_name = master.*m_name;
        return Reconciled::Done;
    case AnswerNo:
        record.Seq = orderTextNow();
        record.UseFlg = u"0"_qs;
        this->update(record, {this->table() + u"コード"_qs, this->table(), u"順番"_qs, u"有効Flg"_qs},
                     {this->key().numberColumn});
        return Reconciled::Done;
    default:
        return Reconciled::Cancelled;
    }
}

clsClaimManager::clsClaimManager()
    : PartyManager(u"請求先"_qs,
                   withContact<clsClaim>({{&clsClaim::ClaimNo, u"請求先No"_qs},
                                          {&clsClaim::ClaimCd, u"請求先コード"_qs},
                                          {&clsClaim::ClaimNm, u"請求先"_qs}}),
                   {&clsClaim::ClaimNo, u"請求先No"_qs, &clsClaim::ClaimCd, u"請求先コード"_qs, &clsClaim::Seq, true},
                   &clsClaim::ClaimNm) {}

clsOrderManager::clsOrderManager()
    : PartyManager(u"受注先"_qs,
                   withContact<clsOrder>({{&clsOrder::OrderNo, u"受注先No"_qs},
                                          {&clsOrder::OrderCd, u"受注先コード"_qs},
                                          {&clsOrder::OrderNm, u"受注先"_qs}}),
                   {&clsOrder::OrderNo, u"受注先No"_qs, &clsOrder::OrderCd, u"受注先コード"_qs, &clsOrder::Seq, true},
                   &clsOrder::OrderNm) {}

template class PartyManager<clsClaim>;
template class PartyManager<clsOrder>;

// --- 主治医, 製作担当者 ---

template <class Record> Recordset PersonManager<Record>::GetSelectList(const QString& where, const QString& order) {
    QString sql = u"SELECT [%1No], [%1コード], [%1] FROM [%1]"_qs.arg(this->table());
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    return this->connection().query(sql + u" ORDER BY "_qs + order + u" DESC ;"_qs);
}

template <class Record> QString PersonManager<Record>::CheckExistData(const QString& code, const QString& name) {
    return this->existing(this->table() + u"コード"_qs, code, this->table(), name);
}

template <class Record> void PersonManager<Record>::AddByName(Record& record) {
    const auto take = [&](const Record& row) {
        record.*this->key().number = row.*this->key().number;
        record.*this->key().name = row.*this->key().name;
    };
    const QString what = this->table();
    record.*m_name = Text::rightTrimmed(record.*m_name); // as it is stored
    QList<Record> sameName;
    this->GetList(sameName, what + u" = "_qs + sqlText(record.*m_name), u"[順番]"_qs, Direction::Descending);
    if (!sameName.isEmpty()) return take(sameName.first());

    const QString code = gAutoIdsManager.GetNewId(what + u"コード"_qs);
    if (code.isEmpty()) {
        ShowMessage(902, what + u"コードを自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
        return;
    }
    record.*this->key().name = code;
    record.Seq = orderTextNow();
    record.UseFlg = u"0"_qs;
    QList<Record> sameCode;
    this->GetList(sameCode, what + u"コード = "_qs + sqlText(code), u"[順番]"_qs, Direction::Descending);
    if (!sameCode.isEmpty()) {
        take(sameCode.first());
        this->update(record, this->dataColumns(), {this->key().numberColumn});
        return;
    }
    this->insertNew(record);
}

clsDoctorManager::clsDoctorManager()
    : PersonManager(
          u"主治医"_qs,
          {{&clsDoctor::DoctorNo, u"主治医No"_qs},
           {&clsDoctor::DoctorCd, u"主治医コード"_qs},
           {&clsDoctor::DoctorNm, u"主治医"_qs},
           {&clsDoctor::Seq, u"順番"_qs},
           {&clsDoctor::OrderNo, u"受注先No"_qs},
           {&clsDoctor::UseFlg, u"有効Flg"_qs}},
          {&clsDoctor::DoctorNo, u"主治医No"_qs, &clsDoctor::DoctorCd, u"主治医コード"_qs, &clsDoctor::Seq, true},
          &clsDoctor::DoctorNm) {}

bool clsDoctorManager::GetDataCd(const QString& code, clsDoctor& doctor) {
    return readFirst(doctor, u"[主治医コード] = "_qs + sqlText(code));
}

clsProducerManager::clsProducerManager()
    : PersonManager(u"製作担当者"_qs,
                    {{&clsProducer::ProducerNo, u"製作担当者No"_qs},
                     {&clsProducer::ProducerCd, u"製作担当者コード"_qs},
                     {&clsProducer::ProducerNm, u"製作担当者"_qs},
                     {&clsProducer::Seq, u"順番"_qs},
                     {&clsProducer::UseFlg, u"有効Flg"_qs}},
                    {&clsProducer::ProducerNo, u"製作担当者No"_qs, &clsProducer::ProducerCd, u"製作担当者コード"_qs,
                     &clsProducer::Seq, true},
                    &clsProducer::ProducerNm) {}

template class PersonManager<clsDoctor>;
template class PersonManager<clsProducer>;

// --- スタッフ, 処理区分 ---

clsStaffManager::clsStaffManager()
    : ReferenceManager(
          u"スタッフ"_qs,
          {{&clsStaff::StaffNo, u"スタッフNo"_qs},
           {&clsStaff::StaffCd, u"スタッフコード"_qs},
           {&clsStaff::StaffNm, u"従業員"_qs}},
          {&clsStaff::StaffNo, u"スタッフNo"_qs, &clsStaff::StaffCd, u"スタッフコード"_qs, nullptr, false}) {}

clsProcKbnManager::clsProcKbnManager()
    : TableManager(u"処理区分"_qs, {{&clsProcKbn::ProcKbnNo, u"処理区分番号"_qs},
                                    {&clsProcKbn::ProcKbnNm1, u"処理区分"_qs},
                                    {&clsProcKbn::ProcKbnNm2, u"処理区分統計用"_qs}}) {}

bool clsProcKbnManager::GetData(const QString& number, clsProcKbn& status) {
    return readFirst(status, u"[処理区分番号] = "_qs + sqlNumber(number));
}

QString clsProcKbnManager::nameOf(const QString& number) {
    clsProcKbn status;
    return isPlainNumber(number) && GetData(number, status) ? status.ProcKbnNm1 : QString();
}

// --- 法別請求対応 ---

clsInsClaimManager::clsInsClaimManager()
    : ReferenceManager(u"法別請求対応"_qs,
                       {{&clsInsClaim::InsClaimNo, u"法別請求先No"_qs},
                        {&clsInsClaim::InsNo, u"法別No"_qs},
                        {&clsInsClaim::ClaimNo, u"請求先No"_qs},
                        {&clsInsClaim::Seq, u"順番"_qs}},
                       {&clsInsClaim::InsClaimNo, u"法別請求先No"_qs, &clsInsClaim::InsNo, u"法別No"_qs,
                        &clsInsClaim::Seq, false}) {}

void clsInsClaimManager::GetList(QList<clsInsClaim>& result, const QString& where, const QString& order,
                                 Direction direction) {
    QString sql =
        u"SELECT [法別請求対応].[法別請求先No] AS 法別請求先No, [法別請求対応].[法別No] AS 法別No, [法別].[法別] AS "
        u"法別,"
        u" [法別請求対応].[請求先No] AS 請求先No, [請求先].[請求先コード] AS 請求先コード, [請求先].[請求先] AS 請求先,"
        u" [法別請求対応].[順番] AS 順番"
        u" FROM (([法別請求対応] LEFT JOIN [法別] ON [法別請求対応].[法別No] = [法別].[法別No])"
        u" LEFT JOIN [請求先] ON [法別請求対応].[請求先No] = [請求先].[請求先No])"_qs;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    Recordset rows = connection().query(sql + orderClause(order, direction));
    while (rows.next())
        result << clsInsClaim{rows.value(0), rows.value(1), rows.value(2), rows.value(3),
                              rows.value(4), rows.value(5), rows.value(6)};
}

QString clsInsClaimManager::CheckExistData(const QString& insNo, const QString& claimNo) {
    const QString number = connection().scalar(u"SELECT [法別請求先No] FROM 法別請求対応 WHERE 法別No = "_qs +
                                               sqlNumber(insNo) + u" AND 請求先No = "_qs + sqlNumber(claimNo));
    return number.isEmpty() ? u"0"_qs : number;
}

void clsInsClaimManager::ReconcileData(const QString& insNo, const QString& claimNo) {
    if (Val(insNo) == 0 || Val(claimNo) == 0) return;
    clsInsClaim pair;
    pair.InsClaimNo = CheckExistData(insNo, claimNo);
    pair.InsNo = insNo;
    pair.ClaimNo = claimNo;
    pair.Seq = orderTextNow();
    if (pair.InsClaimNo == u"0")
        insertNew(pair);
    else
        SaveData(pair, SaveMode::OrderOnly);
}

void clsInsClaimManager::insertNew(clsInsClaim& pair) {
    insert(pair, dataColumns());
    pair.InsClaimNo = CheckExistData(pair.InsNo, pair.ClaimNo);
}

// --- 装具 ---

clsEquipmentManager::clsEquipmentManager()
    : ReferenceManager(u"装具"_qs,
                       {{&clsEquip::EquipNo, u"装具No"_qs},
                        {&clsEquip::EquipNm, u"装具"_qs},
                        {&clsEquip::Seq, u"順番"_qs},
                        {&clsEquip::UseFlg, u"有効Flg"_qs}},
                       {&clsEquip::EquipNo, u"装具No"_qs, &clsEquip::EquipNm, u"装具"_qs, &clsEquip::Seq, true}) {}

void clsEquipmentManager::insertNew(clsEquip& equip) {
    const QString last = connection().scalar(u"SELECT 装具.装具No FROM 装具 ORDER BY 装具.装具No DESC;"_qs);
    equip.EquipNo = numberText(Val(last) + 1);
    insert(equip, columnsWithout({}));
}
