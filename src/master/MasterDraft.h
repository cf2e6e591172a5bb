#pragma once

#include "composition/Composition.h"
#include "db/DraftSave.h"
#include "master/MasterRecords.h"
#include "master/MasterTotals.h"

#include <functional>
#include <optional>

// The money of what is composed: the sums before the tax, those of the make elements for 大人.
struct MasterAmounts {
    qint32 makeElements = 0;
    qint32 completeParts = 0;
    MasterTotals totals;
};

// One master estimate as it stands on the screen: everything that one press of 反映 writes.
struct MasterDraft {
    clsMstEstimate master; // `UpdDate` is that of the last load
    Composition composition;
    double taxRate = 0; // of the settings at the load, in percent
    QString storedRows; // as the rows stood when it was loaded or saved; empty for a new one
    SaveDoubt<MasterDraft> doubt;

    // Raises an overflow error beyond 32 bits.
    MasterAmounts amounts() const;
    // The name that follows from the items.
    QString proposedName() const;
    // The same contents under another code: nothing stored stands for them yet.
    void becomeNew();
    // Is from now on the master estimate that a save made (see DraftSave), with the contents as they are.
    void takeIdentity(const MasterDraft& before, const MasterDraft& after);
};

// One to be filled in, of the price year in force.
MasterDraft newMaster();
// Reads a stored one with all that hangs on it. False when there is none, which leaves the draft as it was.
bool loadMaster(const QString& ProductId, MasterDraft& draft);

// What came of a save; all but the first was told.
enum class MasterSave { Saved, WrongCode, WrongName, Refused, Gone };

// Whether an estimate of a customer names a product code.
using IsCodeUsed = std::function<bool(const QString& ProductCd)>;

// Checks and writes header, items and lines in one transaction, or nothing; the amounts are stored without tax.
// Afterwards the draft is what `loadMaster` gives. A code that another master estimate has is refused, also when
// another machine stores it at the same moment; one that another machine deleted meanwhile is `Gone`. Failures rise
// after the rollback.
MasterSave saveMaster(Connection& connection, MasterDraft& draft, const IsCodeUsed& isUsed);

// Removes a master estimate and its rows in one transaction. Estimates that name its code stay as they are. One that
// another machine has stored since `UpdDate`, when given, raises an error and stays.
void deleteMaster(Connection& connection, const QString& ProductId, const std::optional<QString>& UpdDate = {});
