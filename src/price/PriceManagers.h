#pragma once

#include "base/AppError.h"
#include "base/Numbers.h"
#include "db/TableManager.h"
#include "price/PriceRecords.h"
#include "price/PriceTable.h"

// What the managers of the five price tables share; each keeps the next ID of its rows in `採番`.
template <class Record> class PriceManager : public TableManager<Record>, public PriceTable {
public:
    using TableManager<Record>::TableManager;
    using Rows = QList<Record>;

    qint64 GetCount() { return this->count(); }

    // The order is not optional here: an empty one is an SQL failure.
    void GetList(QList<Record>& result, const SqlTerm& where, const SqlTerm& sort) {
        this->readOrdered(result, where, sort);
    }

    // The row of an ID; raises an error when there is none.
    void GetData(qint32 id, Record& record) {
        if (!this->get({QString::number(id)}, record))
            throw AppError(u"%1 に ID %2 のデータがありません。"_qs.arg(this->table()).arg(id), this->table());
    }

    // Inserts a record without an ID under the next number, else updates it. The counter is written behind the row.
    void SaveData(Record& record) {
        if (!record.ID.isEmpty()) return this->update(record);
        Record numbered = record; // a number that could not be inserted may be another machine's by now
        numbered.ID = GetLastID();
        this->insert(numbered);
        UpdateID(numbered.ID);
        record.ID = numbered.ID;
    }

    // Inserts the record as it stands, its ID and its stamps included, if it has them; the counter is not touched.
    void SaveInit(const Record& record) {
        QStringList without;
        if (record.AddDate.isEmpty()) without << u"登録日"_qs;
        if (record.UpdDate.isEmpty()) without << u"更新日"_qs;
        this->insert(record, this->columnsWithout(without));
    }

    void UpdateID(const QString& lastID) {
        this->execute(u"UPDATE [採番] set 最終値 = %1 WHERE 項目名='%2ID'"_qs.arg(sqlText(lastID), this->table()));
    }

    // The next number of the counter.
    QString GetLastID() {
        const QString last = this->scalar(u"SELECT 最終値 FROM [採番] WHERE 項目名='%1ID'"_qs.arg(this->table()));
        return numberText(Val(last) + 1);
    }

    // The row of an ID; the empty text empties the table.
    void DeleteData(const QString& id) {
        if (id.isEmpty())
            this->removeAll();
        else
            this->remove({id});
    }

    SqlTerm inUse() const { return this->equal(&Record::UseFlg, u"0"_qs); }

    // --- by the names of the columns ---
    QString name() const override { return this->table(); }
    QStringList columnNames() const override { return this->columnsWithout({}); }
    QString idsOf(const SqlTerm& where, const SqlTerm& sort) const override {
        return SqlSelect(u"SELECT [ID] FROM [%1]"_qs.arg(this->table()), where, sort);
    }
    QList<PriceRow> rowsOf(const QStringList& ids) override;
    PriceRow storedRow(const QString& id) override;
    void saveRow(PriceRow& row) override;
    QStringList valuesOf(const QString& column, const SqlTerm& where) override;
    void bind(Connection& connection) override { this->Prepare(connection); }
    void empty() override { DeleteData({}); }
    void importRow(const PriceRow& row) override { SaveInit(recordOf(row)); }
    qint64 rowCount() override { return GetCount(); }

protected:
    using typename TableManager<Record>::Member;

    // The values of one column, each with its largest ID.
    void groupList(QList<Record>& result, Member member, const SqlTerm& where) {
        grouped(result, member, where, u"MAX([ID])"_qs, u"[%1] ASC"_qs.arg(this->column(member).name));
    }

    // The values of one column in the order of their first appearance.
    void sumList(QList<Record>& result, Member member, const SqlTerm& where) {
        grouped(result, member, where, u"MIN([ID])"_qs, u"MIN([ID])"_qs);
    }

    // The combinations of several columns, in their order.
    void combinedList(QList<Record>& result, const QList<Member>& members, const SqlTerm& where) {
        QStringList names;
        for (const Member member : members) names << u'[' + this->column(member).name + u']';
        const QString group = names.join(u" , "_qs);
        Recordset rows = this->query(SqlSelect(u"SELECT DISTINCTROW %1 FROM [%2]"_qs.arg(group, this->table()), where) +
                                     u" GROUP BY %1 ORDER BY %2 ASC"_qs.arg(group, names.join(u" ASC , "_qs)));
        const RecordReader<Record> reader(rows, this->fieldsOf(members));
        while (rows.next()) result << reader.read();
    }

private:
    PriceRow rowOf(const Record& record) const {
        PriceRow row;
        for (const Field<Record>& field : this->fields()) row.insert(field.column, record.*field.member);
        return row;
    }
    Record recordOf(const PriceRow& row) const {
        Record record;
        for (const Field<Record>& field : this->fields()) record.*field.member = row.value(field.column);
        return record;
    }

    void grouped(QList<Record>& result, Member member, const SqlTerm& where, const QString& number,
                 const QString& sort) {
        const QString name = this->column(member).name;
        Recordset rows =
            this->query(SqlSelect(u"SELECT [%1] , %2 AS 項番 FROM [%3]"_qs.arg(name, number, this->table()), where) +
                        u" GROUP BY [%1] ORDER BY %2"_qs.arg(name, sort));
        const RecordReader<Record> reader(rows, {{&Record::ID, u"項番"_qs}, {member, name}});
        while (rows.next()) result << reader.read();
    }
};

template <class Record> QList<PriceRow> PriceManager<Record>::rowsOf(const QStringList& ids) {
    QList<Record> records;
    if (!ids.isEmpty()) TableManager<Record>::GetList(records, SqlOneOf(this->column(&Record::ID), ids));
    QList<PriceRow> rows;
    for (const Record& record : records) rows << rowOf(record);
    return rows;
}

template <class Record> PriceRow PriceManager<Record>::storedRow(const QString& id) {
    Record record;
    GetData(ToInt(id), record);
    return rowOf(record);
}

template <class Record> void PriceManager<Record>::saveRow(PriceRow& row) {
    Record record = recordOf(row);
    SaveData(record);
    row.insert(u"ID"_qs, record.ID);
}

template <class Record> QStringList PriceManager<Record>::valuesOf(const QString& column, const SqlTerm& where) {
    QList<Record> records;
    const Member member = this->memberOf(column);
    groupList(records, member, where);
    QStringList values;
    for (const Record& record : records) values << record.*member;
    return values;
}

class clsPriceItemManager : public PriceManager<clsPriceItem> {
public:
    clsPriceItemManager();

    void GetItemGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceItem::Item, where); }
    void GetPickKbnGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceItem::PickKbn, where); }
    void GetNameGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceItem::Name, where); }
    void GetFormGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceItem::Form, where); }

    // The narrowing lists, in the order of first appearance. The first one shows a 種目 without valid rows as well.
    void GetListSumItem(QList<clsPriceItem>& result);
    void GetListSumPickPtnKbn(QList<clsPriceItem>& result, const QString& Item);
    void GetListSumName(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn);
    void GetListSumForm(QList<clsPriceItem>& result, const QString& Item, const QString& PickPtnKbn,
                        const QString& Name);
};

class clsPriceBaseManager : public PriceManager<clsPriceBase> {
public:
    clsPriceBaseManager();

    void GetItemGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceBase::Item, where); }
    void GetPickKbnGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceBase::PickKbn, where); }
    void GetNameGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceBase::Name, where); }
    void GetFormGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceBase::Form, where); }
    void GetItemPickKbnGrpList(Rows& rows, const SqlTerm& where = {}) {
        combinedList(rows, {&clsPriceBase::Item, &clsPriceBase::PickKbn}, where);
    }
};

class clsPriceAddManager : public PriceManager<clsPriceAdd> {
public:
    clsPriceAddManager();

    void GetItemGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceAdd::Item, where); }
    void GetPickKbnGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceAdd::PickKbn, where); }
    void GetAddElmtGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceAdd::AddElmt, where); }
    void GetItemPickKbnAddElmtGrpList(Rows& rows, const SqlTerm& where = {}) {
        combinedList(rows, {&clsPriceAdd::Item, &clsPriceAdd::PickKbn, &clsPriceAdd::AddElmt}, where);
    }
};

class clsPriceElmtManager : public PriceManager<clsPriceElmt> {
public:
    clsPriceElmtManager();

    void GetItemGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceElmt::Item, where); }
    void GetPickKbnGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceElmt::PickKbn, where); }
    void GetMakeElmtGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceElmt::MakeElmt, where); }
    void GetMaterialsGrpList(Rows& rows, const SqlTerm& where = {}) {
        groupList(rows, &clsPriceElmt::Materials, where);
    }
    void GetItemPickKbnMakeElmtMaterialsGrpList(Rows& rows, const SqlTerm& where = {}) {
        combinedList(rows,
                     {&clsPriceElmt::Item, &clsPriceElmt::PickKbn, &clsPriceElmt::MakeElmt, &clsPriceElmt::Materials},
                     where);
    }
};

class clsPricePartsManager : public PriceManager<clsPriceParts> {
public:
    clsPricePartsManager();

    void GetItemGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceParts::Item, where); }
    void GetNameGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceParts::Name, where); }
    void GetFormGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceParts::Form, where); }
    void GetMakerNmGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceParts::MakerNm, where); }
    void GetPartsCdGrpList(Rows& rows, const SqlTerm& where = {}) { groupList(rows, &clsPriceParts::PartsCd, where); }

    // The names of the usable parts of a 種目, in descending order of the text.
    void GetListSumPartsNm(QList<clsPriceParts>& result, const QString& Item);
    void GetListSumForm(QList<clsPriceParts>& result, const QString& Item, const QString& PartsNm);

    // The condition of the parts of a 種目 that an estimate may take.
    SqlTerm usable(const QString& Item) const;
};

// `基本要素選択` has no counter: it is rebuilt as a whole, see `RebuildBaseElmtSelect`.
class clsBaseElmtSelectManager : public TableManager<clsBaseElmtSelect> {
public:
    clsBaseElmtSelectManager();

    // False when there is no such row.
    bool GetData(qint32 id, clsBaseElmtSelect& record);
    void GetListSumMakeElmt(QList<clsBaseElmtSelect>& result, const QString& Item, const QString& PickKbn);
    // The largest ID; empty for an empty table.
    QString GetLastID();
    void DeleteData(const QString& id);
    void SaveInit(const clsBaseElmtSelect& record);
};

// "[種目]  LIKE '%…%'" for each column with a value, joined by " AND ".
SqlTerm PriceGroupFilter(const QList<std::pair<QString, QString>>& columnsAndValues);

extern clsPriceItemManager gPriceItemManager;
extern clsPriceBaseManager gPriceBaseManager;
extern clsPriceAddManager gPriceAddManager;
extern clsPriceElmtManager gPriceElmtManager;
extern clsPricePartsManager gPricePartsManager;
extern clsBaseElmtSelectManager gBaseElmtSelectManager;
