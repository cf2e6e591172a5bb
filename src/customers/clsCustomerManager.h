#pragma once

#include "customers/CustomerKey.h"
#include "db/TableManager.h"

#include <functional>

// One branch of a person, table `顧客情報`. `CustId` identifies the person, `CustSubId` (from 1) a version of that
// person. `PriceType` is the age tier text of the price lookup; no screen computes or offers it.
struct clsCustomer {
    QString CustId, CustSubId, CustNo;
    QString CustNm1, CustNm2, CustKn1, CustKn2;
    QString Sex, Birth;
    QString Zip, Pref, City, Addr1, Addr2;
    QString Tel, Fax, mail;
    QString PriceType, Insured, FamilyType;
    QString AddDate, UpdDate, UpdUserNo, Memo;

    CustomerKey key() const { return {CustId, CustSubId}; }
};

// What the operator decided about a stored customer that differs from what was typed.
enum class CustomerUpdate { Closed = 0, Overwrite = 1, NewBranch = 2, NewCustomer = 3 };

// The screen that shows stored against entered values and asks for that decision.
using ConfirmUpdate = std::function<CustomerUpdate(const clsCustomer& stored, const clsCustomer& typed)>;

class clsCustomerManager : public TableManager<clsCustomer> {
public:
    clsCustomerManager();

    bool GetData(const QString& CustId, const QString& CustSubId, clsCustomer& customer);
    // Removes that branch's row alone; charts, insurances and estimates of the branch stay.
    void DeleteData(const QString& CustId, const QString& CustSubId);

    // The save of the customer screen: decides between a new person, a new branch and an update, asks about a person
    // of the same name, birth date and address, and draws the numbers into the record. False: the operator cancelled
    // or a number could not be drawn; nothing is written.
    bool SaveData(clsCustomer& customer);
    // The save of the estimate editor: a stored row that differs is put to the operator.
    bool SaveDataFromEstimate(clsCustomer& customer, const ConfirmUpdate& confirm);

    // The largest branch number plus 1, "1" for a person without a branch; beyond it when a deleted branch of that
    // number left charts, laws or estimates behind.
    QString GetNewSubId(const QString& CustId);
    // A row of the same name, sex, birth date, postal code, prefecture and city: its id, branch and number.
    bool FindSame(const clsCustomer& customer, clsCustomer& same);
    // Compares what the estimate editor shows; mail address and age tier are not among it.
    static bool IsChanged(const clsCustomer& customer, const clsCustomer& stored);

    // 顧客ID, 顧客枝番, 顧客番号, 顧客名, 住所, 電話, 生年月日 for the selection screen.
    Recordset GetSelectList(const SqlTerm& where, const SqlTerm& sort);
    static QString SelectList(const SqlTerm& where, const SqlTerm& sort); // its statement
    // The condition of its rows that contain a text in a column that is shown or in the reading, in any spelling; none
    // for an empty text.
    static SqlTerm SelectContaining(const QString& text);
    qint64 Count(const SqlTerm& where) { return count(where); }
    // Customers that have estimates; filters may name the tables of estimate, chart, ordering party and maker.
    void GetListWithEst(QList<clsCustomer>& result, const SqlTerm& where, const SqlTerm& sort);

    static QString ListWithEst(const SqlTerm& where, const SqlTerm& sort);

    // The statement that gives the key of each of the same rows (`sort`: columns without a direction), or of rows of
    // the table alone, and the customers of such keys in any order.
    static QString KeysWithEst(const SqlTerm& where, const SqlTerm& sort);
    static QString Keys(const SqlTerm& where, const SqlTerm& sort);
    static QString listKey(const QString& CustId, const QString& CustSubId);
    static CustomerKey ofListKey(const QString& listKey);
    static QString listKey(const clsCustomer& customer) { return listKey(customer.CustId, customer.CustSubId); }
    // The condition of the customers of such keys; it may hold for other branches of theirs.
    static SqlTerm ofListKeys(const QStringList& listKeys);
    QList<clsCustomer> customersOf(const QStringList& listKeys);

private:
    bool hasLeftovers(const CustomerKey& branch);
    // The steps of a save; false when it ends there.
    bool findItsPlace(clsCustomer& customer);
    CustomerUpdate ask(const ConfirmUpdate& confirm, const clsCustomer& stored, const clsCustomer& typed) const;
    bool takeDecision(clsCustomer& customer, CustomerUpdate decision);
    bool drawNewId(clsCustomer& customer);
    bool drawNumber(clsCustomer& customer);
    bool write(clsCustomer& customer);
};

extern clsCustomerManager gCustomerManager;

// The text that stands for a customer or estimate number not drawn yet.
extern const QString automaticNumber;
