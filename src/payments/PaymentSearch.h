#pragma once

#include "db/SqlKeys.h"
#include "reference/ReferenceRecords.h"

#include <QList>

// What the lists of payments are searched by, as it stands in the fields. An empty text asks nothing; dates are
// "yyyy/mm/dd".
struct PaymentSearch {
    QString OrderCd, OrderNm, DateFrom, DateTo;
    QString Status;           // 処理区分番号
    bool allStatuses = false; // everything from that status on, but what will never come
    QString ChkIns;           // the excluded laws, see `excludedLaws`
};

// The laws whose customers a search can leave out, in the order of their boxes, and those of "0101".
const QStringList& excludableLaws();
QStringList excludedLaws(const QString& ticks);

// Whether an entry of the statuses stands for all: the one with the largest number below 未回収.
bool meansAllStatuses(const QString& number, const QList<clsProcKbn>& statuses);

// The conditions over the tables of `withCustomerAndChartTables`: what is not paid, by 完成実績日; what is paid, by
// 入金完了日.
SqlTerm noPayCondition(const PaymentSearch& search);
SqlTerm paidCondition(const PaymentSearch& search);
// The sales of ordering parties: what is as far as the status, by 完成実績日; and their order.
SqlTerm orderSalesCondition(const PaymentSearch& search);
SqlTerm orderSalesOrder();
// The terms of an ordering party, and of customers without certain laws.
SqlTerm ofOrderingParty(const QString& code, const QString& name);
SqlTerm withoutLaws(const QStringList& lawNumbers);

// The order that was asked for, or else the lists' own; estimates that are equal in it stand by their number.
SqlTerm paymentOrder(const SqlTerm& sort = {});
