#include "estimates/screens/CsEstimatePrintPage.h"

#include "estimates/screens/FormPieces.h"
#include "ui/Grid.h"
#include "ui_CsEstimatePrintPage.h"

namespace {

constexpr int printRows = 4;
constexpr int printClaimName = 7;

QList<GridColumn> printColumns() {
    QList<GridColumn> columns(1);
    columns[0].kind = GridColumn::RowNumber;
    columns[0].width = 2;
    for (const QString& document : {u"見積書"_qs, u"内訳書"_qs, u"明細書"_qs, u"請求書"_qs, u"領収書"_qs}) {
        GridColumn tick;
        tick.title = document;
        tick.kind = GridColumn::Check;
        tick.width = 7;
        tick.editable = true;
        columns << tick;
    }
    for (const QString& title : {u"法別"_qs, u"請求先"_qs}) {
        GridColumn grey;
        grey.title = title;
        grey.width = 20;
        grey.background = Style::computed;
        columns << grey;
    }
    return columns;
}

} // namespace

CsEstimatePrintPage::CsEstimatePrintPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimatePrintPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->flxPrint->setColumns(printColumns());
    ui->flxPrint->setRows(printRows);
    FormPieces::stretchColumn(ui->flxPrint, printClaimName);
    FormPieces::fixRowsShown(ui->flxPrint, printRows);
}

CsEstimatePrintPage::~CsEstimatePrintPage() = default;
