#include "composition/screens/LinePage.h"

#include "base/Money.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "composition/ItemRules.h"
#include "composition/screens/CompositionColumns.h"
#include "ui/FormPieces.h"
#include "ui_LinePage.h"

namespace {

constexpr int lineRows = 50;
constexpr int amountWidth = 24; // with a remark before the amount

// How the lines of one kind stand on their page.
struct LineForm {
    const LineRules& rules;
    QString grid;
    QString sum;
    int widestColumn;
    QList<GridColumn> columns;
};

GridColumn text(const QString& title, int width) { return GridColumn::of(title, width).typed(); }
GridColumn number(const QString& title, int width) { return GridColumn::of(title, width, GridColumn::Number); }
GridColumn yen(const QString& title, int width) { return number(title, width).inYen(); }

// Unit price and amount of each tier, that of the last one grey.
QList<GridColumn> tierColumns(const QStringList& tiers) {
    QList<GridColumn> columns;
    for (const QString& tier : tiers) columns << yen(tier + u"単価"_qs, 10) << yen(tier + u"価格"_qs, 11).typed();
    columns.last() = columns.last().grey();
    return columns;
}

LineForm makeForm(const QStringList& tiers) {
    const bool one = tiers.isEmpty();
    return {makeRules(), u"flxMkElm"_qs, u"種目別製作要素合計："_qs, MakeLine::Materials,
            QList{GridColumn::rowNumber(), quickEntry(), text(u"製作要素"_qs, one ? 34 : 20),
                  text(u"原材料等"_qs, one ? 60 : 20), number(u"数量"_qs, 8).typed()} +
                (one ? QList{yen(u"ﾏｽﾀ価格"_qs, 12).unseen(), yen(u"価格"_qs, amountWidth).typed().grey()}
                     : tierColumns(tiers))};
}

LineForm partsForm(const QStringList& tiers) {
    const GridColumn unitPrice = yen(u"マスタ価格"_qs, 12);
    return {partsRules(),
            u"flxCpElm"_qs,
            u"種目別完成要素合計："_qs,
            PartsLine::Form,
            {GridColumn::rowNumber(), quickEntry(), text(u"部品名称"_qs, 34), text(u"部品型式"_qs, 30),
             text(u"部品ｺｰﾄﾞ"_qs, 18), text(u"ﾒｰｶｰ名"_qs, 20).grey(), number(u"数量"_qs, 8).typed(),
             tiers.isEmpty() ? unitPrice.unseen() : unitPrice, yen(u"価格"_qs, amountWidth).typed().grey()}};
}

LineForm formOf(int index, const QStringList& tiers) { return index == 2 ? makeForm(tiers) : partsForm(tiers); }

} // namespace

LinePage::LinePage(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::LinePage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->cboSelectItem->setProperty("tag", u"Attached"_qs); // which item is in view is no change
    connect(ui->cboSelectItem, &ChoiceBox::valueChanged, this, [this] {
        if (!m_filling) guarded([this] { showItem(ui->cboSelectItem->text().toInt()); });
    });
    ui->flxLines->aside = [this](int row, int column) { return m_remarks.value({row, column}); };
    ui->flxLines->editStarting = [this](int row, int column) { return offerChoices(row, column); };
    connect(ui->flxLines, &Grid::cellEdited, this,
            [this](int row, int column, const QString& before) { guarded([&] { takeEdit(row, column, before); }); });
    connect(ui->rowCommands, &RowCommands::changed, this, [this] { guarded([this] { takeRows(); }); });
}

LinePage::~LinePage() = default;

Grid* LinePage::grid() const { return ui->flxLines; }

void LinePage::setIndex(int index) {
    m_index = index;
    const LineForm form = formOf(index, {});
    m_rules = &form.rules;
    ui->rowCommands->setUp(ui->flxLines, index);
    showColumns({});
    ui->lblSumPriceCaption->setText(form.sum);
    for (QWidget* block : {ui->wgtChoice, ui->wgtSum}) FormPieces::setArrayIndex(block, index);
    ui->flxLines->setObjectName(form.grid);
}

void LinePage::showColumns(const QStringList& tiers) {
    const LineForm form = formOf(m_index, tiers);
    ui->flxLines->setColumns(form.columns);
    FormPieces::stretchColumn(ui->flxLines, form.widestColumn);
}

void LinePage::setComposition(Composition& composition) {
    m_composition = &composition;
    clear();
}

// --- the item in view ---

ComposedItem* LinePage::item() const {
    const int row = m_composition->rowOf(m_itemId);
    return row == 0 ? nullptr : &m_composition->item(row);
}

LineContext LinePage::context() const {
    const ComposedItem* shown = item();
    return shown ? LineContext(shown->cells, m_tiers) : LineContext();
}

void LinePage::enter(const QStringList& tiers) {
    m_tiers = tiers;
    m_filling = true;
    ui->cboSelectItem->clearEntries();
    int chosen = 0;
    for (int row = 1; row <= m_composition->items().size(); ++row) {
        const ComposedItem& offered = m_composition->item(row);
        if (!offered.isUsable()) continue;
        ui->cboSelectItem->addEntry(QString::number(row), QString::number(row));
        if (chosen == 0 || offered.id == m_itemId) chosen = row;
    }
    ui->cboSelectItem->setText(chosen == 0 ? QString() : QString::number(chosen));
    m_filling = false;
    showItem(chosen);
}

void LinePage::refresh(const QStringList& tiers) {
    m_tiers = tiers;
    showItem(m_composition->rowOf(m_itemId));
}

void LinePage::clear() {
    m_listPrices.clear();
    m_filling = true;
    ui->cboSelectItem->clearEntries();
    m_filling = false;
    showItem(0);
}

void LinePage::showItem(int row) {
    if (row != 0 && showing) showing(m_composition->item(row));
    m_itemId = row == 0 ? 0 : m_composition->item(row).id;
    if (!ui->flxLines->endEdit()) ui->flxLines->giveUpEdit();
    const QList<Cells> lines = row == 0 ? QList<Cells>() : m_composition->item(row).*m_rules->lines;
    ui->flxLines->setRows(qMax(lineRows, static_cast<int>(lines.size())));
    for (int line = 1; line <= lines.size(); ++line) ui->flxLines->setRowValues(line, lines.at(line - 1));
    showLabels();
    showSum();
}

void LinePage::showLabels() {
    const ComposedItem* shown = item();
    const QStringList texts = shown ? ItemRules::shownTexts(shown->cells) : QStringList();
    ui->lblItemIdx->setText(shown ? QString::number(m_composition->rowOf(m_itemId)) : QString());
    ui->lblItem->setText(texts.value(0));
    ui->lblPickKbn->setText(texts.value(1));
    ui->lblItemName->setText(texts.join(u" / "_qs));
}

void LinePage::showSum() {
    const int amount = ui->flxLines->columns() - 1;
    Money sum;
    for (int row = 1; row <= ui->flxLines->rows(); ++row) sum += Money::leadingNumber(ui->flxLines->value(row, amount));
    ui->lblSumPrice->setText(formatThousands(sum.toYen()));
    showRemarks();
}

QString LinePage::remarkOn(const Cells& line, qsizetype tier) {
    if (!m_rules->isLine(line)) return {};
    const auto listed = pricedByList && pricedByList()
                            ? m_listPrices.of(*m_rules, line, context(), m_tiers.value(tier))
                            : std::optional(Money::leadingNumber(line.at(m_rules->unitPrice(tier))));
    return priceRemark(*m_rules, line, tier, listed);
}

void LinePage::showRemarks() {
    m_remarks.clear();
    for (int row = 1; row <= ui->flxLines->rows(); ++row) {
        const Cells line = ui->flxLines->rowValues(row);
        for (qsizetype tier = 0; tier < m_rules->tiers(context()); ++tier)
            if (const QString remark = remarkOn(line, tier); !remark.isEmpty())
                m_remarks.insert({row, m_rules->amount(tier)}, remark);
    }
    ui->flxLines->viewport()->update();
}

// --- its lines ---

bool LinePage::offerChoices(int row, int column) {
    const Cells cells = ui->flxLines->rowValues(row);
    if (!m_rules->mayEdit(cells, column, context())) return false;
    ui->flxLines->setEntries(column, gridEntries(m_rules->choices(cells, column, context())));
    return true;
}

void LinePage::takeEdit(int row, int column, const QString& before) {
    ui->flxLines->followEdit(row, column, before,
                             [&](Cells& cells) { m_rules->edited(cells, column, before, context()); });
    takeRows();
}

// The quick entry has done its work; what is stored is what it filled in.
void LinePage::takeRows() {
    if (ComposedItem* shown = item()) {
        QList<Cells>& lines = shown->*m_rules->lines;
        lines.clear();
        for (int row = 1; row <= ui->flxLines->rows(); ++row) {
            Cells cells = ui->flxLines->rowValues(row);
            cells[LineRules::rowId].clear();
            if (m_rules->isLine(cells)) lines << cells;
        }
    }
    showSum();
    emit changed();
}
