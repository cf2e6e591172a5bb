#pragma once

#include "customers/CustomerKey.h"
#include "db/TableManager.h"

// An insurance law that a customer branch uses, table `顧客保険`.
struct clsCsIns {
    QString CustId, CustSubId;
    QString DataNo; // 項番, running within the branch, from 1
    QString InsNo;  // 法別No
};

class clsCsInsManager : public TableManager<clsCsIns> {
public:
    clsCsInsManager();

    bool GetData(const QString& CustId, const QString& CustSubId, const QString& DataNo, clsCsIns& ins);
    // With a number of 0 or empty the branch's whole list goes.
    void DeleteData(const QString& CustId, const QString& CustSubId, const QString& DataNo);
    // Inserts or updates; the number 0 is drawn.
    void SaveData(clsCsIns& ins);
    // Puts these laws, numbered from 1, in place of the branch's list.
    void SaveAll(const CustomerKey& branch, const QStringList& laws);
    // Keeps a law once per branch; a law of 0 or empty is none.
    void AddIfMissing(clsCsIns& ins);
    QString GetNewDataNo(const QString& CustId, const QString& CustSubId);
    bool CheckExistData(const QString& CustId, const QString& CustSubId, const QString& DataNo);
};

extern clsCsInsManager gCsInsManager;
