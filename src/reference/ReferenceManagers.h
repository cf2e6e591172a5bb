#pragma once

#include "reference/ReferenceManager.h"

class clsPrefectureManager : public ReferenceManager<clsPrefecture> {
public:
    clsPrefectureManager();

    // The prefectures, and the cities, each once, the last used first.
    void GetPrefGrpList(QList<clsPrefecture>& result, const QString& where = {});
    void GetCityGrpList(QList<clsPrefecture>& result, const QString& where = {});
    // The number of the pair, either of which may be empty; "0" when it is not registered.
    QString CheckExistData(const QString& pref, const QString& city);
    // A pair without a number, or with "0", that is registered already is not added again.
    void SaveData(clsPrefecture& pair, SaveMode mode = SaveMode::Row) override;
};

// The number of a new 法別 follows the highest one other than 99, which is held apart for 自己負担.
class clsInsManager : public ReferenceManager<clsIns> {
public:
    clsInsManager();

    // Writes the name of a known number, else a new row in use. One transaction.
    void SaveData2(clsIns& ins);

protected:
    void insertNew(clsIns& ins) override;
};

// What was decided about a typed code and name that differ from the master.
enum class Reconciled { Done, Cancelled };

// Payers and ordering parties are alike but for their words.
template <class Record> class PartyManager : public ReferenceManager<Record> {
public:
    PartyManager(QString table, typename TableManager<Record>::Fields fields, ReferenceKey<Record> key,
                 QString Record::*nameMember)
        : ReferenceManager<Record>(std::move(table), std::move(fields), std::move(key)), m_name(nameMember) {}

    bool GetDataCd(const QString& code, Record& record);
    // Number, code and name for the selection screen.
    Recordset GetSelectList(const QString& where, const QString& order);
    QString CheckExistData(const QString& code, const QString& name = {});
    // A typed code and name against the master: a new code is registered, and of two differing names the operator
    // chooses one. Cancelled means that the caller drops its save.
    Reconciled ReconcileData(Record& record);

private:
    qint16 askWhichName(const Record& typed, const Record& master) const;

    QString Record::*m_name;
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
template <class Record> class PersonManager : public ReferenceManager<Record> {
public:
    PersonManager(QString table, typename TableManager<Record>::Fields fields, ReferenceKey<Record> key,
                  QString Record::*nameMember)
        : ReferenceManager<Record>(std::move(table), std::move(fields), std::move(key)), m_name(nameMember) {}

    Recordset GetSelectList(const QString& where, const QString& order);
    QString CheckExistData(const QString& code, const QString& name = {});
    // Takes the number and code of the row with this name, or registers the name under a new code. Without a code to
    // be had it says so and leaves the number empty.
    void AddByName(Record& record);

private:
    QString Record::*m_name;
};

class clsDoctorManager : public PersonManager<clsDoctor> {
public:
    clsDoctorManager();
    bool GetDataCd(const QString& code, clsDoctor& doctor);
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
    void GetList(QList<clsInsClaim>& result, const QString& where, const QString& order,
                 Direction direction = Direction::Ascending) override;
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
