#pragma once

#include "reference/ReferenceManager.h"

class clsPrefectureManager : public ReferenceManager<clsPrefecture> {
public:
    clsPrefectureManager();

    // The prefectures, and the cities, each once, the last used first.
    void GetPrefGrpList(QList<clsPrefecture>& result, const SqlTerm& where = {});
    void GetCityGrpList(QList<clsPrefecture>& result, const SqlTerm& where = {});
    // The number of the pair, either of which may be empty; "0" when it is not registered.
    QString CheckExistData(const QString& pref, const QString& city);
    // A pair without a number, or with "0", that is registered already is not added again.
    void SaveData(clsPrefecture& pair, SaveMode mode = SaveMode::Row) override;

protected:
    void insertNew(clsPrefecture& pair) override;

private:
    void readGroups(QList<clsPrefecture>& result, Member member, const SqlTerm& where);
};

// The number of a new 法別 follows the highest one other than 99, which is held apart for 自己負担.
class clsInsManager : public ReferenceManager<clsIns> {
public:
    clsInsManager();

    // The first row of a name by its number; empty when there is none.
    QString numberOf(const QString& name);
    // Writes the name of a known number, else a new row in use. One transaction.
    void SaveData2(clsIns& ins);

protected:
    void insertNew(clsIns& ins) override;
};

// What was decided about a typed code and name that differ from the master.
enum class Reconciled { Done, Cancelled };

// The tables whose rows have a code and a name.
template <class Record> class CodedManager : public ReferenceManager<Record> {
public:
    using ReferenceManager<Record>::ReferenceManager;

    bool GetDataCd(const QString& code, Record& record);
    // Number, code and name for the selection screen.
    Recordset GetSelectList(const SqlTerm& where, const SqlTerm& sort);
    // The number of a row with the code, and with the name if one is given; "0" when there is none.
    QString CheckExistData(const QString& code, const QString& name = {});
    // The rows whose code begins with a text.
    SqlTerm withCode(const QString& begin) const { return this->startsWith({{this->code(), begin}}); }

protected:
    // Of the rows with a text one in use goes first, and of these the last used; false when there is none.
    bool findLast(QString Record::*member, const QString& text, Record& record);
    void putInUse(Record& record);
};

// Payers and ordering parties are alike but for their words.
template <class Record> class PartyManager : public CodedManager<Record> {
public:
    using CodedManager<Record>::CodedManager;

    // A typed code and name against the master: a new code is registered, and of two differing names the operator
    // chooses one. Cancelled means that the caller drops its save.
    Reconciled ReconcileData(Record& record);

private:
    qint16 askWhichName(const Record& typed, const Record& master) const;
};

class clsClaimManager : public PartyManager<clsClaim> {
public:
    clsClaimManager();
};

class clsOrderManager : public PartyManager<clsOrder> {
public:
    clsOrderManager();
};

// Persons with a code that is drawn from a series when a name is typed by hand.
template <class Record> class PersonManager : public CodedManager<Record> {
public:
    using CodedManager<Record>::CodedManager;

    // Takes the number and code of the row with this name, or registers the name under a new code. Without a code to
    // be had it says so and leaves the number empty.
    void AddByName(Record& record);
};

class clsDoctorManager : public PersonManager<clsDoctor> {
public:
    clsDoctorManager();
    // The doctors of the ordering parties whose code begins with a text; of all when it is empty.
    SqlTerm ofOrders(const QString& code) const;
};

class clsProducerManager : public PersonManager<clsProducer> {
public:
    clsProducerManager();
};

class clsStaffManager : public ReferenceManager<clsStaff> {
public:
    clsStaffManager();
};

// The program never writes this table.
class clsProcKbnManager : public TableManager<clsProcKbn> {
public:
    clsProcKbnManager();
    bool GetData(const QString& number, clsProcKbn& status);
    // The name of a status; empty for an unknown number.
    QString nameOf(const QString& number);
};

class clsInsClaimManager : public ReferenceManager<clsInsClaim> {
public:
    clsInsClaimManager();

    // With the names of both sides; filters name the tables, as in "[法別請求対応].[法別No] = 1".
    void GetList(QList<clsInsClaim>& result, const SqlTerm& where, const SqlTerm& sort,
                 Direction direction = Direction::Ascending) override;
    // The payers in use that are registered for a 法別, the last used first.
    QList<clsClaim> payersOf(const QString& insNo);
    // The number of the pair; "0" when it is not registered.
    QString CheckExistData(const QString& insNo, const QString& claimNo);
    // Registers the pair, or marks a registered one as last used. Nothing happens when either number is 0 or empty.
    void ReconcileData(const QString& insNo, const QString& claimNo);

protected:
    void insertNew(clsInsClaim& pair) override;
};

class clsEquipmentManager : public ReferenceManager<clsEquip> {
public:
    clsEquipmentManager();

protected:
    void insertNew(clsEquip& equip) override;
};

extern clsPrefectureManager gPrefectureManager;
extern clsInsManager gInsManager;
extern clsClaimManager gClaimManager;
extern clsOrderManager gOrderManager;
extern clsDoctorManager gDoctorManager;
extern clsProducerManager gProducerManager;
extern clsStaffManager gStaffManager;
extern clsProcKbnManager gProcKbnManager;
extern clsInsClaimManager gInsClaimManager;
extern clsEquipmentManager gEquipmentManager;
