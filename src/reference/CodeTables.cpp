#include "reference/CodeTable.h"

#include "base/AppError.h"
#include "db/Connection.h"
#include "reference/ReferenceManagers.h"

#include <algorithm>

namespace {

using Kind = CodeColumn::Kind;

// The rows of a manager; `members` are those of the columns in turn.
template <class Record> class CodeTableOf final : public CodeTable {
public:
    using Member = QString Record::*;
    using Manager = ReferenceManager<Record>;

    CodeTableOf(Manager& manager, Form form, Member number, Member seq, QList<Member> members)
        : CodeTable(std::move(form)), m_manager(manager), m_number(number), m_seq(seq), m_members(std::move(members)) {
        for (int i = 0; i < m_members.size(); ++i) setLimit(i, limitOf(i));
    }

    QList<CodeRow> rows(const SqlTerm& sort, Direction direction) override {
        QList<Record> records;
        m_manager.GetList(records, {}, sort, direction);
        QList<CodeRow> result;
        for (const Record& record : records) result << rowOf(record);
        return result;
    }

    void save(CodeRow& row) override {
        Transaction transaction(m_manager.connection());
        m_manager.connection().lockForWriting(m_manager.table()); // so that nobody stores the same meanwhile
        QList<CodeRow> others = rows(form().bySeq, Direction::Descending);
        others.removeIf([&](const CodeRow& other) { return other.number == row.number; });
        if (const QString complaint = doubleOf(row, others); !complaint.isEmpty())
            throw AppError(complaint, u"CodeTable"_qs);
        Record record = recordOf(row);
        m_manager.SaveData(record);
        transaction.commit();
        row.number = record.*m_number;
        row.seq = record.*m_seq;
    }

    void place(const CodeRow& row) override {
        Record record = recordOf(row);
        m_manager.SaveData(record, SaveMode::OrderOnly);
    }

    void remove(const CodeRow& row) override { m_manager.DeleteData(row.number); }

    bool isInUse(const CodeRow& row) override {
        const auto names = [&](const QString& column) {
            return m_manager.isNamedIn({column.section(u'.', 0, 0), column.section(u'.', 1)}, row.number);
        };
        return std::any_of(form().usedIn.begin(), form().usedIn.end(), names);
    }

private:
    int limitOf(int column) const {
        const Kind kind = form().columns.at(column).kind;
        if (kind != Kind::Plain && kind != Kind::Code) return 0;
        const SqlColumn stored = m_manager.column(m_members.at(column));
        return Schema::table(stored.table)->column(stored.name)->size;
    }

    CodeRow rowOf(const Record& record) const {
        CodeRow row{record.*m_number, record.*m_seq, {}};
        for (const Member member : m_members) row.values << record.*member;
        return row;
    }

    Record recordOf(const CodeRow& row) const {
        Record record;
        for (int i = 0; i < m_members.size(); ++i) record.*m_members.at(i) = row.values.at(i);
        record.*m_number = row.number;
        record.*m_seq = row.seq;
        return record;
    }

    Manager& m_manager;
    Member m_number, m_seq;
    QList<Member> m_members;
};

template <class Record>
QList<CodeChoice> choicesOf(ReferenceManager<Record>& manager, QString Record::*number, QString Record::*name,
                            QString Record::*code) {
    QList<Record> records;
    manager.GetList(records, {}, bySeq);
    QList<CodeChoice> choices;
    for (const Record& record : records)
        choices << CodeChoice{record.*number, record.*name, code ? record.*code : QString(), record.UseFlg != u"0"};
    return choices;
}

QList<CodeChoice> orderChoices() {
    return choicesOf(gOrderManager, &clsOrder::OrderNo, &clsOrder::OrderNm, &clsOrder::OrderCd);
}
QList<CodeChoice> claimChoices() {
    return choicesOf(gClaimManager, &clsClaim::ClaimNo, &clsClaim::ClaimNm, &clsClaim::ClaimCd);
}
QList<CodeChoice> lawChoices() { return choicesOf<clsIns>(gInsManager, &clsIns::InsNo, &clsIns::InsNm, nullptr); }

CodeColumn plain(const QString& title, int width, const SqlTerm& sort = {}) {
    return {title, width, Kind::Plain, sort};
}
CodeColumn code(const QString& title, int width, const SqlTerm& sort = {}) { return {title, width, Kind::Code, sort}; }
CodeColumn flag() { return {u"有効Flg"_qs, 9, Kind::Flag}; }

// Code and name of a table that is called like its name column.
QList<CodeColumn> coded(const QString& word, bool sortedByName = true) {
    const auto sort = [](const QString& column) { return SqlTerm(u'[' + column + u']'); };
    return {code(word + u"コード"_qs, 16, sort(word + u"コード"_qs)),
            plain(word, 30, sortedByName ? sort(word) : SqlTerm())};
}

QList<CodeColumn> contact() {
    return {code(u"郵便番号"_qs, 11), plain(u"住所１"_qs, 36),     plain(u"住所２"_qs, 24),
            code(u"電話"_qs, 15),     code(u"FAX"_qs, 15),         code(u"EMAIL"_qs, 22),
            code(u"URL"_qs, 22),      plain(u"代表者氏名"_qs, 18), plain(u"担当者氏名"_qs, 18)};
}

template <class Record>
std::unique_ptr<CodeTable> parties(ReferenceManager<Record>& manager, CodeTable::Form form, QString Record::*number,
                                   QString Record::*partyCode, QString Record::*name) {
    form.columns += contact() << flag();
    form.bySeq = bySeq;
    form.identity = {0};
    return std::make_unique<CodeTableOf<Record>>(
        manager, std::move(form), number, &Record::Seq,
        QList<QString Record::*>{partyCode, name, &Record::Zip, &Record::Addr1, &Record::Addr2, &Record::Tel,
                                 &Record::Fax, &Record::Email, &Record::Url, &Record::MasterNm, &Record::ChargeNm,
                                 &Record::UseFlg});
}

} // namespace

std::unique_ptr<CodeTable> CodeTables::doctors() {
    QList<CodeColumn> columns = coded(u"主治医"_qs);
    columns << CodeColumn{u"受注先"_qs, 34, Kind::Choice, {}, orderChoices} << flag();
    return std::make_unique<CodeTableOf<clsDoctor>>(
        gDoctorManager,
        CodeTable::Form{
            u"frmDoctorData"_qs, u"flxDoctor"_qs, u"主治医マスタ"_qs, bySeq, columns, {0}, u"主治医コード"_qs},
        &clsDoctor::DoctorNo, &clsDoctor::Seq,
        QList{&clsDoctor::DoctorCd, &clsDoctor::DoctorNm, &clsDoctor::OrderNo, &clsDoctor::UseFlg});
}

std::unique_ptr<CodeTable> CodeTables::producers() {
    return std::make_unique<CodeTableOf<clsProducer>>(
        gProducerManager,
        CodeTable::Form{u"frmChargeData"_qs,
                        u"flxCharge"_qs,
                        u"製作担当者マスタ"_qs,
                        bySeq,
                        coded(u"製作担当者"_qs) << flag(),
                        {0},
                        u"製作担当者コード"_qs},
        &clsProducer::ProducerNo, &clsProducer::Seq,
        QList{&clsProducer::ProducerCd, &clsProducer::ProducerNm, &clsProducer::UseFlg});
}

std::unique_ptr<CodeTable> CodeTables::claims() {
    return parties<clsClaim>(
        gClaimManager,
        {u"frmClaimData"_qs, u"flxClaim"_qs, u"請求先マスタ"_qs, {}, coded(u"請求先"_qs), {}, u"請求先コード"_qs},
        &clsClaim::ClaimNo, &clsClaim::ClaimCd, &clsClaim::ClaimNm);
}

std::unique_ptr<CodeTable> CodeTables::orders() {
    return parties<clsOrder>(gOrderManager,
                             {u"frmOrderData"_qs,
                              u"flxOrder"_qs,
                              u"受注先マスタ"_qs,
                              {},
                              coded(u"受注先"_qs, false),
                              {},
                              u"受注先コード"_qs},
                             &clsOrder::OrderNo, &clsOrder::OrderCd, &clsOrder::OrderNm);
}

// Customers and claims name a law by its number alone, so that one in use has to stay; it can be retired.
std::unique_ptr<CodeTable> CodeTables::laws() {
    return std::make_unique<CodeTableOf<clsIns>>(
        gInsManager,
        CodeTable::Form{u"frmIns"_qs,
                        u"flxIns"_qs,
                        u"法別マスタ"_qs,
                        bySeq,
                        {CodeColumn{u"法別No"_qs, 9, Kind::Shown, u"[法別No]"_qs}, plain(u"法別"_qs, 24), flag()},
                        {1},
                        u"法別"_qs,
                        true,
                        {u"顧客保険.法別No"_qs, u"顧客見積請求.法別No"_qs}},
        &clsIns::InsNo, &clsIns::Seq, QList{&clsIns::InsNo, &clsIns::InsNm, &clsIns::UseFlg});
}

std::unique_ptr<CodeTable> CodeTables::lawClaims() {
    return std::make_unique<CodeTableOf<clsInsClaim>>(
        gInsClaimManager,
        CodeTable::Form{u"frmInsuranceData"_qs,
                        u"flxInsurance"_qs,
                        u"法別－請求先マスタ"_qs,
                        u"[法別請求対応].[順番]"_qs,
                        {CodeColumn{u"法別"_qs, 24, Kind::Choice, u"[法別].[法別]"_qs, lawChoices},
                         CodeColumn{u"請求先コード"_qs, 14, Kind::Shown, {}, {}, 2},
                         CodeColumn{u"請求先"_qs, 40, Kind::Choice, u"[請求先].[請求先]"_qs, claimChoices}},
                        {0, 2},
                        u"法別と請求先"_qs},
        &clsInsClaim::InsClaimNo, &clsInsClaim::Seq,
        QList{&clsInsClaim::InsNo, &clsInsClaim::ClaimCd, &clsInsClaim::ClaimNo});
}

std::unique_ptr<CodeTable> CodeTables::prefectures() {
    return std::make_unique<CodeTableOf<clsPrefecture>>(
        gPrefectureManager,
        CodeTable::Form{u"frmPrefectureData"_qs,
                        u"flxPrefecture"_qs,
                        u"都道府県マスタ"_qs,
                        bySeq,
                        {plain(u"都道府県"_qs, 14, u"[都道府県]"_qs), plain(u"市区郡"_qs, 20, u"[市区郡]"_qs)},
                        {0, 1},
                        u"都道府県と市区郡"_qs,
                        false},
        &clsPrefecture::PrefNo, &clsPrefecture::Seq, QList{&clsPrefecture::Pref, &clsPrefecture::City});
}

std::unique_ptr<CodeTable> CodeTables::equipment() {
    return std::make_unique<CodeTableOf<clsEquip>>(gEquipmentManager,
                                                   CodeTable::Form{u"frmCsEquipment"_qs,
                                                                   u"flxEquipment"_qs,
                                                                   u"装具"_qs,
                                                                   bySeq,
                                                                   {plain(u"装具"_qs, 50), flag()},
                                                                   {0},
                                                                   u"装具"_qs},
                                                   &clsEquip::EquipNo, &clsEquip::Seq,
                                                   QList{&clsEquip::EquipNm, &clsEquip::UseFlg});
}
