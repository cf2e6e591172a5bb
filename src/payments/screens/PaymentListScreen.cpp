#include "payments/screens/PaymentListScreen.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"

void PaymentListScreen::load() { m_rows = std::make_unique<PaymentRows>(gDbManager.Connection()); }

void PaymentListScreen::sortByHeadings(Grid* grid, const ListColumns& columns, std::function<void()> showList) {
    connect(grid, &Grid::headingClicked, this, [this, grid, &columns, showList = std::move(showList)](int column) {
        guarded([&] {
            if (m_sorts.click(columns, grid, column)) showList();
        });
    });
}

void PaymentListScreen::writeOrders(ListFile file, const SqlTerm& where, const SqlTerm& sort, const LinesOf& linesOf) {
    const QStringList ids = rows().ids(where, sort);
    if (ids.isEmpty()) {
        ShowMessage(Message::Missing, u"出力データ"_qs);
        return;
    }
    file.name = windowTitle() + u".csv"_qs;
    qint64 orders = 0;
    const auto each = [&](const std::function<void(const CsvRow&)>& take) {
        orders = 0;
        const auto add = [&](const PaymentRow& row) {
            ++orders;
            for (const CsvRow& line : linesOf(row)) take(line);
        };
        return whileBusy(u"CSV出力中"_qs, [&](const Pause& pause) { rows().forEach(ids, add, pause); });
    };
    exportCsv(file, each, [&orders] { return orders; });
}
