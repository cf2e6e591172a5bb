#include "composition/screens/ItemPage.h"

#include "base/basMessage.h"
#include "composition/ItemHelp.h"
#include "composition/screens/CompositionColumns.h"
#include "db/clsAssistManager.h"
#include "ui/FormPieces.h"
#include "ui_ItemPage.h"

#include <QImageReader>

namespace {

constexpr int itemRows = 5;

QList<GridColumn> itemColumns() {
    const auto text = [](const QString& title, int width) { return GridColumn::of(title, width).typed(); };
    return {GridColumn::rowNumber(), quickEntry(),         text(u"種目"_qs, 20),      text(u"採型区分"_qs, 18),
            text(u"名称"_qs, 34),    text(u"型式"_qs, 30), text(u"採型/採寸"_qs, 10), text(u"交付/修理"_qs, 10)};
}

// The picture in the size that it is shown in: a drawing of any size stands whole below the grid.
QPixmap pictureOf(const QString& path, const QWidget* place) {
    if (path.isEmpty()) return {};
    const int line = place->fontMetrics().lineSpacing();
    const QSize room = QSize(18 * line, 8 * line) * place->devicePixelRatio();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true); // a photograph may have been taken upright
    const QImage image = reader.read();
    const bool fits = image.width() <= room.width() && image.height() <= room.height();
    QPixmap picture =
        QPixmap::fromImage(fits ? image : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(place->devicePixelRatio());
    return picture;
}

// 0 means that the item has no such choice.
GridEntries assistEntries(int group) {
    GridEntries entries{{u"0"_qs, {}, {}}};
    for (const clsAssist& assist : gAssistManager.group(group))
        entries << GridEntry{assist.AsstNo, assist.AsstView, {}};
    return entries;
}

} // namespace

ItemPage::ItemPage(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::ItemPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->flxItem->setColumns(itemColumns());
    FormPieces::stretchColumn(ui->flxItem, ItemRules::Form);
    FormPieces::fixRowsShown(ui->flxItem, itemRows);
    ui->flxItem->editStarting = [this](int row, int column) { return offerChoices(row, column); };
    connect(ui->flxItem, &Grid::cellEdited, this,
            [this](int row, int column, const QString& before) { guarded([&] { takeEdit(row, column, before); }); });
    connect(ui->flxItem, &Grid::currentRowChanged, this, [this](int row) { guarded([&] { showHelp(row); }); });
    ui->rowCommands->setUp(ui->flxItem, 1);
    connect(ui->rowCommands, &RowCommands::rowsMoved, this, [this](const QList<int>& formerRows) {
        m_composition->rearrange(formerRows);
        emit rowsMoved();
    });
    connect(ui->rowCommands, &RowCommands::changed, this, &ItemPage::takeRows);
}

ItemPage::~ItemPage() = default;

Grid* ItemPage::grid() const { return ui->flxItem; }

void ItemPage::addCommand(QPushButton* command) { ui->layItemCommands->addWidget(command); }

void ItemPage::show(Composition& composition) {
    m_composition = &composition;
    composition.fillUp(itemRows);
    ui->flxItem->setEntries(ItemRules::PickStyle, assistEntries(AssistGroup::PickStyle));
    ui->flxItem->setEntries(ItemRules::GrantRepair, assistEntries(AssistGroup::GrantRepair));
    ui->flxItem->setRows(static_cast<int>(composition.items().size()));
    for (int row = 1; row <= ui->flxItem->rows(); ++row) ui->flxItem->setRowValues(row, composition.item(row).cells);
    ui->flxItem->setCurrent(1);
    showHelp(1);
}

bool ItemPage::offerChoices(int row, int column) {
    const GridEntries entries = gridEntries(ItemRules::choices(ui->flxItem->rowValues(row), column));
    // The texts of these two columns stand for numbers in every row, so that their lists stay as they are.
    if (column == ItemRules::PickStyle || column == ItemRules::GrantRepair) return !entries.isEmpty();
    ui->flxItem->setEntries(column, entries);
    return column == ItemRules::RowId || !entries.isEmpty();
}

void ItemPage::takeEdit(int row, int column, const QString& before) {
    ui->flxItem->followEdit(row, column, before,
                            [&](Cells& cells) { ItemRules::edited(cells, column, before, habits); });
    showHelp(row);
    takeRows();
}

void ItemPage::takeRows() {
    for (int row = 1; row <= ui->flxItem->rows(); ++row) m_composition->item(row).cells = ui->flxItem->rowValues(row);
    emit changed();
}

void ItemPage::showHelp(int row) {
    if (row < 1 || row > ui->flxItem->rows()) return;
    const Cells cells = ui->flxItem->rowValues(row);
    const QPixmap picture = pictureOf(ItemHelp::pictureFile(cells), ui->imgItem);
    const QString text = ItemHelp::text(cells);
    ui->imgItem->setPixmap(picture);
    ui->imtHosoku->setPlainText(text);
    ui->fraItemImage->setVisible(!picture.isNull());
    ui->fraItemHelp->setVisible(!text.isEmpty());
}
