#include "master/screens/frmMsEstimate.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "composition/screens/CompositionUndo.h"
#include "db/clsDbManager.h"
#include "estimates/EstimateManagers.h"
#include "master/MasterComposition.h"
#include "master/MasterDraftJson.h"
#include "master/MasterManagers.h"
#include "master/screens/MasterPrinting.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui_frmMsEstimate.h"

namespace {

const QString subject = u"マスタ見積"_qs;

bool isUsedByOrders(const QString& ProductCd) {
    QList<clsCsEstimate> orders;
    gCsEstimateManager.GetList(orders, gCsEstimateManager.equal(&clsCsEstimate::ProductCd, ProductCd),
                               gCsEstimateManager.sorted({&clsCsEstimate::EstId}));
    return !orders.isEmpty();
}

MasterDraft storedMaster(const QString& ProductId) {
    MasterDraft draft;
    if (!loadMaster(ProductId, draft)) throw AppError(GetMessageText(Message::NotFound, subject), u"frmMsEstimate"_qs);
    return draft;
}

} // namespace

frmMsEstimate::frmMsEstimate(QWidget* parent)
    : EditScreen(parent, {u"マスタ見積作成"_qs, subject, subject}), ui(std::make_unique<Ui::frmMsEstimate>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->pagItem->habits = ItemRules::masterHabits;
    for (LinePage* page : {ui->pagMake, ui->pagParts}) {
        page->showColumns(masterTiers());
        page->showing = lookUpUnitPrices;
        page->setComposition(m_draft.composition);
    }
    turnPagesByKeys(ui->tabMstEst);
    m_undo = new CompositionUndo(m_draft.composition, ui->tabMstEst,
                                 {ui->pagItem->grid(), ui->pagMake->grid(), ui->pagParts->grid()});
    connectPages();
    connectCommands();
}

frmMsEstimate::~frmMsEstimate() = default;

void frmMsEstimate::connectPages() {
    const auto changed = [this] {
        noteEdit();
        m_undo->note();
        guarded([this] { showAmounts(); });
    };
    connect(ui->tabMstEst, &QTabWidget::currentChanged, this, [this](int page) {
        guarded([&] {
            enterPage(page);
            showAmounts();
            ui->tabMstEst->widget(page)->findChild<Grid*>()->setFocus();
        });
    });
    connect(m_undo, &CompositionUndo::restored, this, [this] {
        ui->pagItem->show(m_draft.composition);
        enterPage(ui->tabMstEst->currentIndex());
        showAmounts();
        noteEdit();
    });
    connect(ui->pagItem, &ItemPage::changed, this, changed);
    for (LinePage* page : {ui->pagMake, ui->pagParts}) connect(page, &LinePage::changed, this, changed);
}

void frmMsEstimate::connectCommands() {
    setUpEditing({{ui->fraHeader, ui->fraData_0, ui->fraData_1, ui->fraData_2, ui->cmdExec, ui->cmdPrt_0, ui->cmdPrt_1},
                  {},
                  ui->cmdCancel,
                  ui->cmdDel,
                  ui->cmdClose,
                  ui->lblModeTitle});
    onClick(ui->cmdPrt_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrt_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdExec, [this] { execute(); });
    onClick(ui->cmdAutoName, [this] { ui->txtProductNm->setValue(m_draft.proposedName()); });
}

// --- what stands on the screen ---

void frmMsEstimate::load() {
    if (EditMode == Add) ProductId.clear();
    if (EditMode != Add && ProductId.isEmpty())
        throw AppError(GetMessageText(Message::Invalid, u"製品ID"_qs), u"frmMsEstimate"_qs);
    EditScreen::load();
}

QWidget* frmMsEstimate::firstField() const { return ui->txtProductCd; }

void frmMsEstimate::showStored() {
    MasterDraft draft = ProductId.isEmpty() ? newMaster() : storedMaster(ProductId);
    if (EditMode == Copy) draft.becomeNew();
    showDraft(draft);
}

void frmMsEstimate::showDraft(const MasterDraft& draft) {
    for (LinePage* page : {ui->pagMake, ui->pagParts}) page->clear(); // its item is one of those before
    m_draft = draft;
    ui->txtProductCd->setValue(draft.master.ProductCd);
    ui->txtProductNm->setValue(draft.master.ProductNm);
    ui->txtMemo->setValue(draft.master.Memo);
    ui->lblPriceBase->setText(draft.master.PriceSedYear);
    ui->pagItem->show(m_draft.composition);
    enterPage(ui->tabMstEst->currentIndex());
    showAmounts();
    m_undo->restart();
    clearEdited();
}

void frmMsEstimate::showAmounts() {
    const MasterAmounts amounts = m_draft.amounts();
    ui->lblSubtotal1->setText(formatThousands(amounts.makeElements));
    ui->lblSubtotal2->setText(formatThousands(amounts.completeParts));
    ui->lblTaxTotal->setText(formatThousands(amounts.totals.tax));
    ui->lblPriceSmall->setText(formatThousands(amounts.totals.small));
    ui->lblPriceMiddle->setText(formatThousands(amounts.totals.middle));
    ui->lblPriceBig->setText(formatThousands(amounts.totals.big));
}

void frmMsEstimate::enterPage(int page) {
    if (page == Items) return;
    m_draft.composition.dropUnusableLines();
    (page == MakeElements ? ui->pagMake : ui->pagParts)->enter(masterTiers());
}

MasterDraft frmMsEstimate::collect() const {
    MasterDraft draft = m_draft;
    draft.master.ProductCd = ui->txtProductCd->value();
    draft.master.ProductNm = ui->txtProductNm->value();
    draft.master.Memo = ui->txtMemo->value();
    return draft;
}

// --- saving ---

std::optional<MasterDraft> frmMsEstimate::store() {
    if (!leaveField()) return std::nullopt;
    const MasterDraft entered = collect();
    MasterDraft stored = entered;
    SetWaitCursor(true);
    const MasterSave came = saving([&] { return saveMaster(gDbManager.Connection(), stored, isUsedByOrders); });
    SetWaitCursor(false);
    if (came == MasterSave::WrongCode) ui->txtProductCd->setFocus();
    if (came == MasterSave::WrongName) ui->txtProductNm->setFocus();
    if (came == MasterSave::Gone) startAnew();
    if (came != MasterSave::Saved) return std::nullopt;
    m_draft.takeIdentity(entered, stored); // a further press is about this one
    Updated = true;
    ProductId = stored.master.ProductId;
    setMode(Edit);
    clearEdited();
    return stored;
}

bool frmMsEstimate::save() { return store().has_value(); }

void frmMsEstimate::execute() {
    const bool isNew = EditMode != Edit;
    const auto stored = store();
    if (!stored) return;
    showSaved([&] { showDraft(*stored); },
              isNew ? u"製品コード:"_qs + stored->master.ProductCd + u" で新規登録しました。"_qs
                    : u"保存しました。"_qs);
}

void frmMsEstimate::startAnew() {
    ProductId.clear();
    m_draft.becomeNew();
    setMode(Add);
    noteEdit();
}

bool frmMsEstimate::removeStored() {
    deleteMaster(gDbManager.Connection(), ProductId, m_draft.master.UpdDate);
    return true;
}

// --- drafts ---

KeptWork frmMsEstimate::workToKeep() const {
    const MasterDraft draft = collect();
    return {titleOf(draft), {{u"ProductId"_qs, ProductId}, {u"master"_qs, masterToJson(draft)}}};
}

void frmMsEstimate::showKept(const QJsonObject& content) {
    ProductId = content[u"ProductId"].toString();
    showDraft(masterFromJson(content[u"master"].toObject()));
}

// --- printing ---

// The paper shows what is stored.
void frmMsEstimate::print(PrintTo to) {
    if (!leaveField()) return;
    if (EditMode != Edit || isEdited()) {
        ShowMessage(Message::SaveFirst, subject);
        return;
    }
    if (to == PrintTo::Printer && ShowMessage(Message::AskPrint, {}) != AnswerYes) return;
    printMasters(gMstEstimateManager.keyed({ProductId}), to);
}
