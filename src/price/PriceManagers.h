#pragma once

#include "base/AppError.h"
#include "base/basCommon.h"
#include "db/TableManager.h"
#include "price/PriceRecords.h"

// What the managers of the five price tables share; each keeps the next ID of its rows in `採番`.
template <class Record> class PriceManager : public TableManager<Record> {
public:
    using TableManager<Record>::TableManager;

    qint64 GetCount() {
        return this->connection().scalar(u"SELECT count(*) AS CNT FROM [%1] ;"_qs.arg(this->table())).toLongLong();
    }

    // The order is not optional here: an empty one is an SQL failure.
    void GetList(QList<Record>& result, const QString& where, const QString& order) {
        QString sql = u"SELECT * FROM [%1]"_qs.arg(this->table());
        if (const QString filter = Text::rightTrimmed(where); !filter.isEmpty()) sql += u" WHERE "_qs + filter;
        this->readList(result, sql + u" ORDER BY "_qs + Text::rightTrimmed(order));
    }

    // The row of an ID; raises an error when there is none.
    void GetData(qint32 id, Record& record) {
        if (!this->readFirst(record, u"[ID] = %1"_qs.arg(id)))
            throw AppError(u"%1 に ID %2 のデータがありません。"_qs.arg(this->table()).arg(id), this->table());
    }

    // Inserts a record without an ID under the next number, else updates it. The counter is written behind the row.
    void SaveData(Record& record) {
        const QStringList columns = this->columnsWithout({u"登録日"_qs, u"更新日"_qs});
        if (!record.ID.isEmpty()) {
            QStringList data = columns;
            data.removeOne(u"ID"_qs);
            this->update(record, data, {u"ID"_qs});
            return;
        }
        Record numbered = record; // a number that could not be inserted may be another machine's by now
        numbered.ID = GetLastID();
        this->insert(numbered, columns);
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
        const QString last =
            this->connection().scalar(u"SELECT 最終値 FROM [採番] WHERE 項目名='%1ID'"_qs.arg(this->table()));
        return numberText(Val(last) + 1);
    }

    // The row of an ID; the empty text empties the table.
    void DeleteData(const QString& id) {
        QString sql = u"DELETE FROM [%1]"_qs.arg(this->table());
        if (!id.isEmpty()) sql += u" WHERE [ID] = %1"_qs.arg(sqlText(id));
        this->execute(sql);
    }

protected:
    // The values of one column, each with its largest ID.
    void groupList(QList<Record>& result, const QString& column, QString Record::*member, const QString& where) {
        grouped(result, column, member, where, u"SELECT [%1] , MAX([ID]) AS 項番 FROM [%2]"_qs,
                u" ORDER BY [%1] ASC"_qs);
    }

    // The values of one column in the order of their first appearance.
    void sumList(QList<Record>& result, const QString& column, QString Record::*member, const QString& where) {
        grouped(result, column, member, where, u"SELECT [%1] , MIN([ID]) AS 項番 FROM [%2]"_qs,
                u" ORDER BY MIN([ID])"_qs);
    }

    // The combinations of several columns, in their order.
    void combinedList(QList<Record>& result, const QList<Field<Record>>& columns, const QString& where) {
        QStringList names;
        for (const Field<Record>& field : columns) names << u'[' + field.column + u']';
        const QString group = names.join(u" , "_qs);
        QString sql = u"SELECT DISTINCTROW %1 FROM [%2]"_qs.arg(names.join(u" ,"_qs), this->table());
        if (!where.isEmpty()) sql += u" WHERE "_qs + where;
        Recordset rows = this->connection().query(sql + u" GROUP BY "_qs + group + u" ORDER BY "_qs +
                                                  names.join(u" ASC , "_qs) + u" ASC"_qs);
        while (rows.next()) {
            Record record;
            for (const Field<Record>& field : columns) record.*field.member = rows.value(field.column);
            result << record;
        }
    }

private:
    void grouped(QList<Record>& result, const QString& column, QString Record::*member, const QString& where,
                 const QString& select, const QString& order) {
        QString sql = select.arg(column, this->table());
        if (!where.isEmpty()) sql += u" WHERE "_qs + where;
        sql += u" GROUP BY [%1] "_qs.arg(column) + (order.contains(u"%1"_qs) ? order.arg(column) : order);
        WriteSqlLog(sql);
        Recordset rows = this->connection().query(sql);
        while (rows.next()) {
            Record record;
            record.ID = rows.value(u"項番"_qs);
            record.*member = rows.value(column);
            result << record;
        }
    }
};

class clsPriceItemManager : public PriceManager<clsPriceItem> {
public:
    clsPriceItemManager();

    void GetItemGrpList(QList<clsPriceItem>& result, const QString& where = {});
    void GetPickKbnGrpList(QList<clsPriceItem>& result, const QString& where = {});
    void GetNameGrpList(QList<clsPriceItem>& result, const QString& where = {});
    void GetFormGrpList(QList<clsPriceItem>& result, const QString& where = {});

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

    void GetItemGrpList(QList<clsPriceBase>& result, const QString& where = {});
    void GetPickKbnGrpList(QList<clsPriceBase>& result, const QString& where = {});
    void GetNameGrpList(QList<clsPriceBase>& result, const QString& where = {});
    void GetFormGrpList(QList<clsPriceBase>& result, const QString& where = {});
    void GetItemPickKbnGrpList(QList<clsPriceBase>& result, const QString& where = {});
};

class clsPriceAddManager : public PriceManager<clsPriceAdd> {
public:
    clsPriceAddManager();

    void GetItemGrpList(QList<clsPriceAdd>& result, const QString& where = {});
    void GetPickKbnGrpList(QList<clsPriceAdd>& result, const QString& where = {});
    void GetAddElmtGrpList(QList<clsPriceAdd>& result, const QString& where = {});
    void GetItemPickKbnAddElmtGrpList(QList<clsPriceAdd>& result, const QString& where = {});
};

class clsPriceElmtManager : public PriceManager<clsPriceElmt> {
public:
    clsPriceElmtManager();

    void GetItemGrpList(QList<clsPriceElmt>& result, const QString& where = {});
    void GetPickKbnGrpList(QList<clsPriceElmt>& result, const QString& where = {});
    void GetMakeElmtGrpList(QList<clsPriceElmt>& result, const QString& where = {});
    void GetMaterialsGrpList(QList<clsPriceElmt>& result, const QString& where = {});
    void GetItemPickKbnMakeElmtMaterialsGrpList(QList<clsPriceElmt>& result, const QString& where = {});
};

class clsPricePartsManager : public PriceManager<clsPriceParts> {
public:
    clsPricePartsManager();

    void GetItemGrpList(QList<clsPriceParts>& result, const QString& where = {});
    void GetNameGrpList(QList<clsPriceParts>& result, const QString& where = {});
    void GetFormGrpList(QList<clsPriceParts>& result, const QString& where = {});
    void GetMakerNmGrpList(QList<clsPriceParts>& result, const QString& where = {});
    void GetPartsCdGrpList(QList<clsPriceParts>& result, const QString& where = {});

    // The names of the usable parts of a 種目, in descending order of the text.
    void GetListSumPartsNm(QList<clsPriceParts>& result, const QString& Item);
    void GetListSumForm(QList<clsPriceParts>& result, const QString& Item, const QString& PartsNm);
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

extern clsPriceItemManager gPriceItemManager;
extern clsPriceBaseManager gPriceBaseManager;
extern clsPriceAddManager gPriceAddManager;
extern clsPriceElmtManager gPriceElmtManager;
extern clsPricePartsManager gPricePartsManager;
extern clsBaseElmtSelectManager gBaseElmtSelectManager;
