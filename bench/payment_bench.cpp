// The lists of payments in a large office, played on their screens, against the engine's own shell, in one run:
// payment_bench FILE.ini [WORD]    with a word, only the lists that have it in their name
#include "ListTiming.h"

#include "customers/EstimateTables.h"
#include "payments/PaymentRows.h"
#include "payments/PaymentSearch.h"
#include "payments/screens/frmCsPayList.h"
#include "payments/screens/frmCsUrikakeList.h"
#include "payments/screens/frmStMoneyEndList.h"

namespace {

// One of them with every heading that sorts it. The shell is given the rows with all that the columns name.
template <class Form> class PaymentList {
public:
    PaymentList(const QString& name, const SqlTerm& where, const QList<std::pair<int, QList<SqlColumn>>>& headings)
        : m_name(name), m_where(where), m_headings(headings), m_grid(child<Grid>(m_screen, u"flxEstList"_qs)),
          m_painted(m_grid) {}

    void run() {
        if (!isWanted(m_name)) return;
        m_screen.Load();
        m_screen.show();
        spinUntil([this] { return m_painted.done() && !m_grid->isFilling(); });
        print(m_name + u", as it opens"_qs, bestOf([this](bool whole) { return open(whole); }), statements({}));
        for (const auto& [column, sorting] : m_headings) {
            const auto click = [this, column = column] { emit m_grid->headingClicked(column); };
            const auto [up, down] = bestOfBoth([&](bool whole) { return play(*m_grid, m_painted, whole, click); });
            const QString title = m_name + u" by "_qs + m_grid->column(column).title;
            print(title + u" ▲"_qs, up, statements(SqlSorted(sorting, true)));
            print(title + u" ▼"_qs, down, statements(SqlSorted(sorting, false)));
        }
    }

private:
    Figures open(bool whole) {
        Form screen;
        auto* grid = child<Grid>(screen, u"flxEstList"_qs);
        Painted painted(grid);
        return play(*grid, painted, whole, [&screen] {
            screen.Load();
            screen.show();
        });
    }
    Statements statements(const SqlTerm& sort) const {
        const SqlTerm order = paymentOrder(sort);
        const QString tables = withCustomerAndChartTables(SqlTerm(u"*"_qs));
        return {SqlSelect(u"SELECT [顧客見積情報].[見積ID], [顧客情報].[名前1], [顧客情報].[名前2], "
                          u"[顧客カルテ].[受注先], [処理区分].[処理区分], [顧客見積情報].[見積番号], "
                          u"[顧客見積情報].[見積名称], [顧客見積情報].[見積総合計], [顧客見積情報].[完成実績日], "
                          u"[顧客見積情報].[入金完了日] FROM "_qs +
                              tables,
                          m_where, order),
                PaymentRows::keys(m_where, order)};
    }

    QString m_name;
    SqlTerm m_where;
    QList<std::pair<int, QList<SqlColumn>>> m_headings;
    Form m_screen;
    Grid* m_grid;
    Painted m_painted;
};

void run() {
    printHead();
    const auto estimate = [](const QString& name) { return QList{SqlColumn{u"顧客見積情報"_qs, name}}; };
    const QList<SqlColumn> name{{u"顧客情報"_qs, u"名前1"_qs}, {u"顧客情報"_qs, u"名前2"_qs}};
    const QList<SqlColumn> party{{u"顧客カルテ"_qs, u"受注先"_qs}}, status{{u"処理区分"_qs, u"処理区分"_qs}};
    PaymentList<frmCsPayList>(u"unpaid"_qs, noPayCondition({}),
                              {{1, estimate(u"完成実績日"_qs)},
                               {3, status},
                               {4, name},
                               {5, estimate(u"見積番号"_qs)},
                               {6, estimate(u"見積名称"_qs)},
                               {7, party},
                               {8, estimate(u"見積総合計"_qs)},
                               {9, estimate(u"入金完了日"_qs)}})
        .run();
    PaymentList<frmStMoneyEndList>(u"paid"_qs, paidCondition({}),
                                   {{1, estimate(u"完成実績日"_qs)},
                                    {2, status},
                                    {3, name},
                                    {4, estimate(u"見積番号"_qs)},
                                    {5, estimate(u"見積名称"_qs)},
                                    {6, party},
                                    {7, estimate(u"見積総合計"_qs)},
                                    {8, estimate(u"入金完了日"_qs)}})
        .run();
    PaymentList<frmCsUrikakeList>(u"ledger"_qs, {},
                                  {{2, estimate(u"見積番号"_qs)},
                                   {3, name},
                                   {4, party},
                                   {6, estimate(u"見積名称"_qs)},
                                   {9, estimate(u"受付日"_qs)},
                                   {10, estimate(u"見積総合計"_qs)},
                                   {21, estimate(u"値引額"_qs)}})
        .run();
}

} // namespace

int main(int argc, char** argv) { return runLists(argc, argv, run); }
