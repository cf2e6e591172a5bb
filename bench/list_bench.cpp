// The lists of a large office, played on their screens, against the engine's own shell, in one run:
// list_bench FILE.ini [WORD]    with a word, only the lists that have it in their name
#include "ListTiming.h"
#include "MasterLists.h"

#include "customers/clsCustomerManager.h"
#include "customers/screens/CustomerSelection.h"
#include "customers/screens/frmCustomerList.h"
#include "db/SqlDialect.h"
#include "estimates/EstimateManagers.h"
#include "estimates/screens/EstimateSearchPage.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "ui/ChoiceBox.h"
#include "ui/EntryField.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"
#include "ui/frmSelectList.h"

#include <QCheckBox>
#include <QTabBar>
#include <QTabWidget>

namespace {

// --- the customer list ---

class CustomerLists {
public:
    CustomerLists() : m_grid(child<Grid>(m_screen, u"flxData"_qs)), m_painted(m_grid) {}

    void run() {
        m_screen.show();
        m_screen.Load();
        spinUntil([this] { return m_painted.done() && !m_grid->isFilling(); });
        auto* tabs = child<QTabBar>(m_screen, u"stKana"_qs);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            const SqlTerm range = SqlAnyOf({KanaTabFilter(u"[フリガナ1]"_qs, tab)});
            compare(u"customers, tab "_qs + tabs->tabText(tab), range.text(), byReading, [tabs, tab] {
                if (tabs->currentIndex() == tab)
                    emit tabs->currentChanged(tab);
                else
                    tabs->setCurrentIndex(tab);
            });
        }
        tabs->setCurrentIndex(0);
        for (const auto& [field, column, text] : {std::tuple{u"txtKana1"_qs, u"フリガナ1"_qs, u"ｽｽﾞ"_qs},
                                                  std::tuple{u"txtKana2"_qs, u"フリガナ2"_qs, u"ﾊﾅ"_qs}}) {
            auto* entry = child<EntryField>(m_screen, field);
            QString where = u"[%1] LIKE '%2%'"_qs.arg(column, text);
            const int tab = field == u"txtKana1" ? KanaTabOf(text) : 0;
            if (tab > 0) where = u"("_qs + KanaTabFilter(u"[フリガナ1]"_qs, tab).text() + u") AND "_qs + where;
            compare(u"customers, "_qs + field, where, byReading, [entry, text = text] {
                entry->setValue({});
                entry->setValue(text);
            });
            entry->setValue({});
            tabs->setCurrentIndex(0);
        }
        spinUntil([this] { return !m_grid->isFilling(); });
        for (int column = 0; column < m_grid->columns(); ++column) sortBoth(column);
    }

private:
    inline static const QString byReading = u"[フリガナ1] ASC, [フリガナ2] ASC, [顧客ID] ASC, [顧客枝番] ASC"_qs;

    static Statements statements(const QString& where, const QString& sort) {
        QString list = u"SELECT * FROM [顧客情報]"_qs;
        if (!where.isEmpty()) list += u" WHERE "_qs + where;
        return {list + u" ORDER BY "_qs + sort, clsCustomerManager::Keys(where, sort)};
    }

    void compare(const QString& name, const QString& where, const QString& sort, const std::function<void()>& start) {
        if (isWanted(name))
            print(name, bestOf([&](bool whole) { return play(*m_grid, m_painted, whole, start); }),
                  statements(where, sort));
    }

    void sortBoth(int column) {
        static const QList<QStringList> terms{{u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[顧客枝番]"_qs, u"[顧客ID]"_qs},
                                              {u"[顧客番号]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[名前1]"_qs, u"[名前2]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[フリガナ1]"_qs, u"[フリガナ2]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[性別]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[都道府県]"_qs, u"[市区郡]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs},
                                              {u"[市区郡]"_qs, u"[顧客ID]"_qs, u"[顧客枝番]"_qs}};
        const QString name = u"customers by "_qs + m_grid->column(column).title;
        if (!isWanted(name)) return;
        m_grid->clearSortMark();
        const auto click = [&] { emit m_grid->headingClicked(column); };
        const auto [up, down] = bestOfBoth([&](bool whole) { return play(*m_grid, m_painted, whole, click); });
        print(name + u" ▲"_qs, up, statements({}, terms.at(column).join(u" ASC, "_qs) + u" ASC"_qs));
        print(name + u" ▼"_qs, down, statements({}, terms.at(column).join(u" DESC, "_qs) + u" DESC"_qs));
    }

    frmCustomerList m_screen;
    Grid* m_grid;
    Painted m_painted;
};

// --- the selection of a customer ---

class Selection {
public:
    Selection() {
        m_screen.Long = customerTable({});
        m_screen.Load();
        m_grid = child<Grid>(m_screen, u"flxData"_qs);
        m_painted = std::make_unique<Painted>(m_grid);
        m_screen.show();
        spinUntil([this] { return !m_grid->isFilling(); });
    }

    void run() {
        auto* field = child<TextField>(m_screen, u"txtSearch"_qs);
        for (const QString& text : {QString(), u"山本"_qs, u"岡崎市緑が丘7"_qs, u"-1234"_qs, u"ﾇﾇ"_qs}) {
            const QString name = u"selection of a customer, "_qs + (text.isEmpty() ? u"all"_qs : text);
            if (!isWanted(name)) continue;
            const SqlTerm where = text.isEmpty() ? SqlTerm() : clsCustomerManager::SelectContaining(text);
            const QString order = u"[フリガナ1],[フリガナ2],[顧客番号]"_qs;
            field->setText(text);
            const auto type = [field] { emit field->valueChanged(); };
            print(name, bestOf([&](bool whole) { return play(*m_grid, *m_painted, whole, type); }),
                  {clsCustomerManager::SelectList(where, order), clsCustomerManager::Keys(where, order)});
        }
    }

private:
    frmSelectList m_screen;
    Grid* m_grid;
    std::unique_ptr<Painted> m_painted;
};

// --- the estimate list ---

class EstimateLists {
public:
    EstimateLists()
        : m_tabs(child<QTabWidget>(m_screen, u"tabEstList"_qs)), m_page(m_screen.findChild<EstimateSearchPage*>()),
          m_customers(child<Grid>(m_screen, u"flxCustList"_qs)), m_estimates(child<Grid>(m_screen, u"flxEstList"_qs)),
          m_customersPainted(m_customers), m_estimatesPainted(m_estimates) {}

    void run() {
        m_screen.Load();
        m_screen.show();
        fill({});
        playEstimates(); // both have their connection
        playCustomers();
        for (const Search& search : searches()) {
            fill(search);
            const SqlTerm where = m_page->filter().condition();
            if (isWanted(u"estimates"_qs + search.name))
                print(u"estimates"_qs + search.name, bestOf([this](bool whole) { return playEstimates(whole); }),
                      statements(where, gCsEstimateManager.byKey()));
            if (isWanted(u"customers of estimates"_qs + search.name))
                print(
                    u"customers of estimates"_qs + search.name,
                    bestOf([this](bool whole) { return playCustomers(whole); }),
                    {clsCustomerManager::ListWithEst(where.text(), byNumber), // which joins all, as it may be asked to
                     clsCustomerManager::KeysWithEst(where, byNumber)});
        }
        if (isWanted(u"estimates of ticked customers"_qs)) ticked();
        fill({});
        playCustomers(); // without ticks
        playEstimates();
        for (int column = 0; column < m_estimates->columns(); ++column) sortBoth(column);
        count();
    }

private:
    using Fields = QList<std::pair<QString, QString>>;
    struct Search {
        QString name;
        Fields fields;
    };

    static Statements statements(const SqlTerm& where, const SqlTerm& sort) {
        return {clsCsEstimateManager::ListWithMst(where, sort), clsCsEstimateManager::KeysWithMst(where, sort)};
    }

    inline static const QString byNumber = u"[顧客情報].[顧客番号]"_qs;

    static QList<Search> searches() {
        return {{{}, {}},
                {u", name"_qs, {{u"txtName1"_qs, u"山"_qs}, {u"txtName2"_qs, u"子"_qs}}},
                {u", kana"_qs, {{u"txtKana1"_qs, u"ﾐ"_qs}}},
                {u", kana of nobody"_qs, {{u"txtKana1"_qs, u"ﾇﾇ"_qs}}},
                {u", number of the person"_qs, {{u"txtCsNo"_qs, u"900123"_qs}}},
                {u", birth"_qs, {{u"idtBirth"_qs, u"1970/01/05"_qs}}},
                {u", phone"_qs, {{u"txtTelNo"_qs, u"-1234"_qs}}},
                {u", zip"_qs, {{u"txtZip"_qs, u"123"_qs}}},
                {u", address"_qs, {{u"cboPref"_qs, u"愛知県"_qs}, {u"txtAddr"_qs, u"緑が丘7"_qs}}},
                {u", law"_qs, {{u"cboIns"_qs, u"2"_qs}}},
                {u", payer"_qs, {{u"txtClaimNm"_qs, u"請求先3"_qs}}},
                {u", law and payer code"_qs, {{u"cboIns"_qs, u"3"_qs}, {u"txtClaimCd"_qs, u"20"_qs}}},
                {u", estimate number"_qs, {{u"txtEstNo"_qs, u"9000123"_qs}}},
                {u", status"_qs, {{u"chkProcKbn_0"_qs, {}}, {u"chkProcKbn_2"_qs, {}}}},
                {u", product"_qs, {{u"txtProductCd"_qs, u"P012"_qs}}},
                {u", estimate name"_qs, {{u"txtProductNm"_qs, u"車椅子"_qs}}},
                {u", received in a month"_qs,
                 {{u"idtRecvDate_0"_qs, u"2024/04/01"_qs}, {u"idtRecvDate_1"_qs, u"2024/04/30"_qs}}},
                {u", cast in a year"_qs,
                 {{u"idtPickPtnDate_0"_qs, u"2023/04/01"_qs}, {u"idtPickPtnDate_1"_qs, u"2024/03/31"_qs}}},
                {u", disease"_qs, {{u"txtDiseaseNm"_qs, u"麻痺"_qs}}},
                {u", party code"_qs, {{u"txtOrderCd"_qs, u"10"_qs}}},
                {u", party"_qs, {{u"txtOrderNm"_qs, u"病院4"_qs}}}};
    }

    void fill(const Search& search) {
        m_tabs->setCurrentIndex(0);
        for (EntryField* field : m_page->findChildren<EntryField*>()) field->setValue({});
        for (ChoiceBox* box : m_page->findChildren<ChoiceBox*>()) box->clearChoice();
        for (QCheckBox* box : m_page->findChildren<QCheckBox*>()) box->setChecked(false);
        for (const auto& [name, value] : search.fields) {
            auto* widget = child<QWidget>(*m_page, name);
            if (auto* field = qobject_cast<EntryField*>(widget)) field->setValue(value);
            if (auto* tick = qobject_cast<QCheckBox*>(widget)) tick->setChecked(true);
            if (auto* box = qobject_cast<ChoiceBox*>(widget); box && !box->chooseByData(value)) box->setText(value);
        }
    }

    Figures turnTo(int page, Grid* grid, Painted& painted, bool whole) {
        m_tabs->setCurrentIndex(0);
        return play(*grid, painted, whole, [this, page] { m_tabs->setCurrentIndex(page); });
    }
    Figures playCustomers(bool whole = false) { return turnTo(1, m_customers, m_customersPainted, whole); }
    Figures playEstimates(bool whole = false) { return turnTo(2, m_estimates, m_estimatesPainted, whole); }

    void ticked() {
        fill({});
        playCustomers();
        QList<CustomerKey> keys;
        for (const int row : {1, 3, 150}) {
            m_customers->toggleCheck(row, 0);
            keys << CustomerKey{m_customers->value(row, 1), m_customers->value(row, 2)};
        }
        const SqlTerm where = withCustomers({}, keys);
        // From the customers themselves, as their page would be filled anew.
        const auto once = [this](bool whole) {
            const Figures figures =
                play(*m_estimates, m_estimatesPainted, whole, [this] { m_tabs->setCurrentIndex(2); });
            m_tabs->setCurrentIndex(0);
            return figures;
        };
        print(u"estimates of ticked customers"_qs, bestOf(once), statements(where, gCsEstimateManager.byKey()));
    }

    void sortBoth(int column) {
        const auto estimate = [](const QString& name) { return QList{SqlColumn{u"顧客見積情報"_qs, name}}; };
        static const QHash<int, QList<SqlColumn>> terms{
            {2, {{u"顧客情報"_qs, u"名前1"_qs}, {u"顧客情報"_qs, u"名前2"_qs}}},
            {4, estimate(u"採型日"_qs)},
            {5, estimate(u"納品実績日"_qs)},
            {6, estimate(u"製品コード"_qs)},
            {7, estimate(u"見積名称"_qs)},
            {8, estimate(u"見積総合計"_qs)},
            {9, {{u"顧客カルテ"_qs, u"受注先"_qs}}},
            {10, estimate(u"処理区分"_qs)}};
        const QString name = u"estimates by "_qs + m_estimates->column(column).title;
        if (!terms.contains(column) || !isWanted(name)) return;
        m_estimates->clearSortMark();
        const auto click = [&] { emit m_estimates->headingClicked(column); };
        const auto [up, down] =
            bestOfBoth([&](bool whole) { return play(*m_estimates, m_estimatesPainted, whole, click); });
        for (const auto& [mark, upwards, figures] : {std::tuple{u" ▲"_qs, true, up}, std::tuple{u" ▼"_qs, false, down}})
            print(name + mark, figures, statements({}, gCsEstimateManager.ListOrder(terms[column], upwards)));
    }

    void count() {
        const double shell = shellTime(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs);
        double best = 1e9;
        qint64 rows = 0;
        for (int round = 0; round < rounds; ++round) {
            QElapsedTimer timer;
            timer.start();
            rows = gCsEstimateManager.CountWithMst({});
            best = std::min(best, since(timer));
        }
        std::printf("%-34s %8lld %9.1f %9.1f %6.2f%s\n", "count of the estimates", rows, best, shell, best / shell,
                    verdict(best <= ratioBound * shell));
    }

    frmCsEstimateList m_screen;
    QTabWidget* m_tabs;
    EstimateSearchPage* m_page;
    Grid* m_customers;
    Grid* m_estimates;
    Painted m_customersPainted;
    Painted m_estimatesPainted;
};

void run() {
    printHead();
    CustomerLists().run();
    Selection().run();
    EstimateLists().run();
    MasterLists().run();
}

} // namespace

int main(int argc, char** argv) { return runLists(argc, argv, run); }
