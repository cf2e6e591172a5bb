#include "ui/SelectFrom.h"

#include "base/basMessage.h"
#include "ui/frmSelectList.h"

std::optional<SelectedRow> SelectFrom(QWidget* parent, const QString& title, Recordset rows,
                                      const QStringList& hidden, TellMissing tell,
                                      const std::function<QString(QWidget* parent)>& estDetail) {
    SelectRows table;
    table.columns = rows.fields();
    while (rows.next()) {
        QStringList row;
        for (int i = 0; i < table.columns.size(); ++i) row << rows.value(i);
        table.rows << row;
    }
    if (table.rows.isEmpty()) {
        if (tell == TellMissing::Yes) ShowMessage(121, title);
        return std::nullopt;
    }
    std::optional<SelectedRow> chosen;
    openScreen<frmSelectList>(
        parent,
        [&](frmSelectList& list) {
            list.Recordset = table;
            list.TblName = title;
            list.HideCols = hidden;
            list.EstDetail = estDetail;
        },
        [&](frmSelectList& list) {
            if (!list.Cancel) chosen = list.Selected;
        });
    return chosen;
}
