#include "price/screens/frmKakakuChange.h"

#include "base/Application.h"
#include "base/CsvOutput.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "operations/PriceRevision.h"
#include "price/screens/frmKakakuFaults.h"
#include "reports/PriceReports.h"
#include "ui/FormPieces.h"
#include "ui/ProgressBox.h"
#include "ui_frmKakakuChange.h"

#include <QScopeGuard>

namespace {

const QString inForce = u"0"_qs; // item data of the boxes; a year stands for itself
const QString newFiles = u"1"_qs;

// --- columns ---

QList<GridColumn> moveColumns(const QString& word) {
    const auto amount = [](const QString& title) { return GridColumn::of(title, 12, GridColumn::Number); };
    return {GridColumn::of(u"年齢区分"_qs, 12).aligned(Qt::AlignHCenter), amount(u"旧"_qs + word),
            amount(u"新"_qs + word), amount(u"差額"_qs), GridColumn::of(u"％"_qs, 9).aligned(Qt::AlignRight)};
}

QList<GridColumn> priceColumns() {
    return QList<GridColumn>{GridColumn::of(u"表"_qs, 10), GridColumn::of(u"変更"_qs, 6),
                             GridColumn::of(u"内容"_qs, 50)} +
           moveColumns(u"価格"_qs);
}

QList<GridColumn> amountColumns(const QString& code, const QString& name) {
    return QList<GridColumn>{GridColumn::of(code, 16), GridColumn::of(name, 40),
                             GridColumn::of(u"価格年度"_qs, 9).aligned(Qt::AlignHCenter)} +
               moveColumns(u"金額"_qs)
           << GridColumn::of(u"備考"_qs, 26);
}

QStringList moveCells(const QString& tiers, const PriceMove& move) {
    return {tiers, move.before, move.after, move.difference(), move.percent()};
}

QStringList cellsOf(const PriceChange& change) {
    return QStringList{priceTableWord(change.table), change.kindName(), change.what} +
           moveCells(change.tiers, change.move);
}

QStringList cellsOf(const AmountMove& move) {
    return QStringList{move.code, move.name, move.year} + moveCells(move.tiers, move.move) << move.note;
}

QStringList titlesOf(const Grid* grid) {
    QStringList titles;
    for (int column = 0; column < grid->columns(); ++column) titles << grid->column(column).title;
    return titles;
}

// --- words ---

QString told(const QList<PriceChange>& changes) {
    int counts[3]{};
    for (const PriceChange& change : changes)
        if (!change.isFurther) ++counts[change.kind];
    return u"新規 %1　廃止 %2　変更 %3"_qs.arg(formatThousands(counts[PriceChange::New]),
                                               formatThousands(counts[PriceChange::Gone]),
                                               formatThousands(counts[PriceChange::Changed]));
}

QString count(const QList<AmountMove>& moves) {
    return formatThousands(
        std::count_if(moves.begin(), moves.end(), [](const AmountMove& move) { return !move.isFurther; }));
}

} // namespace

frmKakakuChange::frmKakakuChange(QWidget* parent)
    : PrintingScreen(parent), ui(std::make_unique<Ui::frmKakakuChange>()) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    FormPieces::applyCharacters(this);
    ui->flxPrice->setColumns(priceColumns());
    ui->flxMaster->setColumns(amountColumns(u"製品コード"_qs, u"製品名称"_qs));
    ui->flxOrder->setColumns(amountColumns(u"見積番号"_qs, u"顧客・見積名称"_qs));
    FormPieces::stretchColumn(ui->flxPrice, 2);
    for (Grid* grid : {ui->flxMaster, ui->flxOrder}) FormPieces::stretchColumn(grid, 1);
    turnPagesByKeys(ui->stChange);
    connect(ui->stChange, &QTabWidget::currentChanged, this, &frmKakakuChange::showCount);
    onClick(ui->cmdCompare, [this] { compare(); });
    onClick(ui->cmdPrint_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrint_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdCsv, [this] { writeCsv(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmKakakuChange::~frmKakakuChange() = default;

void frmKakakuChange::load() {
    fillChoices();
    ui->stChange->setCurrentIndex(Prices);
    take({});
    if (After.kind == PriceList::InForce)
        ui->cboAfter->setFocus();
    else
        compare();
}

// --- what is compared ---

void frmKakakuChange::fillChoices() {
    for (ChoiceBox* box : {ui->cboBefore, ui->cboAfter}) {
        box->addEntry(u"現在の価格（%1年度）"_qs.arg(gPriceYear), inForce);
        if (After.kind == PriceList::Files) box->addEntry(u"新しい価格データ"_qs, newFiles);
        for (const QString& year : PriceRevision::keptYears()) box->addEntry(u"%1年度の保存データ"_qs.arg(year), year);
        box->chooseByData(inForce);
    }
    if (After.kind == PriceList::Files) ui->cboAfter->chooseByData(newFiles);
    if (After.kind == PriceList::KeptYear) ui->cboAfter->chooseByData(After.from);
}

PriceList frmKakakuChange::chosen(const ChoiceBox* box) const {
    if (box->data() == newFiles) return After;
    if (box->data() == inForce) return {};
    return {PriceList::KeptYear, box->data()};
}

void frmKakakuChange::compare() {
    const PriceList before = chosen(ui->cboBefore), after = chosen(ui->cboAfter);
    if (before == after) {
        ShowMessage(Message::Warning, u"比較元と比較先に、違う価格を選んでください。"_qs);
        ui->cboAfter->setFocus();
        return;
    }
    const bool files = before.kind == PriceList::Files || after.kind == PriceList::Files;
    if (files && !mayTakeFiles()) return;
    std::optional<PriceComparison> found;
    {
        SetWaitCursor(true);
        const auto end = qScopeGuard([] { SetWaitCursor(false); });
        ProgressBox box(this, u"価格の比較"_qs, ProgressBox::Stop::Offered);
        found =
            comparePrices(gDbManager.Connection(), before, after,
                          [&box](const QString& part, qint64 done, qint64 all) { return box.tell(part, done, all); });
    }
    if (!found) return;
    m_lists = ui->cboBefore->text() + u"　→　"_qs + ui->cboAfter->text();
    take(*found);
    tellFaults();
}

// Asked once; the same files are not asked about again.
bool frmKakakuChange::mayTakeFiles() {
    m_filesAreTaken = m_filesAreTaken || frmKakakuFaults::mayTake(this, After.from);
    return m_filesAreTaken;
}

void frmKakakuChange::take(const PriceComparison& found) {
    m_found = found;
    for (const int page : {Prices, Masters, Orders})
        grid(page)->setSource(static_cast<int>(rowsOf(page)), [this, page](int place) { return cells(page, place); });
    ui->lblLists->setText(m_lists);
    ui->lblSummary->setText(m_lists.isEmpty() ? QString()
                                              : u"価格：%1　　マスタ見積：%2件　　受注：%3件"_qs.arg(
                                                    told(found.prices), count(found.masters), count(found.orders)));
    showCount();
    if (!m_lists.isEmpty()) grid(page())->setFocus();
}

void frmKakakuChange::showCount() { ui->lblRecCnt->setText(formatThousands(rowsOf(page())) + u"行"_qs); }

// The revision stops at these places, too; what stands behind them is not in the lists.
void frmKakakuChange::tellFaults() const {
    if (m_found.faults.isEmpty()) return;
    ShowMessage(Message::Warning, u"次のファイルは、途中までしか読めませんでした。\n"_qs + m_found.faults.join(u'\n'));
}

// --- the pages ---

frmKakakuChange::Page frmKakakuChange::page() const { return static_cast<Page>(ui->stChange->currentIndex()); }

Grid* frmKakakuChange::grid(int page) const {
    return page == Prices ? ui->flxPrice : page == Masters ? ui->flxMaster : ui->flxOrder;
}

qsizetype frmKakakuChange::rowsOf(int page) const {
    if (page == Prices) return m_found.prices.size();
    return page == Masters ? m_found.masters.size() : m_found.orders.size();
}

QStringList frmKakakuChange::cells(int page, qsizetype place) const {
    if (page == Prices) return cellsOf(m_found.prices.at(place));
    return cellsOf(page == Masters ? m_found.masters.at(place) : m_found.orders.at(place));
}

void frmKakakuChange::print(PrintTo to) {
    const Page shown = page();
    if (!mayPrint(rowsOf(shown) > 0, to == PrintTo::Printer)) return;
    ReportParameters values{{u"Lists"_qs, m_lists}};
    if (shown != Prices) {
        values.insert(u"Title"_qs, shown == Masters ? u"価格の変わるマスタ見積"_qs : u"価格の変わる受注"_qs);
        values.insert(u"CodeHead"_qs, grid(shown)->column(0).title);
        values.insert(u"NameHead"_qs, grid(shown)->column(1).title);
    }
    issue(shown == Prices ? u"repPriceChange"_qs : u"repPriceMove"_qs, values, to,
          [&](ReportRecordset& records, const Pause&) {
              records = shown == Prices ? priceChangeRows(m_found.prices)
                                        : amountMoveRows(shown == Masters ? m_found.masters : m_found.orders);
          });
}

void frmKakakuChange::writeCsv() {
    const Page shown = page();
    if (rowsOf(shown) == 0) {
        ShowMessage(Message::Missing, u"出力データ"_qs);
        return;
    }
    ListFile file{titlesOf(grid(shown))};
    file.heads = {{m_lists}};
    file.name = u"価格の変更点（%1）.csv"_qs.arg(ui->stChange->tabText(shown));
    exportCsv(file, [&](const std::function<void(const CsvRow&)>& take) {
        for (qsizetype i = 0; i < rowsOf(shown); ++i) take({cells(shown, i), cells(shown, i).value(0)});
        return true;
    });
}
