#include "customers/screens/frmCustomerList.h"

#include "base/basCommon.h"
#include "base/basMessage.h"
#include "customers/screens/frmCustomer.h"
#include "db/clsDbManager.h"
#include "ui/FormPieces.h"
#include "ui/GridPages.h"
#include "ui/basControlUtil.h"
#include "ui_frmCustomerList.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace {

enum Column { CustId, CustSubId, CustNo, Name, Kana, Sex, Pref, City };

const QString reading = u"[フリガナ1]"_qs;

// What a column is headed, how wide it is, and what it is sorted by.
struct ColumnForm {
    QString title;
    int width;
    QStringList sorting;
};

const QList<ColumnForm>& columnForms() {
    static const QList<ColumnForm> forms{{u"顧客ID"_qs, 12, {u"[顧客ID]"_qs}},
                                         {u"枝番"_qs, 6, {u"[顧客枝番]"_qs}},
                                         {u"顧客番号"_qs, 13, {u"[顧客番号]"_qs}},
                                         {u"氏名"_qs, 22, {u"[名前1]"_qs, u"[名前2]"_qs}},
                                         {u"フリガナ"_qs, 24, {reading, u"[フリガナ2]"_qs}},
                                         {u"性別"_qs, 7, {u"[性別]"_qs}},
                                         {u"都道府県"_qs, 12, {u"[都道府県]"_qs, u"[市区郡]"_qs}},
                                         {u"市区郡"_qs, 20, {u"[市区郡]"_qs}}};
    return forms;
}

QList<GridColumn> gridColumns() {
    QList<GridColumn> columns;
    for (const ColumnForm& form : columnForms()) {
        GridColumn column;
        column.title = form.title;
        column.width = form.width;
        columns << column;
    }
    columns[CustSubId].alignment = Qt::AlignRight;
    columns[Sex].alignment = Qt::AlignCenter;
    return columns;
}

const QStringList& queryColumns() {
    static const QStringList columns{u"[顧客ID]"_qs,    u"[顧客枝番]"_qs,  u"[顧客番号]"_qs, u"[名前1]"_qs,    u"[名前2]"_qs,
                                     u"[フリガナ1]"_qs, u"[フリガナ2]"_qs, u"[性別]"_qs,     u"[都道府県]"_qs, u"[市区郡]"_qs};
    return columns;
}

QString joined(const QString& first, const QString& second) { return (first + u' ' + second).trimmed(); }

QStringList cellsOf(const QStringList& fields) {
    return {fields.at(0), fields.at(1), fields.at(2), joined(fields.at(3), fields.at(4)),
            joined(fields.at(5), fields.at(6)), fields.at(7), fields.at(8), fields.at(9)};
}

QStringList cellsOf(const clsCustomer& customer) {
    return cellsOf(QStringList{customer.CustId, customer.CustSubId, customer.CustNo, customer.CustNm1, customer.CustNm2,
                               customer.CustKn1, customer.CustKn2, customer.Sex, customer.Pref, customer.City});
}

QString condition(const QString& id, const QString& branch) {
    return u"[顧客ID] = "_qs + sqlText(id) + u" AND [顧客枝番] = "_qs + sqlNumber(branch);
}

QString startsWith(const QString& column, const QString& text) {
    return column + u" LIKE '"_qs + SqlQuote(text, true) + u"%'"_qs;
}

} // namespace

frmCustomerList::frmCustomerList(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCustomerList>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    FillKanaTabs(ui->stKana);
    ui->flxData->setColumns(gridColumns());
    m_pages = new GridPages(ui->flxData, [](const QStringList& fields) { return cellsOf(fields); });
    connectFilters();
    connectCommands();
}

frmCustomerList::~frmCustomerList() = default;

void frmCustomerList::connectFilters() {
    connect(ui->stKana, &QTabBar::currentChanged, this, &frmCustomerList::showRows);
    connect(ui->txtKana1, &TextField::valueSettled, this, &frmCustomerList::takeReading);
    connect(ui->txtKana2, &TextField::valueSettled, this, &frmCustomerList::showRows);
    connect(ui->cboPref, &ChoiceBox::valueChanged, this, &frmCustomerList::takePrefecture);
    connect(ui->cboCity, &ChoiceBox::valueChanged, this, &frmCustomerList::showRows);
    connect(ui->flxData, &Grid::headingClicked, this, &frmCustomerList::sortBy);
    for (QWidget* field : {ui->txtKana1, ui->txtKana2}) field->installEventFilter(this);
}

void frmCustomerList::connectCommands() {
    onClick(ui->cbAdd, [this] { open(frmCustomer::Add); });
    onClick(ui->cbEdit, [this] { open(frmCustomer::Edit); });
    onClick(ui->cbDelete, [this] { open(frmCustomer::Delete); });
    onClick(ui->cbClose, [this] { close(); });
    connect(ui->flxData, &Grid::rowOpened, this, [this] { guarded([this] { open(frmCustomer::Edit); }); });
}

void frmCustomerList::load() {
    {
        const QScopedValueRollback filling(m_filling, true);
        FillPrefList(ui->cboPref, {.all = true});
        ui->cboPref->setText(allEntry);
        FillCityList(ui->cboCity, {}, {.all = true});
        ui->cboCity->setText(allEntry);
    }
    showRows();
    ui->txtKana1->setFocus();
}

// Down goes from a reading straight to the rows that it left over.
bool frmCustomerList::eventFilter(QObject* watched, QEvent* event) {
    const bool isField = watched == ui->txtKana1 || watched == ui->txtKana2;
    if (isField && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        goToRows();
        return true;
    }
    return Screen::eventFilter(watched, event);
}

void frmCustomerList::goToRows() {
    ui->flxData->setFocus(Qt::OtherFocusReason);
    ui->flxData->setCurrent(1);
}

// --- filters ---

void frmCustomerList::takeReading() {
    {
        const QScopedValueRollback filling(m_filling, true);
        if (const int tab = KanaTabOf(ui->txtKana1->value()); tab >= 0) ui->stKana->setCurrentIndex(tab);
    }
    showRows();
}

void frmCustomerList::takePrefecture() {
    {
        const QScopedValueRollback filling(m_filling, true);
        guarded([this] { FillCityList(ui->cboCity, FilterText(ui->cboPref), {.all = true}); });
        ui->cboCity->setText(allEntry);
    }
    showRows();
}

QString frmCustomerList::filter() const {
    QStringList terms;
    if (const QString range = KanaTabFilter(reading, ui->stKana->currentIndex()); !range.isEmpty())
        terms << u'(' + range + u')';
    const std::pair<QString, QString> starts[]{{reading, ui->txtKana1->value()},
                                               {u"[フリガナ2]"_qs, ui->txtKana2->value()},
                                               {u"[都道府県]"_qs, FilterText(ui->cboPref)},
                                               {u"[市区郡]"_qs, FilterText(ui->cboCity)}};
    for (const auto& [column, text] : starts)
        if (!text.isEmpty()) terms << startsWith(column, text);
    return terms.join(u" AND "_qs);
}

// --- rows ---

void frmCustomerList::sortBy(int column) {
    ui->flxData->toggleSortMark(column);
    showRows();
}

// By the marked column, else by the reading. The key at the end tells persons of one name apart.
QList<PagedQuery::Term> frmCustomerList::order() const {
    const int marked = ui->flxData->sortColumn();
    QStringList columns = columnForms().at(marked < 0 ? Kana : marked).sorting;
    columns << u"[顧客ID]"_qs << u"[顧客枝番]"_qs;
    columns.removeDuplicates();
    QList<PagedQuery::Term> terms;
    for (const QString& column : columns) terms << PagedQuery::Term{column, !ui->flxData->sortsUpwards()};
    return terms;
}

void frmCustomerList::showRows() {
    if (m_filling) return;
    guarded([this] {
        m_pages->show(std::make_unique<PagedQuery>(
            gDbManager.Connection(), PagedQuery::Statement{queryColumns(), u"[顧客情報]"_qs, filter(), order()}));
        ui->flxData->setCurrent(1);
        showCount();
    });
}

void frmCustomerList::showCount() { ui->txtCount->setValue(formatThousands(ui->flxData->rows()) + u"件"_qs); }

// --- commands ---

void frmCustomerList::open(qint16 mode) {
    const int row = ui->flxData->currentRow();
    const bool isNew = mode == frmCustomer::Add;
    if (!isNew && row < 1) return;
    const QString id = isNew ? QString() : ui->flxData->value(row, CustId);
    const QString branch = isNew ? QString() : ui->flxData->value(row, CustSubId);
    openScreen<frmCustomer>(
        this,
        [&](frmCustomer& screen) {
            screen.EditMode = mode;
            screen.CustId = id;
            screen.CustSubId = branch;
        },
        [&](frmCustomer& screen) {
            if (!screen.Updated) return;
            if (screen.EditMode == frmCustomer::Add) takeAdded(screen.CustId, screen.CustSubId);
            else if (screen.EditMode == frmCustomer::Edit) takeChanged(row);
            else m_pages->remove(row, condition(id, branch));
        });
    showCount();
}

void frmCustomerList::takeAdded(const QString& id, const QString& branch) {
    clsCustomer added;
    if (!gCustomerManager.GetData(id, branch, added)) return;
    m_pages->append(condition(id, branch), cellsOf(added));
    ui->flxData->setCurrent(ui->flxData->rows());
}

void frmCustomerList::takeChanged(int row) {
    const QString id = ui->flxData->value(row, CustId);
    const QString branch = ui->flxData->value(row, CustSubId);
    clsCustomer changed;
    if (gCustomerManager.GetData(id, branch, changed)) m_pages->rewrite(row, condition(id, branch), cellsOf(changed));
}
