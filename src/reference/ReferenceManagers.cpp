#include "reference/ReferenceManagers.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
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

QString sortTextNow() { return formatDate(currentDateTime(), u"yyyymmddhhnnss"_qs); }

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

} // namespace

// --- 都道府県 ---

clsPrefectureManager::clsPrefectureManager()
    : ReferenceManager(u"都道府県"_qs, {{&clsPrefecture::PrefNo, u"管理No"_qs},
                                        {&clsPrefecture::Pref, u"都道府県"_qs},
                                        {&clsPrefecture::City, u"市区郡"_qs},
                                        {&clsPrefecture::Seq, u"順番"_qs}}) {}

void clsPrefectureManager::readGroups(QList<clsPrefecture>& result, Member member, const SqlTerm& where) {
    const QString name = column(member).name;
    Recordset rows =
        query(SqlSelect(u"SELECT [%1] , MAX([管理No]) AS 項番 , MAX([順番]) FROM [都道府県]"_qs.arg(name), where) +
              u" GROUP BY [%1]  ORDER BY MAX([順番]) DESC"_qs.arg(name));
    while (rows.next()) {
        clsPrefecture group;
        group.PrefNo = rows.value(u"項番"_qs);
        group.*member = rows.value(name);
        result << group;
    }
}

void clsPrefectureManager::GetPrefGrpList(QList<clsPrefecture>& result, const SqlTerm& where) {
    readGroups(result, &clsPrefecture::Pref, where);
}

void clsPrefectureManager::GetCityGrpList(QList<clsPrefecture>& result, const SqlTerm& where) {
    readGroups(result, &clsPrefecture::City, where);
}

QString clsPrefectureManager::CheckExistData(const QString& pref, const QString& city) {
    clsPrefecture found;
    findLike({{}, pref, city, {}}, {&clsPrefecture::Pref, &clsPrefecture::City}, found);
    return orZero(found.PrefNo);
}

void clsPrefectureManager::SaveData(clsPrefecture& pair, SaveMode mode) {
    if (mode == SaveMode::Row && Val(pair.PrefNo) == 0) {
        pair.PrefNo = CheckExistData(pair.Pref, pair.City);
        if (pair.PrefNo != u"0") return;
        pair.PrefNo.clear();
    }
    ReferenceManager::SaveData(pair, mode);
}

void clsPrefectureManager::insertNew(clsPrefecture& pair) {
    insert(pair);
    pair.PrefNo = CheckExistData(pair.Pref, pair.City);
}

// --- 法別 ---

clsInsManager::clsInsManager()
    : ReferenceManager(u"法別"_qs, {{&clsIns::InsNo, u"法別No"_qs},
                                    {&clsIns::InsNm, u"法別"_qs},
                                    {&clsIns::Seq, u"順番"_qs},
                                    {&clsIns::UseFlg, u"有効Flg"_qs}}) {}

void clsInsManager::insertNew(clsIns& ins) {
    ins.InsNo = nextNumber(u"[法別No] <> 99"_qs);
    if (blank(ins.Seq)) ins.Seq = sortTextNow();
    if (blank(ins.UseFlg)) ins.UseFlg = u"0"_qs;
    insert(ins);
}

QString clsInsManager::numberOf(const QString& name) {
    QList<clsIns> laws;
    GetList(laws, equal(&clsIns::InsNm, name), byKey());
    return laws.isEmpty() ? QString() : laws.first().InsNo;
}

void clsInsManager::SaveData2(clsIns& ins) {
    Transaction transaction(connection());
    if (blank(ins.InsNo))
        insertNew(ins);
    else
        update(ins, {u"法別"_qs});
    transaction.commit();
}

// --- codes and names ---

template <class Record> bool CodedManager<Record>::GetDataCd(const QString& code, Record& record) {
    return this->readFirst(record, this->equal(this->code(), code));
}

template <class Record> Recordset CodedManager<Record>::GetSelectList(const SqlTerm& where, const SqlTerm& sort) {
    return this->query(SqlSelect(u"SELECT [%1No], [%1コード], [%1] FROM [%1]"_qs.arg(this->table()), where,
                                 sort.wrapped({}, u" DESC ;"_qs)));
}

template <class Record> QString CodedManager<Record>::CheckExistData(const QString& code, const QString& name) {
    return this->orZero(this->largestNumber(
        SqlAllOf({this->equal(this->code(), code), name.isEmpty() ? SqlTerm() : this->equal(this->name(), name)})));
}

template <class Record>
bool CodedManager<Record>::findLast(QString Record::*member, const QString& text, Record& record) {
    QList<Record> found;
    this->GetList(found, this->equal(member, text), bySeq, Direction::Descending);
    if (!found.isEmpty()) record = found.first();
    return !found.isEmpty();
}

template <class Record> void CodedManager<Record>::putInUse(Record& record) {
    record.Seq = sortTextNow();
    record.UseFlg = u"0"_qs;
}

// --- 請求先, 受注先 ---

template <class Record> qint16 PartyManager<Record>::askWhichName(const Record& typed, const Record& master) const {
    const QString what = this->table();
    return ShowMessage(Message::QuestionCancel,
                       u"入力された%1はマスタ登録内容と異なります。\nマスタの内容に置き換えますか？\n\n"
                       u"　　%1コード：%2\n　　(入力)%3\n　　(マスタ)%4\n\n"
                       u"※「いいえ」ボタンを選択するとマスタの内容が上書きされます。"_qs.arg(
                           what, typed.*this->code(), typed.*this->name(), master.*this->name()));
}

template <class Record> Reconciled PartyManager<Record>::ReconcileData(Record& record) {
    for (const auto member : {this->code(), this->name()})
        record.*member = Text::rightTrimmed(record.*member); // as it is stored
    if ((record.*this->code()).isEmpty()) return Reconciled::Done;
    Record master;
    if (!this->findLast(this->code(), record.*this->code(), master)) {
        this->putInUse(record);
        this->insertNew(record);
        return Reconciled::Done;
    }
    record.*this->number() = master.*this->number();
    if (record.*this->name() == master.*this->name()) return Reconciled::Done;
    switch (askWhichName(record, master)) {
    case AnswerYes:
        record.*this->name() = master.*this->name();
        return Reconciled::Done;
    case AnswerNo:
        this->putInUse(record);
        this->update(record, {this->table() + u"コード"_qs, this->table(), u"順番"_qs, u"有効Flg"_qs});
        return Reconciled::Done;
    default:
        return Reconciled::Cancelled;
    }
}

clsClaimManager::clsClaimManager()
    : PartyManager(u"請求先"_qs, withContact<clsClaim>({{&clsClaim::ClaimNo, u"請求先No"_qs},
                                                        {&clsClaim::ClaimCd, u"請求先コード"_qs},
                                                        {&clsClaim::ClaimNm, u"請求先"_qs}})) {}

clsOrderManager::clsOrderManager()
    : PartyManager(u"受注先"_qs, withContact<clsOrder>({{&clsOrder::OrderNo, u"受注先No"_qs},
                                                        {&clsOrder::OrderCd, u"受注先コード"_qs},
                                                        {&clsOrder::OrderNm, u"受注先"_qs}})) {}

template class CodedManager<clsClaim>;
template class CodedManager<clsOrder>;
template class PartyManager<clsClaim>;
template class PartyManager<clsOrder>;

// --- 主治医, 製作担当者 ---

template <class Record> void PersonManager<Record>::AddByName(Record& record) {
    const auto take = [&](const Record& row) {
        record.*this->number() = row.*this->number();
        record.*this->code() = row.*this->code();
    };
    record.*this->name() = Text::rightTrimmed(record.*this->name()); // as it is stored
    Record known;
    if (this->findLast(this->name(), record.*this->name(), known)) return take(known);

    const QString code = gAutoIdsManager.GetNewId(this->table() + u"コード"_qs);
    if (code.isEmpty()) {
        ShowMessage(Message::Information,
                    this->table() + u"コードを自動的に取得できませんでした。\n手動で設定して下さい。"_qs);
        return;
    }
    record.*this->code() = code;
    this->putInUse(record);
    if (!this->findLast(this->code(), code, known)) return this->insertNew(record);
    take(known);
    this->update(record);
}

clsDoctorManager::clsDoctorManager()
    : PersonManager(u"主治医"_qs, {{&clsDoctor::DoctorNo, u"主治医No"_qs},
                                   {&clsDoctor::DoctorCd, u"主治医コード"_qs},
                                   {&clsDoctor::DoctorNm, u"主治医"_qs},
                                   {&clsDoctor::Seq, u"順番"_qs},
                                   {&clsDoctor::OrderNo, u"受注先No"_qs},
                                   {&clsDoctor::UseFlg, u"有効Flg"_qs}}) {}

SqlTerm clsDoctorManager::ofOrders(const QString& code) const {
    const QString parties = SqlSelect(u"SELECT [受注先No] FROM [受注先]"_qs, gOrderManager.withCode(code));
    return code.isEmpty() ? SqlTerm() : SqlTerm(column(&clsDoctor::OrderNo)).wrapped({}, u" IN ("_qs + parties + u')');
}

clsProducerManager::clsProducerManager()
    : PersonManager(u"製作担当者"_qs, {{&clsProducer::ProducerNo, u"製作担当者No"_qs},
                                       {&clsProducer::ProducerCd, u"製作担当者コード"_qs},
                                       {&clsProducer::ProducerNm, u"製作担当者"_qs},
                                       {&clsProducer::Seq, u"順番"_qs},
                                       {&clsProducer::UseFlg, u"有効Flg"_qs}}) {}

template class CodedManager<clsDoctor>;
template class CodedManager<clsProducer>;
template class PersonManager<clsDoctor>;
template class PersonManager<clsProducer>;

// --- スタッフ, 処理区分 ---

clsStaffManager::clsStaffManager()
    : ReferenceManager(u"スタッフ"_qs, {{&clsStaff::StaffNo, u"スタッフNo"_qs},
                                        {&clsStaff::StaffCd, u"スタッフコード"_qs},
                                        {&clsStaff::StaffNm, u"従業員"_qs}}) {}

clsProcKbnManager::clsProcKbnManager()
    : TableManager(u"処理区分"_qs, {{&clsProcKbn::ProcKbnNo, u"処理区分番号"_qs},
                                    {&clsProcKbn::ProcKbnNm1, u"処理区分"_qs},
                                    {&clsProcKbn::ProcKbnNm2, u"処理区分統計用"_qs}}) {}

bool clsProcKbnManager::GetData(const QString& number, clsProcKbn& status) { return get({number}, status); }

QString clsProcKbnManager::nameOf(const QString& number) {
    clsProcKbn status;
    return isPlainNumber(number) && GetData(number, status) ? status.ProcKbnNm1 : QString();
}

// --- 法別請求対応 ---

clsInsClaimManager::clsInsClaimManager()
    : ReferenceManager(u"法別請求対応"_qs, {{&clsInsClaim::InsClaimNo, u"法別請求先No"_qs},
                                            {&clsInsClaim::InsNo, u"法別No"_qs},
                                            {&clsInsClaim::ClaimNo, u"請求先No"_qs},
                                            {&clsInsClaim::Seq, u"順番"_qs}}) {}

void clsInsClaimManager::GetList(QList<clsInsClaim>& result, const SqlTerm& where, const SqlTerm& sort,
                                 Direction direction) {
    const QString pairs =
        u"SELECT [法別請求対応].[法別請求先No] AS 法別請求先No, [法別請求対応].[法別No] AS 法別No, [法別].[法別] AS "
        u"法別,"
        u" [法別請求対応].[請求先No] AS 請求先No, [請求先].[請求先コード] AS 請求先コード, [請求先].[請求先] AS 請求先,"
        u" [法別請求対応].[順番] AS 順番"
        u" FROM (([法別請求対応] LEFT JOIN [法別] ON [法別請求対応].[法別No] = [法別].[法別No])"
        u" LEFT JOIN [請求先] ON [法別請求対応].[請求先No] = [請求先].[請求先No])"_qs;
    Recordset rows = query(SqlSelect(pairs, where, directed(sort, direction)));
    while (rows.next())
        result << clsInsClaim{rows.value(0), rows.value(1), rows.value(2), rows.value(3),
                              rows.value(4), rows.value(5), rows.value(6)};
}

QList<clsClaim> clsInsClaimManager::payersOf(const QString& insNo) {
    QList<clsInsClaim> pairs;
    GetList(pairs, SqlAllOf({equal(&clsInsClaim::InsNo, insNo), gClaimManager.inUse()}), column(&clsInsClaim::Seq),
            Direction::Descending);
    QList<clsClaim> payers;
    for (const clsInsClaim& pair : pairs) {
        clsClaim payer;
        payer.ClaimNo = pair.ClaimNo;
        payer.ClaimCd = pair.ClaimCd;
        payer.ClaimNm = pair.ClaimNm;
        payers << payer;
    }
    return payers;
}

QString clsInsClaimManager::CheckExistData(const QString& insNo, const QString& claimNo) {
    return orZero(largestNumber(SqlAllOf({equal(&clsInsClaim::InsNo, insNo), equal(&clsInsClaim::ClaimNo, claimNo)})));
}

void clsInsClaimManager::ReconcileData(const QString& insNo, const QString& claimNo) {
    if (Val(insNo) == 0 || Val(claimNo) == 0) return;
    clsInsClaim pair;
    pair.InsClaimNo = CheckExistData(insNo, claimNo);
    pair.InsNo = insNo;
    pair.ClaimNo = claimNo;
    pair.Seq = sortTextNow();
    if (pair.InsClaimNo == u"0")
        insertNew(pair);
    else
        SaveData(pair, SaveMode::OrderOnly);
}

void clsInsClaimManager::insertNew(clsInsClaim& pair) {
    insert(pair);
    pair.InsClaimNo = CheckExistData(pair.InsNo, pair.ClaimNo);
}

// --- 装具 ---

clsEquipmentManager::clsEquipmentManager()
    : ReferenceManager(u"装具"_qs, {{&clsEquip::EquipNo, u"装具No"_qs},
                                    {&clsEquip::EquipNm, u"装具"_qs},
                                    {&clsEquip::Seq, u"順番"_qs},
                                    {&clsEquip::UseFlg, u"有効Flg"_qs}}) {}

void clsEquipmentManager::insertNew(clsEquip& equip) {
    equip.EquipNo = nextNumber();
    insert(equip);
}
