#include "customers/screens/frmCustomerList.h"

#include "base/basMessage.h"
#include "customers/clsCustomerManager.h"
#include "customers/screens/frmCustomer.h"
#include "db/clsDbManager.h"
#include "ui/FormPieces.h"
#include "ui/KeyedList.h"
#include "ui/ListColumn.h"
#include "ui/SearchFields.h"
#include "ui/WindowArrangement.h"
#include "ui/basControlUtil.h"
#include "ui_frmCustomerList.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace {

enum Column { CustId, CustSubId, CustNo, Name, Kana, Sex, Pref, City };

QList<SqlColumn> columnsOf(const QList<QString clsCustomer::*>& members) {
    QList<SqlColumn> columns;
    for (const auto member : members) columns << gCustomerManager.column(member);
    return columns;
}

const ListColumns& listColumns() {
    using Row = clsCustomer;
    static const ListColumns columns{
        {GridColumn::of(u"顧客ID"_qs, 12), columnsOf({&Row::CustId})},
        {GridColumn::of(u"枝番"_qs, 6).aligned(Qt::AlignRight), columnsOf({&Row::CustSubId})},
        {GridColumn::of(u"顧客番号"_qs, 13), columnsOf({&Row::CustNo})},
        {GridColumn::of(u"氏名"_qs, 22), columnsOf({&Row::CustNm1, &Row::CustNm2})},
        {GridColumn::of(u"フリガナ"_qs, 24), columnsOf({&Row::CustKn1, &Row::CustKn2})},
        {GridColumn::of(u"性別"_qs, 7).aligned(Qt::AlignCenter), columnsOf({&Row::Sex})},
        {GridColumn::of(u"都道府県"_qs, 12), columnsOf({&Row::Pref, &Row::City})},
        {GridColumn::of(u"市区郡"_qs, 20), columnsOf({&Row::City})}};
    return columns;
}

QString joined(const QString& first, const QString& second) { return (first + u' ' + second).trimmed(); }

QHash<QString, QStringList> fetchRows(const QStringList& keys) {
    QHash<QString, QStringList> rows;
    for (const clsCustomer& customer : gCustomerManager.customersOf(keys))
        rows.insert(clsCustomerManager::listKey(customer),
                    {customer.CustId, customer.CustSubId, customer.CustNo, joined(customer.CustNm1, customer.CustNm2),
                     joined(customer.CustKn1, customer.CustKn2), customer.Sex, customer.Pref, customer.City});
    return rows;
}

} // namespace

frmCustomerList::frmCustomerList(QWidget* parent) : ListScreen(parent), ui(std::make_unique<Ui::frmCustomerList>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    FillKanaTabs(ui->stKana);
    ui->flxData->setColumns(formsOf(listColumns()));
    m_rows = new KeyedList(ui->flxData, ui->txtCount, gDbManager.Connection().settings(), fetchRows);
    connectFilters();
    connectCommands();
}

frmCustomerList::~frmCustomerList() = default;

void frmCustomerList::connectFilters() {
    connect(ui->stKana, &QTabBar::currentChanged, this, &frmCustomerList::takeTab);
    connect(ui->txtKana1, &TextField::valueSettled, this, &frmCustomerList::takeReading);
    for (TextField* field : {ui->txtKana2, ui->txtSearch})
        connect(field, &TextField::valueSettled, this, &frmCustomerList::showSettled);
    for (TextField* field : {ui->txtKana1, ui->txtKana2, ui->txtSearch}) {
        field->installEventFilter(this);
        connect(field, &TextField::valueChanged, this, [this, field] { showTyped(field); });
    }
    connect(ui->cboPref, &ChoiceBox::valueChanged, this, &frmCustomerList::takePrefecture);
    connect(ui->cboCity, &ChoiceBox::valueChanged, this, &frmCustomerList::showRows);
    connect(ui->flxData, &Grid::headingClicked, this, &frmCustomerList::sortBy);
    onClick(ui->cmdClear, [this] { clearFilters(); });
}

void frmCustomerList::connectCommands() {
    onClick(ui->cbAdd, [this] { open(frmCustomer::Add); });
    onClick(ui->cbEdit, [this] { open(frmCustomer::Edit); });
    onClick(ui->cbDelete, [this] { open(frmCustomer::Delete); });
    onClick(ui->cbClose, [this] { close(); });
    connect(ui->flxData, &Grid::rowOpened, this, [this] { guarded([this] { open(frmCustomer::Edit); }); });
}

void frmCustomerList::load() {
    fillPlaces();
    {
        const QScopedValueRollback filling(m_filling, true);
        for (QWidget* area : areas()) SearchFields::restore(area);
    }
    WindowArrangement::restoreSort(ui->flxData);
    showRows();
    ui->txtKana1->setFocus();
}

// The choice stays. A customer that was saved may have brought a place along.
void frmCustomerList::fillPlaces() {
    const QScopedValueRollback filling(m_filling, true);
    const QString pref = FilterText(ui->cboPref);
    const QString city = FilterText(ui->cboCity);
    FillPrefList(ui->cboPref, {.all = true});
    ui->cboPref->setText(pref.isEmpty() ? allEntry : pref);
    FillCityList(ui->cboCity, pref, {.all = true});
    ui->cboCity->setText(city.isEmpty() ? allEntry : city);
}

// Down goes from a reading straight to the rows that it left over.
bool frmCustomerList::eventFilter(QObject* watched, QEvent* event) {
    const bool isField = watched == ui->txtKana1 || watched == ui->txtKana2 || watched == ui->txtSearch;
    if (isField && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        goToRows();
        return true;
    }
    return ListScreen::eventFilter(watched, event);
}

void frmCustomerList::goToRows() {
    ui->flxData->setFocus(Qt::OtherFocusReason); // which leaves the reading, and asks for its rows
    if (m_rows->awaitRows()) ui->flxData->setCurrent(1);
}

// --- filters ---

void frmCustomerList::takeTab() {
    m_readingTyped = false;
    showRows();
}

void frmCustomerList::takeReading() {
    m_readingTyped = false;
    {
        const QScopedValueRollback filling(m_filling, true);
        if (const int tab = KanaTabOf(ui->txtKana1->value()); tab >= 0) ui->stKana->setCurrentIndex(tab);
    }
    showSettled();
}

void frmCustomerList::takePrefecture() {
    {
        const QScopedValueRollback filling(m_filling, true);
        guarded([this] { FillCityList(ui->cboCity, FilterText(ui->cboPref), {.all = true}); });
        ui->cboCity->setText(allEntry);
    }
    showRows();
}

QList<QWidget*> frmCustomerList::areas() const { return {ui->frExtract, ui->stKana, ui->txtSearch}; }

void frmCustomerList::clearFilters() {
    {
        const QScopedValueRollback filling(m_filling, true);
        for (QWidget* area : areas()) SearchFields::clear(area);
    }
    showRows();
    ui->txtKana1->setFocus();
}

// While a reading is typed, its tab is the one that leaving the field will turn to.
int frmCustomerList::tabInForce() const {
    const int typed = m_readingTyped ? KanaTabOf(ui->txtKana1->value()) : -1;
    return typed >= 0 ? typed : ui->stKana->currentIndex();
}

SqlTerm frmCustomerList::filter() const {
    const SqlColumn reading = gCustomerManager.column(&clsCustomer::CustKn1);
    return SqlAllOf({SqlAnyOf({KanaTabFilter(reading, tabInForce())}),
                     gCustomerManager.startsWith({{&clsCustomer::CustKn1, ui->txtKana1->value()},
                                                  {&clsCustomer::CustKn2, ui->txtKana2->value()},
                                                  {&clsCustomer::Pref, FilterText(ui->cboPref)},
                                                  {&clsCustomer::City, FilterText(ui->cboCity)}}),
                     clsCustomerManager::SelectContaining(ui->txtSearch->value())});
}

// --- rows ---

void frmCustomerList::sortBy(int column) {
    if (toggleSorting(listColumns(), ui->flxData, column)) showRows();
}

// By the marked column, else by the reading. The key at the end tells persons of one name apart.
SqlTerm frmCustomerList::sorting() const {
    QList<SqlColumn> sorting = markedSorting(listColumns(), ui->flxData);
    if (sorting.isEmpty()) sorting = listColumns().at(Kana).sorting;
    return SqlSorted(sorting + columnsOf({&clsCustomer::CustId, &clsCustomer::CustSubId}), ui->flxData->sortsUpwards());
}

QString frmCustomerList::statement() const { return clsCustomerManager::Keys(filter(), sorting()); }

void frmCustomerList::showRows() {
    m_typedFor.clear();
    if (!m_filling) m_rows->show(statement());
}

// What is typed shows at once; what the program sets, when it is settled.
void frmCustomerList::showTyped(const TextField* field) {
    m_readingTyped = field == ui->txtKana1 && field->hasFocus();
    if (m_filling || !field->hasFocus()) return;
    m_typedFor = statement();
    m_rows->show(m_typedFor);
}

// Who leaves a field finds the rows that were shown for it, where they are.
void frmCustomerList::showSettled() {
    if (m_typedFor != statement()) showRows();
}

// --- commands ---

void frmCustomerList::open(qint16 mode) {
    if (mode == frmCustomer::Add) return view(mode, {}, {}, [] {});
    if (!m_rows->awaitRows() || ui->flxData->currentRow() < 1) return;
    const int row = ui->flxData->currentRow();
    const QString id = ui->flxData->value(row, CustId);
    const QString branch = ui->flxData->value(row, CustSubId);
    if (id.isEmpty()) return m_rows->tellGone(row, u"顧客"_qs);
    view(mode, id, branch, [&] { m_rows->refresh(row, clsCustomerManager::listKey(id, branch)); });
}

// A row is looked at anew after a change, and when it could not be opened: another machine may have deleted it.
void frmCustomerList::view(qint16 mode, const QString& id, const QString& branch,
                           const std::function<void()>& refreshRow) {
    const bool opened = openScreen<frmCustomer>(
        this,
        [&](frmCustomer& screen) {
            screen.EditMode = mode;
            screen.CustId = id;
            screen.CustSubId = branch;
        },
        [&](frmCustomer& screen) {
            if (!screen.Updated) return;
            fillPlaces();
            if (screen.EditMode == frmCustomer::Add)
                m_rows->append(clsCustomerManager::listKey(screen.CustId, screen.CustSubId));
            else
                refreshRow();
        });
    if (!opened) refreshRow();
}
