#pragma once

#include "db/OwnedRowsManager.h"
#include "master/MasterRecords.h"

// Reading and writing of master estimates, one manager for each table. They start no transaction, take no decisions and
// do not know of each other; the caller binds a whole master estimate together.

class clsMstEstimateManager : public TableManager<clsMstEstimate> {
public:
    clsMstEstimateManager();

    // The order is not optional here: an empty one is an SQL failure.
    void GetList(QList<clsMstEstimate>& MstEsts, const SqlTerm& where, const SqlTerm& sort);
    bool GetData(const QString& ProductId, clsMstEstimate& MstEst);
    // 製品ID, 製品コード, 製品名称, 小人価格, 中人価格 and 大人価格 alone, for selection lists.
    Recordset GetSelectList(const SqlTerm& where, const SqlTerm& sort);
    // The master estimates of these ids that are there, in any order.
    QList<clsMstEstimate> mastersOf(const QStringList& ProductIds);
    // The statement that gives no more than their 製品ID, for lists of any length.
    static QString Keys(const SqlTerm& where, const SqlTerm& sort);
    // Writes over the master estimate that has the record's code, whatever id the record brings: a code stands once. A
    // record that has neither a known code nor an id is inserted under a new id. The id of the row stands in the record
    // afterwards. Raises an error when no number can be drawn.
    void SaveData(clsMstEstimate& MstEst);
    void DeleteData(const QString& ProductId);

private:
    QString idOfCode(const QString& ProductCd);
};

class clsMstItemManager : public OwnedRowsManager<clsMstItem> {
public:
    clsMstItemManager();
};

class clsMstMakeElmtManager : public OwnedRowsManager<clsMstMakeElmt> {
public:
    clsMstMakeElmtManager();

    // Writes the three amounts of one stored line and nothing else; a line that is gone stays gone.
    void SaveData2(const clsMstMakeElmt& line);
};

class clsMstCmpltElmtManager : public OwnedRowsManager<clsMstCmpltElmt> {
public:
    clsMstCmpltElmtManager();

    // Likewise its one amount.
    void SaveData2(const clsMstCmpltElmt& line);
};

extern clsMstEstimateManager gMstEstimateManager;
extern clsMstItemManager gMstItemManager;
extern clsMstMakeElmtManager gMstMakeElmtManager;
extern clsMstCmpltElmtManager gMstCmpltElmtManager;
