#pragma once

#include "base/CsvOutput.h"
#include "payments/PaymentRows.h"
#include "reports/engine/PrintingScreen.h"
#include "ui/HeadingSorts.h"

// What the lists of payments share: their rows, their order, their file.
class PaymentListScreen : public PrintingScreen {
    Q_OBJECT

public:
    using PrintingScreen::PrintingScreen;

protected:
    void load() override;
    PaymentRows& rows() { return *m_rows; }

    // A heading sorts the list anew.
    void sortByHeadings(Grid* grid, const ListColumns& columns, std::function<void()> showList);
    SqlTerm sorting(const ListColumns& columns) const { return m_sorts.sorting(columns); }
    // The orders under a condition as a file for a spreadsheet that has the screen's name, each in one line or several;
    // none is told.
    using LinesOf = std::function<QList<CsvRow>(const PaymentRow& row)>;
    void writeOrders(ListFile file, const SqlTerm& where, const SqlTerm& sort, const LinesOf& linesOf);

private:
    std::unique_ptr<PaymentRows> m_rows;
    HeadingSorts m_sorts;
};
