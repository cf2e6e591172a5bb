#pragma once

#include "payments/PaymentRows.h"

// What the work plan is searched by. An empty text asks nothing; dates are "yyyy/mm/dd".
struct WorkPlanSearch {
    QString OrderCd, OrderNm, Producer, DateFrom, DateTo;
    bool byOrder = false; // sorted by ordering party, else by date
    bool prices = false;
};

// One planned date of an estimate.
struct PlannedWork {
    QString EstId, Date;
    QString PlanCd, PlanNm; // 1 仮合, 2 完成, 3 納品
    QString Order, Producer, CustNm, EstNm, Doctor;
    QString EstSum; // 見積総合計
    QList<clsCsEstAsk> claims;
};

// The planned dates as one list: an estimate stands in it for each of its dates.
QString workPlanStatement(const WorkPlanSearch& search);
// Goes through it; the claims of a part of it are read together, and after each part `pause` runs, when given; false
// ends the walk.
void forEachPlanned(Connection& connection, PaymentRows& rows, const WorkPlanSearch& search,
                    const std::function<void(const PlannedWork&)>& take, const std::function<bool()>& pause = {});
