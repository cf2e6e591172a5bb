#include "master/screens/frmMstEstimateDialog.h"

#include "base/Text.h"
#include "base/basMessage.h"
#include "master/MasterManagers.h"
#include "ui/FormPieces.h"
#include "ui_frmMstEstimateDialog.h"

namespace {

// Tells what is wrong with a field and goes there.
void refuse(TextField* field, int code, const QString& what) {
    ShowMessage(code, what);
    field->setFocus();
}

bool isTaken(const QString& code) {
    QList<clsMstEstimate> rows;
    gMstEstimateManager.GetList(rows, gMstEstimateManager.equal(&clsMstEstimate::ProductCd, code),
                                gMstEstimateManager.column(&clsMstEstimate::ProductCd));
    return !rows.isEmpty();
}

} // namespace

frmMstEstimateDialog::frmMstEstimateDialog(QWidget* parent)
    : Screen(parent), ui(std::make_unique<Ui::frmMstEstimateDialog>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    onClick(ui->cmdInsert, [this] { insert(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmMstEstimateDialog::~frmMstEstimateDialog() = default;

void frmMstEstimateDialog::load() {
    ui->txtProductCd->setValue(ProductCd);
    ui->txtProductNm->setValue(ProductNm);
    ui->txtProductCd->setFocus();
}

void frmMstEstimateDialog::insert() {
    const QString code = Text::rightTrimmed(ui->txtProductCd->value());
    const QString name = Text::rightTrimmed(ui->txtProductNm->value());
    if (code.isEmpty()) return refuse(ui->txtProductCd, Message::EnterValue, u"製品コード"_qs);
    if (name.isEmpty()) return refuse(ui->txtProductNm, Message::EnterValue, u"通称"_qs);
    if (isTaken(code)) return refuse(ui->txtProductCd, Message::Duplicate, u"製品コード"_qs);
    ProductCd = code;
    ProductNm = name;
    Updated = true;
    close();
}
