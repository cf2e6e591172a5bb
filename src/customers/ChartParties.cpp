#include "customers/ChartParties.h"

#include "base/Numbers.h"
#include "reference/ReferenceManagers.h"

namespace {

QString doctorNumber(const clsChart& chart) {
    if (Text::rightTrimmed(chart.DoctorNm).isEmpty()) return {};
    clsDoctor doctor;
    doctor.DoctorNm = chart.DoctorNm;
    doctor.OrderNo = chart.OrderNo;
    gDoctorManager.AddByName(doctor);
    return doctor.DoctorNo;
}

} // namespace

bool settleParties(clsChart& chart, const QString& orderCd) {
    clsOrder order;
    order.OrderNo = chart.OrderNo;
    order.OrderCd = orderCd;
    order.OrderNm = chart.OrderNm;
    if (gOrderManager.ReconcileData(order) == Reconciled::Cancelled) return false;
    chart.OrderNo = order.OrderNo;
    chart.OrderNm = order.OrderNm;
    chart.DoctorNo = doctorNumber(chart);
    return true;
}

QString renewParties(clsChart& chart) {
    clsOrder order;
    if (Val(chart.OrderNo) != 0 && gOrderManager.GetData(chart.OrderNo, order)) chart.OrderNm = order.OrderNm;
    clsDoctor doctor;
    if (Val(chart.DoctorNo) != 0 && gDoctorManager.GetData(chart.DoctorNo, doctor)) chart.DoctorNm = doctor.DoctorNm;
    return order.OrderCd;
}

QString orderCodeOf(const clsChart& chart) {
    clsOrder order;
    if (Val(chart.OrderNo) != 0) gOrderManager.GetData(chart.OrderNo, order);
    return order.OrderCd;
}
