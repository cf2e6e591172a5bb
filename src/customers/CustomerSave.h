#pragma once

#include "customers/clsChartManager.h"
#include "customers/clsCsInsManager.h"
#include "customers/clsCustomerManager.h"
#include "db/DraftSave.h"

#include <QList>

// A chart with the code of its ordering party as typed. A chart without a number is a new one.
struct CustomerChart {
    clsChart chart;
    QString orderCd;
};

// The rows of a customer branch.
struct CustomerRows {
    clsCustomer customer;
    QStringList laws; // 法別No, in the order of the list
    QList<clsChart> charts;
};

// A customer branch with all that the customer screen shows of it.
struct CustomerDraft {
    clsCustomer customer;
    QStringList laws;
    QList<CustomerChart> charts;
    CustomerRows stored; // as the rows stood when they were loaded or saved
    SaveDoubt<CustomerDraft> doubt;

    // Is from now on the branch that a save made (see DraftSave), with the contents as they are.
    void takeIdentity(const CustomerDraft& before, const CustomerDraft& after);
};

// What a save makes of the draft.
enum class CustomerSaveAs { Itself, NewBranch };
enum class CustomerSaveResult { Refused, Added, Updated };

// Reads a branch with its laws and charts. False when there is no such branch.
bool loadCustomer(const QString& CustId, const QString& CustSubId, CustomerDraft& draft);

// Writes the branch, its laws and its charts in one transaction, or nothing. Laws and charts that the draft lacks go,
// but a chart that an estimate uses stays, which is told, and so do those that another machine has added. `NewBranch`
// leaves the stored branch as it is and writes all under the next branch number. Questions are put through
// `ShowMessage`: also when another machine has changed since what this save writes over. A refusal leaves the draft as
// it was. Otherwise it is what `loadCustomer` gives, and the save is logged. Failures rise after the rollback.
CustomerSaveResult saveCustomer(Connection& connection, CustomerDraft& draft,
                                CustomerSaveAs as = CustomerSaveAs::Itself);

// Removes the row of a branch and logs it. Its charts, laws and estimates stay.
void deleteCustomer(Connection& connection, const clsCustomer& customer);
