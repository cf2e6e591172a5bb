#include "estimates/screens/CsEstimateItemPage.h"

#include "base/clsProfile.h"
#include "db/clsAssistManager.h"
#include "estimates/screens/EstimateGrids.h"
#include "ui/FormPieces.h"
#include "ui_CsEstimateItemPage.h"

#include <QDir>
#include <QFile>

namespace {

// The file of an item below the folder of an INI section, by its texts; empty when it has none.
QString helpFile(const QString& section, const Cells& cells) {
    const clsProfile profile;
    const QString folder = profile.GetPath(section, u"Path"_qs);
    const QString type = profile.GetValue(section, u"Type"_qs);
    QStringList texts;
    for (int column = ItemGrid::Item; column <= ItemGrid::Form; ++column)
        if (!cells.at(column).isEmpty()) texts << QString(cells.at(column)).replace(u'/', u'／').replace(u'\\', u'￥');
    if (folder.isEmpty() || texts.isEmpty()) return {};
    const QString path = QDir(folder).filePath(texts.join(u'_') + (type.startsWith(u'.') ? type : u'.' + type));
    return QFile::exists(path) ? path : QString();
}

QString textOf(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    const QString text = QString::fromUtf8(bytes);
    return text.contains(QChar::ReplacementCharacter) ? Text::fromCp932(bytes) : text;
}

// A drawing of any size stands whole below the grid.
QPixmap reduced(const QPixmap& image, const QWidget* place) {
    const int line = place->fontMetrics().lineSpacing();
    const QSize room(18 * line, 8 * line);
    const bool fits = image.width() <= room.width() && image.height() <= room.height();
    return fits ? image : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

CsEstimateItemPage::CsEstimateItemPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimateItemPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    EstimateGrids::setUpItems(ui->flxItem);
    FormPieces::fixRowsShown(ui->flxItem, EstimateGrids::itemRows);
    ui->flxItem->editStarting = [this](int row, int column) { return offerChoices(row, column); };
    connect(ui->flxItem, &Grid::cellEdited, this,
            [this](int row, int column, const QString& before) { guarded([&] { takeEdit(row, column, before); }); });
    connect(ui->flxItem, &Grid::currentRowChanged, this, [this](int row) { guarded([&] { showHelp(row); }); });
    auto* commands = new GridRowCommands(ui->flxItem, ui->rowCommands);
    connect(commands, &GridRowCommands::rowsMoved, this, &CsEstimateItemPage::rowsMoved);
    connect(commands, &GridRowCommands::changed, this, &CsEstimateItemPage::changed);
}

CsEstimateItemPage::~CsEstimateItemPage() = default;

void CsEstimateItemPage::showItems(const QList<clsCsItem>& items) {
    for (const auto& [column, group] : {std::pair(int(ItemGrid::PickStyle), AssistGroup::PickStyle),
                                        std::pair(int(ItemGrid::GrantRepair), AssistGroup::GrantRepair)}) {
        // 0 means that the item has no such choice.
        GridEntries entries{{u"0"_qs, {}, {}}};
        for (const clsAssist& assist : gAssistManager.group(group))
            entries << GridEntry{assist.AsstNo, assist.AsstView, {}};
        ui->flxItem->setEntries(column, entries);
    }
    ui->flxItem->setRows(EstimateGrids::itemRows);
    for (int i = 0; i < qMin<int>(EstimateGrids::itemRows, items.size()); ++i) {
        const clsCsItem& item = items.at(i);
        ui->flxItem->setRowValues(
            i + 1, {item.Item, item.PickKbn, item.Name, item.Form, item.PickStyle, item.GrantRepair}, ItemGrid::Item);
    }
    ui->flxItem->setCurrent(1);
    showHelp(1);
}

QList<ShownItem> CsEstimateItemPage::items() const {
    QList<ShownItem> result;
    for (int row = 1; row <= ui->flxItem->rows(); ++row) {
        ShownItem item{ui->flxItem->rowValues(row), {}};
        for (int column = ItemGrid::Item; column <= ItemGrid::GrantRepair; ++column)
            item.texts << ui->flxItem->text(row, column);
        result << item;
    }
    return result;
}

bool CsEstimateItemPage::offerChoices(int row, int column) {
    const GridEntries entries = gridEntries(ItemGrid::choices(ui->flxItem->rowValues(row), column));
    // The texts of these two columns stand for numbers in every row, so that their lists stay as they are.
    if (column == ItemGrid::PickStyle || column == ItemGrid::GrantRepair) return !entries.isEmpty();
    ui->flxItem->setEntries(column, entries);
    return column == ItemGrid::RowId || !entries.isEmpty();
}

void CsEstimateItemPage::takeEdit(int row, int column, const QString& before) {
    Cells cells = ui->flxItem->rowValues(row);
    ItemGrid::edited(cells, column, before);
    ui->flxItem->setRowValues(row, cells);
    showHelp(row);
    emit changed();
}

void CsEstimateItemPage::showHelp(int row) {
    if (row < 1 || row > ui->flxItem->rows()) return;
    const Cells cells = ui->flxItem->rowValues(row);
    const QPixmap image(helpFile(u"Image"_qs, cells));
    const QString text = textOf(helpFile(u"Text"_qs, cells));
    ui->imgItem->setPixmap(reduced(image, ui->imgItem));
    ui->txtItemHelp->setPlainText(text);
    ui->fraItemImage->setVisible(!image.isNull());
    ui->fraItemHelp->setVisible(!text.isEmpty());
}
