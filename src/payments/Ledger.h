#pragma once

#include "payments/PaymentRows.h"

// The receivable ledger: what was billed, what came in, what was taken off, what remains.

// What it is searched by. Dates are "yyyy/mm/dd"; an empty one is no bound.
struct LedgerSearch {
    enum Day { Received, Asked, Delivered, Paid };
    enum Book { AllBooks, FirstBook, SecondBook };
    enum Balance { AnyBalance, Owing, NotOwing };

    Day day = Received;
    QString DateFrom, DateTo;
    Book book = AllBooks;
    Balance balance = AnyBalance;
};

namespace Ledger {

// The condition over the tables of `withCustomerAndChartTables`; empty when nothing is asked. By the day of payment an
// estimate without a claim paid then is left out, and only such claims count towards its balance.
SqlTerm condition(const LedgerSearch& search);
// The name of a book as it is stored; empty for all.
QString bookName(LedgerSearch::Book book);

// A row of the ledger in the order of its columns, which are those of `LedgerColumn`.
enum Column {
    Id,
    Producer,
    EstNo,
    CustNm,
    Order,
    Doctor,
    EstNm,
    EquipMent,
    Articles,
    RecvDate,
    EstPrice,
    Laws,
    TmpSetPlnDate,
    DelvPlnDate,
    TickRsvDate,
    DelvFinDate,
    AskFinDate,
    AskPrice,
    PayDate,
    Payment,
    PayPrice,
    Discount,
    Remaining,
    Urikake,
    FirstPayment,
    Columns = FirstPayment + 8 // date and amount of four claims
};
// Takes only the claims that the search counts.
QStringList cells(PaymentRow row, const LedgerSearch& search, const PaymentRows& names);
// What remains by the amounts in a row.
QString remaining(const QStringList& cells);

// The lines of a file: what was searched for, and the fields of a row.
QList<QStringList> fileHeads(const LedgerSearch& search);

// The fields of an estimate that the ledger keeps. A blank discount is none.
struct Entry {
    QString EstId, Articles, EquipMent, Payment, Discount, Urikake;
    QString state; // `stateOf` the estimate that was edited
};
QString stateOf(const clsCsEstimate& estimate);
// Writes them in one transaction and gives the ids of the estimates that were changed or deleted meanwhile.
QStringList write(Connection& connection, const QList<Entry>& entries);

} // namespace Ledger
