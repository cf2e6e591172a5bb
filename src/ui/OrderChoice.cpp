#include "ui/OrderChoice.h"

#include "base/basCommon.h"
#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/SelectFrom.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"

namespace {

const QString inUse = u"[有効Flg] = 0"_qs;

QString codeCondition(const QString& code) { return SqlStartsWith(u"[受注先コード]"_qs, code); }

} // namespace

void SelectOrder(QWidget* parent, TextField* code, TextField* name) {
    Recordset orders = gOrderManager.GetSelectList(SqlAllOf({inUse, codeCondition(code->value())}), u"[順番]"_qs);
    const auto chosen = SelectFrom(parent, u"受注先"_qs, std::move(orders), {u"受注先No"_qs});
    if (!chosen) return;
    code->setValue(chosen->value(u"受注先コード"_qs));
    name->setValue(chosen->value(u"受注先"_qs));
}

void FillDoctorsOfOrder(ChoiceBox* doctors, const QString& code) {
    const QString shown = doctors->text();
    const QString ofParty =
        code.isEmpty() ? QString()
                       : u"[受注先No] IN (SELECT [受注先No] FROM [受注先] WHERE %1)"_qs.arg(codeCondition(code));
    FillDoctorList(doctors, SqlAllOf({ofParty, inUse}));
    doctors->setText(shown);
}
