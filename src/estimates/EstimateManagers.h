#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "db/OwnedRowsManager.h"
#include "estimates/EstimateRecords.h"

#include <functional>

// Reading and writing of estimates, one manager for each table. They start no transaction, take no decisions and do not
// know of each other; the caller binds a whole estimate together.

class clsCsEstimateManager : public TableManager<clsCsEstimate> {
public:
    clsCsEstimateManager();

    bool GetData(const QString& EstId, clsCsEstimate& estimate);
    // A record with a blank id is inserted under new numbers, which stand in it afterwards; else it is an update, which
    // leaves the ledger's fields alone. Raises an error when a number cannot be drawn.
    void SaveData(clsCsEstimate& estimate);
    void DeleteData(const QString& EstId);

    // Headers with customer and chart for lists, in three parallel collections. A customer that is gone leaves empty
    // texts.
    void GetListWithMst(QList<clsCsEstimate>& estimates, QList<clsCustomer>& customers, QList<clsChart>& charts,
                        const SqlTerm& where, const SqlTerm& sort);
    // The same one by one, for lists of any length.
    using ListRow = std::function<void(const clsCsEstimate&, const clsCustomer&, const clsChart&)>;
    void ForEachWithMst(const SqlTerm& where, const SqlTerm& sort, const ListRow& take);
    // What a list reads of each table; the lists of estimates do when nothing else is said.
    struct ListFields {
        QList<Field<clsCsEstimate>> estimate;
        QList<Field<clsCustomer>> customer;
        QList<Field<clsChart>> chart;
    };
    static const ListFields& listFields();
    // The same of estimates by their 見積ID, however many: in the order of the ids, a part at a time, so that nothing
    // is held between. Before each part `begin` gets its ids, after it `pause` runs, when given; false ends the walk.
    void ForEachOf(const QStringList& ids, const ListRow& take, const std::function<bool()>& pause = {},
                   const std::function<void(const QStringList&)>& begin = {}, const ListFields& fields = listFields());
    QStringList IdsWithMst(const SqlTerm& where, const SqlTerm& sort);
    // The statement of the list, the one that gives no more than the 見積ID of its rows, and how many they are.
    static QString ListWithMst(const SqlTerm& where, const SqlTerm& sort);
    static QString KeysWithMst(const SqlTerm& where, const SqlTerm& sort);
    qint64 CountWithMst(const SqlTerm& where);
    // Their order by columns of the list, and of equal ones by the 見積ID.
    SqlTerm ListOrder(const QList<SqlColumn>& columns, bool upwards) const;
    // 製品ID, 製品コード and 製品名称 of the master estimates whose code begins with a text, for the selection screen.
    Recordset GetProductList(const QString& ProductCd);
    // Payment completed on a date, or taken back: an empty date with the flag sets 未回収.
    void UpdPayDate(const QString& EstId, const QString& PayDate, const QString& UpdUserNo, bool Flag);
    void UpUrikake(const QString& EstId, const QString& Articles, const QString& EquipMent, const QString& Payment,
                   const QString& Discount, const QString& Urikake);
    // The names of an estimate's insurance laws, cut to 2 characters, joined by a comma. `Excluded` becomes true when
    // one of the full names stands in the list of exclusions.
    void GetInsData(const QString& EstId, QString& InsList, const QString& strExcInsList, bool& Excluded);

private:
    void forEach(const ListFields& fields, const SqlTerm& where, const SqlTerm& sort, const ListRow& take);
};

class clsCsItemManager : public OwnedRowsManager<clsCsItem> {
public:
    clsCsItemManager();
};

class clsCsMakeElmtManager : public OwnedRowsManager<clsCsMakeElmt> {
public:
    clsCsMakeElmtManager();
};

class clsCsCmpltElmtManager : public OwnedRowsManager<clsCsCmpltElmt> {
public:
    clsCsCmpltElmtManager();
};

class clsCsEstAskManager : public OwnedRowsManager<clsCsEstAsk> {
public:
    clsCsEstAskManager();

    // The claims of many estimates, read together: by 見積ID, each in the order of 請求No.
    QHash<QString, QList<clsCsEstAsk>> ClaimsOf(const QStringList& EstIds);
    // Sets the payment date of the claim lines that have none.
    void UpdPayDate(const QString& EstId, const QString& PayDate);
    // Sets the amount received of claim line 1.
    void UpdPayDate2(const QString& EstId, const QString& EstSum);
};

extern clsCsEstimateManager gCsEstimateManager;
extern clsCsItemManager gCsItemManager;
extern clsCsMakeElmtManager gCsMakeElmtManager;
extern clsCsCmpltElmtManager gCsCmpltElmtManager;
extern clsCsEstAskManager gCsEstAskManager;
