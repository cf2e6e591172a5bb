#include "ui/OrderChoice.h"

#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/SelectFrom.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"

void SelectOrder(QWidget* parent, TextField* code, TextField* name) {
    Recordset orders =
        gOrderManager.GetSelectList(SqlAllOf({gOrderManager.inUse(), gOrderManager.withCode(code->value())}), bySeq);
    const auto chosen = SelectFrom(parent, u"受注先"_qs, std::move(orders), {u"受注先No"_qs});
    if (!chosen) return;
    code->setValue(chosen->value(u"受注先コード"_qs));
    name->fillIn(chosen->value(u"受注先"_qs));
}

void FillDoctorsOfOrder(ChoiceBox* doctors, const QString& code) {
    const QString shown = doctors->text();
    FillDoctorList(doctors, SqlAllOf({gDoctorManager.ofOrders(code), gDoctorManager.inUse()}));
    doctors->setText(shown);
}
