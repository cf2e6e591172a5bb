#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCustomerManager.h"
#include "db/TableManager.h"
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
                        const QString& where, const QString& order);
    // The same one by one, for lists of any length.
    using ListRow = std::function<void(const clsCsEstimate&, const clsCustomer&, const clsChart&)>;
    void ForEachWithMst(const QString& where, const QString& order, const ListRow& take);
    // The same of estimates by their 見積ID, however many: in the order of the ids, a part at a time, so that nothing
    // is held between. Before each part `begin` gets its ids, after it `pause` runs, when given; false ends the walk.
    void ForEachOf(const QStringList& ids, const ListRow& take, const std::function<bool()>& pause = {},
                   const std::function<void(const QStringList&)>& begin = {});
    QStringList IdsWithMst(const QString& where, const QString& order);
    // The statement of the list, the one that gives no more than the 見積ID of its rows, and how many they are.
    static QString ListWithMst(const QString& where, const QString& order);
    static QString KeysWithMst(const QString& where, const QString& order);
    qint64 CountWithMst(const QString& where);
    // Payment completed on a date, or taken back: an empty date with the flag sets 未回収.
    void UpdPayDate(const QString& EstId, const QString& PayDate, const QString& UpdUserNo, bool Flag);
    void UpUrikake(const QString& EstId, const QString& Articles, const QString& EquipMent, const QString& Payment,
                   const QString& Discount, const QString& Urikake);
    // The names of an estimate's insurance laws, cut to 2 characters, joined by a comma. `Excluded` becomes true when
    // one of the full names stands in the list of exclusions.
    void GetInsData(const QString& EstId, QString& InsList, const QString& strExcInsList, bool& Excluded);
};

// What the four tables below an estimate share: a save replaces all rows of the estimate. An empty collection deletes
// nothing, so the caller deletes when the last row is to go.
template <class Record> class EstimateRowManager : public TableManager<Record> {
public:
    EstimateRowManager(QString table, typename TableManager<Record>::Fields fields, QStringList keys)
        : TableManager<Record>(std::move(table), std::move(fields)), m_keys(std::move(keys)) {}

    // The row by its full key, in the order of the key columns.
    bool GetData(const QStringList& keyValues, Record& record) {
        QStringList terms;
        for (int i = 0; i < m_keys.size(); ++i)
            terms << u'[' + m_keys.at(i) + u"] = "_qs +
                         (i == 0 ? sqlText(keyValues.at(i)) : sqlNumber(keyValues.at(i)));
        return this->readFirst(record, terms.join(u" AND "_qs));
    }

    void SaveData(const QList<Record>& rows) {
        if (rows.isEmpty()) return;
        DeleteData(rows.first().EstId);
        for (const Record& row : rows) this->insert(row, this->columnsWithout({}));
    }

    void DeleteData(const QString& EstId) {
        this->maker().RemoveAll();
        this->maker().AddKey(u"見積ID"_qs, EstId);
        this->execute(this->maker().GetSqlForDelete());
    }

private:
    QStringList m_keys;
};

class clsCsItemManager : public EstimateRowManager<clsCsItem> {
public:
    clsCsItemManager();
};

class clsCsMakeElmtManager : public EstimateRowManager<clsCsMakeElmt> {
public:
    clsCsMakeElmtManager();
};

class clsCsCmpltElmtManager : public EstimateRowManager<clsCsCmpltElmt> {
public:
    clsCsCmpltElmtManager();
};

class clsCsEstAskManager : public EstimateRowManager<clsCsEstAsk> {
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
