#include "ui/SelectFrom.h"

#include "base/basMessage.h"
#include "ui/frmSelectList.h"

namespace {

std::optional<SelectedRow> chooseIn(QWidget* parent, const std::function<void(frmSelectList&)>& prepare) {
    std::optional<SelectedRow> chosen;
    openScreen<frmSelectList>(parent, prepare, [&](frmSelectList& list) {
        if (!list.Cancel) chosen = list.Selected;
    });
    return chosen;
}

} // namespace

std::optional<SelectedRow> SelectFrom(QWidget* parent, const QString& title, Recordset rows, const QStringList& hidden,
                                      TellMissing tell, const EstDetail& estDetail) {
    SelectRows table;
    table.columns = rows.fields();
    while (rows.next()) {
        QStringList row;
        for (int i = 0; i < table.columns.size(); ++i) row << rows.value(i);
        table.rows << row;
    }
    if (table.rows.isEmpty()) {
        if (tell == TellMissing::Yes) ShowMessage(Message::NotFound, title);
        return std::nullopt;
    }
    return chooseIn(parent, [&](frmSelectList& list) {
        list.Recordset = table;
        list.TblName = title;
        list.HideCols = hidden;
        list.EstDetail = estDetail;
    });
}

std::optional<SelectedRow> SelectFrom(QWidget* parent, const QString& title, const LongTable& table,
                                      const QStringList& hidden, const EstDetail& estDetail) {
    return chooseIn(parent, [&](frmSelectList& list) {
        list.Long = table;
        list.TblName = title;
        list.HideCols = hidden;
        list.EstDetail = estDetail;
    });
}
