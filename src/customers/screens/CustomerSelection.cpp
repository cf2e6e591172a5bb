#include "customers/screens/CustomerSelection.h"

#include "base/basMessage.h"
#include "customers/clsCustomerManager.h"

namespace {

const QString id = u"顧客ID"_qs;
const QString branch = u"顧客枝番"_qs;

QString keysContaining(const SqlTerm& where, const QString& sought) {
    const SqlTerm containing = sought.isEmpty() ? SqlTerm() : clsCustomerManager::SelectContaining(sought);
    return clsCustomerManager::Keys(
        SqlAllOf({where, containing}),
        gCustomerManager.sorted({&clsCustomer::CustKn1, &clsCustomer::CustKn2, &clsCustomer::CustNo}));
}

QHash<QString, QStringList> fetchRows(const QStringList& keys) {
    QHash<QString, QStringList> found;
    if (keys.isEmpty()) return found;
    Recordset rows = gCustomerManager.GetSelectList(clsCustomerManager::ofListKeys(keys), {});
    while (rows.next()) {
        QStringList row;
        for (int i = 0; i < rows.fields().size(); ++i) row << rows.value(i);
        found.insert(clsCustomerManager::listKey(rows.value(id), rows.value(branch)), row);
    }
    return found;
}

} // namespace

LongTable customerTable(const SqlTerm& where) {
    return {{id, branch, u"顧客番号"_qs, u"顧客名"_qs, u"住所"_qs, u"電話"_qs, u"生年月日"_qs},
            {12, 6, 13, 22, 40, 16, 13},
            [where](const QString& sought) { return keysContaining(where, sought); },
            fetchRows};
}

std::optional<SelectedRow> selectCustomer(QWidget* parent, const SqlTerm& where, const EstDetail& estDetail) {
    const QString title = u"顧客"_qs;
    if (gCustomerManager.Count(where) == 0) {
        ShowMessage(Message::NotFound, title);
        return std::nullopt;
    }
    return SelectFrom(parent, title, customerTable(where), {id, branch}, estDetail);
}
