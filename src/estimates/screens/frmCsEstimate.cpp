#include "estimates/screens/frmCsEstimate.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "customers/screens/frmCsUpdConf.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateDates.h"
#include "estimates/EstimateName.h"
#include "estimates/Repricing.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "reference/ReferenceManagers.h"
#include "ui/FormPieces.h"
#include "ui_AmountsBlock.h"
#include "ui_CsEstimateBasicPage.h"
#include "ui_CsEstimateItemPage.h"
#include "ui_CsEstimateMakePage.h"
#include "ui_CsEstimatePartsPage.h"
#include "ui_CsEstimatePrintPage.h"
#include "ui_CsEstimateSchedulePage.h"
#include "ui_frmCsEstimate.h"

#include <QScopedValueRollback>
#include <QShortcut>

namespace {

const QString screenWord = u"顧客見積"_qs;

void fillIfEmpty(DateField* field, const QString& date) {
    if (field->value().isEmpty()) field->setValue(date);
}

} // namespace

frmCsEstimate::frmCsEstimate(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsEstimate>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    m_makeEditor = new ElementEditor<clsCsMakeElmt>(ui->pagMake->ui->flxMkElm, ui->pagMake->ui->itemChoice,
                                                    ui->pagMake->ui->rowCommands, ui->pagMake->ui->lblSumPrice_2,
                                                    makeRules(), m_draft.lines.make);
    m_partsEditor = new ElementEditor<clsCsCmpltElmt>(ui->pagParts->ui->flxCpElm, ui->pagParts->ui->itemChoice,
                                                      ui->pagParts->ui->rowCommands, ui->pagParts->ui->lblSumPrice_3,
                                                      partsRules(), m_draft.lines.parts);
    setUpTabKeys();
    connectPages();
    connectMirrors();
    connectCommands();
}

frmCsEstimate::~frmCsEstimate() = default;

// Alt+1 to Alt+6 turn the pages, as the captions themselves have no letter.
void frmCsEstimate::setUpTabKeys() {
    for (int page = 0; page < ui->tabCsEst->count(); ++page) {
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + page));
        auto* turn = new QShortcut(keys, this);
        connect(turn, &QShortcut::activated, this, [this, page] {
            if (leaveField()) ui->tabCsEst->setCurrentIndex(page);
        });
        ui->tabCsEst->setTabToolTip(page, keys.toString(QKeySequence::NativeText));
    }
}

void frmCsEstimate::connectPages() {
    connect(ui->tabCsEst, &QTabWidget::currentChanged, this, [this](int page) { guarded([&] { pageTurned(page); }); });
    connect(ui->pagBasic, &CsEstimateBasicPage::nameChanged, this, &frmCsEstimate::showName);
    connect(ui->pagBasic, &CsEstimateBasicPage::insurancesChanged, this,
            [this] { guarded([this] { insurancesChanged(); }); });
    connect(ui->pagBasic, &CsEstimateBasicPage::customerChosen, this, [this](const clsCustomer& customer) {
        m_draft.customer = customer;
        showNumbers(m_draft);
        m_edited = true;
    });
    connect(ui->pagBasic, &CsEstimateBasicPage::estimateChosen, this,
            [this](const QString& id, qint16 mode) { guarded([&] { openStored(id, mode); }); });
    connect(ui->pagItem, &CsEstimateItemPage::changed, this, [this] { m_edited = true; });
    connect(ui->pagItem, &CsEstimateItemPage::rowsMoved, this, [this](const QList<int>& formerRows) {
        m_draft.lines.renumber([&](int former) { return static_cast<int>(formerRows.indexOf(former)) + 1; });
        guarded([this] { RecalcAmounts(); });
    });
    const auto linesChanged = [this] {
        m_edited = true;
        RecalcAmounts();
    };
    m_makeEditor->changed = linesChanged;
    m_partsEditor->changed = linesChanged;
    connect(ui->pagSchedule, &CsEstimateSchedulePage::percentagesChanged, this, [this] {
        if (!m_suppressed) guarded([this] { RecalcAmounts(); });
    });
    connect(ui->pagPrint, &CsEstimatePrintPage::changed, this, [this] {
        if (!m_suppressed) m_edited = true;
    });
}

void frmCsEstimate::connectMirrors() {
    const auto& basic = *ui->pagBasic->ui;
    const auto& schedule = *ui->pagSchedule->ui;
    DateField* receipt = ui->pagPrint->receiptDate(0);
    // Only a delivery date typed beside the customer fills the others; what is copied here changes nothing else.
    const auto mirror = [this](const DateField* from, DateField* to) {
        const QScopedValueRollback mirroring(m_mirroring, true);
        if (to->value() != from->value()) to->setValue(from->value());
    };
    for (const auto& [first, second] :
         {std::pair(basic.idtPickPtnDate2, schedule.idtPickPtnDate),
          std::pair(basic.idtDelvFinDate2, schedule.idtDelvFinDate), std::pair(basic.idtPayPrtDate2, receipt)}) {
        connect(first, &DateField::valueSettled, this, [=, first = first, second = second] { mirror(first, second); });
        connect(second, &DateField::valueSettled, this, [=, first = first, second = second] { mirror(second, first); });
    }
    connect(basic.idtDelvFinDate2, &DateField::valueSettled, this, [this, &basic, &schedule] {
        if (m_suppressed || m_mirroring || basic.idtDelvFinDate2->value().isEmpty()) return;
        fillIfEmpty(schedule.idtDelvPlnDate, basic.idtDelvFinDate2->value());
        fillIfEmpty(schedule.idtCmpltFinDate, basic.idtDelvFinDate2->value());
    });
    connect(schedule.idtPickPtnDate, &DateField::valueSettled, this, [this] {
        if (!m_suppressed) guarded([this] { ui->pagSchedule->planFromCasting(); });
    });
    const auto showOpinionDates = [this, &schedule] {
        ui->pagPrint->ui->lblOpnDate1->setText(schedule.idtPickPtnDate->value());
        const QString delivered = schedule.idtDelvFinDate->value();
        ui->pagPrint->ui->lblOpnDate2->setText(delivered.isEmpty() ? schedule.idtDelvPlnDate->value() : delivered);
    };
    for (DateField* field : {schedule.idtPickPtnDate, schedule.idtDelvFinDate, schedule.idtDelvPlnDate})
        connect(field, &DateField::valueSettled, this, showOpinionDates);
}

void frmCsEstimate::connectCommands() {
    onClick(ui->cmdClose, [this] { close(); });
    onClick(ui->cmdExec, [this] { execute(); });
    onClick(ui->cmdCancel, [this] { cancel(); });
    onClick(ui->cmdDel, [this] { removeEstimate(); });
    onClick(ui->cmdNew, [this] { clearAll(); });
    onClick(ui->cmdPrivateClear, [this] { clearPerson(); });
    onClick(ui->cmdClear, [this] { clearEstimate(); });
    onClick(ui->cmdNewPrice, [this] { takeCurrentPrices(); });
    onClick(ui->cmdReCome, [this] { receiveAgain(); });
    onClick(ui->cmdPayNo, [this] { markUncollected(); });
    onClick(ui->cmdAutoName, [this] { proposeName(); });
    const auto& pages = *ui->pagPrint->ui;
    onClick(pages.cmdEtcPrt_0, [this] { printTicked(EstimatePrinting::To::Preview); });
    onClick(pages.cmdEtcPrt_1, [this] { printTicked(EstimatePrinting::To::Printer); });
    onClick(ui->pagBasic->ui->cmdEtcPrt_2, [this] { printReceipt(); });
    onClick(ui->cmdEstList, [this] { chooseEstimate(); });
    // What these open is not there yet.
    for (QPushButton* later : {ui->pagItem->ui->cmdInsEstMst, ui->pagBasic->ui->cmdProductSelect,
                               ui->pagBasic->ui->cmdOpnPrt_2, pages.cmdOpnPrt_0, pages.cmdOpnPrt_1})
        later->setEnabled(false);
}

// --- opening ---

void frmCsEstimate::load() {
    ui->tabCsEst->setCurrentIndex(Basic);
    ui->pagBasic->fillLists();
    ui->pagSchedule->fillLists();
    // Which item is in view is no change of the order.
    for (ChoiceBox* choice :
         {ui->pagMake->ui->itemChoice->ui->cboSelectItem, ui->pagParts->ui->itemChoice->ui->cboSelectItem})
        choice->setProperty("tag", u"Attached"_qs);
    AttachControls(this, wrappers);
    if (EstId.isEmpty()) {
        showEmpty();
    } else {
        EstimateDraft stored;
        if (!loadEstimate(EstId, stored)) throw AppError(GetMessageText(121, u"見積"_qs), u"frmCsEstimate"_qs);
        showOrder(stored);
    }
    setMode(EditMode);
    ui->pagBasic->ui->txtName1->setFocus();
}

void frmCsEstimate::setMode(qint16 mode) {
    EditMode = mode;
    const QString word = mode == Add ? u"（追加）"_qs : mode == Edit ? u"（編集）"_qs : u"（削除）"_qs;
    setWindowTitle(u"顧客見積作成"_qs + word);
    ui->lblModeTitle->setText(word);
    const bool changes = mode != Delete;
    ui->fraHeader->setEnabled(changes);
    for (int page = 0; page < ui->tabCsEst->count(); ++page)
        findChild<QWidget*>(u"fraData_%1"_qs.arg(page))->setEnabled(changes);
    for (QPushButton* command : {ui->cmdExec, ui->cmdCancel, ui->cmdNew, ui->cmdClear, ui->cmdPrivateClear})
        command->setEnabled(changes);
    ui->cmdDel->setEnabled(mode == Delete);
    ui->cmdNewPrice->setEnabled(mode == Edit);
    ui->cmdReCome->setEnabled(mode == Edit);
}

// --- what stands on the screen ---

void frmCsEstimate::showOrder(const EstimateDraft& draft) {
    const QScopedValueRollback refilling(m_suppressed, true);
    m_draft = draft;
    showNumbers(draft);
    showStatus(draft.estimate.ProcKbnNo.isEmpty() ? WorkStatus::Nothing : draft.estimate.ProcKbnNo);
    ui->txtEstName->setValue(draft.estimate.EstNm);
    ui->lblPriceBase->setText(draft.estimate.EstId.isEmpty() ? gPriceYear : draft.estimate.PriceSedYear);
    ui->pagBasic->showOrder(draft);
    ui->pagItem->showItems(draft.items);
    ui->pagSchedule->showEstimate(draft.estimate);
    ui->pagPrint->showOrder(draft);
    m_makeEditor->clear();
    m_partsEditor->clear();
    pageTurned(ui->tabCsEst->currentIndex());
    insurancesChanged();
    RecalcAmounts();
    clearEdited();
}

void frmCsEstimate::showNumbers(const EstimateDraft& draft) {
    const clsCustomer& customer = draft.customer;
    ui->lblCsNo->setText(customer.CustNo.isEmpty() ? automaticNumber : customer.CustNo);
    ui->lblCsId->setText(customer.CustId);
    ui->lblCsSubId->setText(customer.CustSubId);
    const clsCsEstimate& estimate = draft.estimate;
    ui->lblEstNo->setText(estimate.EstNo.isEmpty() ? automaticNumber : estimate.EstNo);
    ui->lblEstId->setText(estimate.EstId);
}

void frmCsEstimate::showStatus(const QString& number) {
    ui->lblStNo->setText(number);
    ui->lblStatus->setText(gProcKbnManager.nameOf(number));
}

void frmCsEstimate::showName() { ui->lblName->setText(ui->pagBasic->customerName()); }

bool frmCsEstimate::showStored(const QString& id) {
    EstimateDraft stored;
    if (!loadEstimate(id, stored)) {
        ShowMessage(121, u"見積"_qs);
        return false;
    }
    EstId = id;
    showOrder(stored);
    return true;
}

bool frmCsEstimate::openStored(const QString& id, qint16 mode) {
    if (!queryUnload()) return false;
    if (!showStored(id)) return false;
    setMode(mode);
    return true;
}

void frmCsEstimate::showEmpty() {
    EstId.clear();
    showOrder({});
}

QList<Cells> frmCsEstimate::itemCells() const {
    QList<Cells> cells;
    for (const ShownItem& item : ui->pagItem->items()) cells << item.cells;
    return cells;
}

void frmCsEstimate::dropOrphans() {
    const QList<Cells> items = itemCells();
    m_draft.lines.renumber([&](int number) {
        return number >= 1 && number <= items.size() && ItemGrid::isUsable(items.at(number - 1)) ? number : 0;
    });
}

void frmCsEstimate::pageTurned(int page) {
    if (page == Print) ui->pagPrint->ui->flxPrint->setCurrent(1, 1);
    if (page != MakeElements && page != Parts) return;
    dropOrphans();
    const QList<ShownItem> items = ui->pagItem->items();
    if (page == MakeElements)
        m_makeEditor->enter(items, ui->pagBasic->ageKbn());
    else
        m_partsEditor->enter(items, ui->pagBasic->ageKbn());
    if (!m_suppressed) RecalcAmounts();
}

void frmCsEstimate::insurancesChanged() {
    const QList<ClaimRow> rows = ui->pagBasic->insuranceRows();
    ui->pagPrint->showInsurances(rows);
    const bool claims = std::any_of(rows.begin(), rows.end(), [](const ClaimRow& row) { return row.isUsed(); });
    ui->pagBasic->ui->numPartialPayment->setEnabled(claims);
    if (!m_suppressed) m_edited = true;
}

void frmCsEstimate::RecalcAmounts() {
    ShowAmounts(recalcAmounts(ui->pagSchedule->percentages(), m_draft.lines.make.all(), m_draft.lines.parts.all()));
}

void frmCsEstimate::ShowAmounts(const EstimateAmounts& amounts) {
    for (AmountsBlock* block : {ui->pagItem->ui->amounts, ui->pagMake->ui->amounts, ui->pagParts->ui->amounts,
                                ui->pagSchedule->ui->amounts, ui->pagPrint->ui->amounts})
        block->showAmounts(amounts);
    ui->pagPrint->showTotal(amounts.total);
    m_draft.estimate.Total = QString::number(amounts.beforeTax());
    m_draft.estimate.EstSum = QString::number(amounts.total);
}

EstimateDraft frmCsEstimate::collect() {
    dropOrphans();
    RecalcAmounts();
    EstimateDraft draft = m_draft;
    QList<ClaimRow> claims = ui->pagBasic->insuranceRows();
    for (int i = 0; i < claims.size(); ++i) claims[i].ask = m_draft.claims.value(i).ask;
    draft.claims = claims;
    ui->pagBasic->collect(draft);
    ui->pagSchedule->collect(draft.estimate);
    ui->pagPrint->collect(draft);
    draft.estimate.EstNm = ui->txtEstName->value();
    draft.estimate.Claim.clear();
    draft.estimate.PriceSedYear = ui->lblPriceBase->text();
    draft.uncollected = ui->lblStatus->text() == WorkStatus::UncollectedName;

    draft.items.clear();
    QList<int> numbers; // by row of the grid
    for (const Cells& cells : itemCells()) {
        numbers << 0;
        if (!ItemGrid::isUsable(cells)) continue;
        numbers.last() = static_cast<int>(draft.items.size()) + 1;
        clsCsItem item;
        item.EstItemNo = QString::number(numbers.last());
        item.Item = cells.at(ItemGrid::Item);
        item.PickKbn = cells.at(ItemGrid::PickKbn);
        item.Name = cells.at(ItemGrid::Name);
        item.Form = cells.at(ItemGrid::Form);
        item.PickStyle = cells.at(ItemGrid::PickStyle);
        item.GrantRepair = cells.at(ItemGrid::GrantRepair);
        item.MkElmTotal = item.CpElmTotal = u"0"_qs;
        draft.items << item;
    }
    draft.lines.renumber([&](int number) { return numbers.value(number - 1, 0); });
    return draft;
}

bool frmCsEstimate::IsEdited() const { return m_edited || IsAnyEdited(wrappers); }

void frmCsEstimate::clearEdited() {
    m_edited = false;
    ClearEdited(wrappers);
}

// --- saving ---

bool frmCsEstimate::save() {
    if (!leaveField()) return false;
    EstimateDraft draft = collect();
    gCustomerManager.confirmUpdate = [this](const clsCustomer& stored, const clsCustomer& typed) {
        return frmCsUpdConf::ask(this, stored, typed);
    };
    SetWaitCursor(true);
    const SaveResult result = saveEstimate(gDbManager.Connection(), draft);
    SetWaitCursor(false);
    if (result != SaveResult::Saved) return false;
    Updated = true;
    EstId = draft.estimate.EstId;
    return true;
}

void frmCsEstimate::execute() {
    if (!save()) return;
    const bool isNew = EditMode == Add;
    setMode(Edit);
    showStored(EstId);
    ShowMessage(902,
                isNew ? u"見積番号:"_qs + m_draft.estimate.EstNo + u" で新規登録しました。"_qs : u"保存しました。"_qs);
}

bool frmCsEstimate::queryUnload() {
    if (EditMode == Delete || !Loaded || !IsEdited()) return true;
    switch (ShowMessage(201, u"見積"_qs)) {
    case AnswerYes:
        return save();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}

void frmCsEstimate::cancel() {
    if (ShowMessage(302, screenWord) != AnswerYes) return;
    if (EditMode == Edit && !EstId.isEmpty())
        showStored(EstId);
    else
        showEmpty();
}

void frmCsEstimate::removeEstimate() {
    if (ShowMessage(202, u"見積"_qs) != AnswerYes) return;
    deleteEstimate(gDbManager.Connection(), EstId);
    ShowMessage(902, u"削除しました。"_qs);
    Updated = true;
    close();
}

// --- clearing and rebuilding ---

void frmCsEstimate::clearAll() {
    if (ShowMessage(904, u"顧客見積情報をクリアします。よろしいですか？"_qs) != AnswerYes) return;
    ui->tabCsEst->setCurrentIndex(Basic);
    showEmpty();
    setMode(Add);
}

void frmCsEstimate::becomeNewEstimate() {
    m_draft.estimate.EstId.clear();
    m_draft.estimate.EstNo.clear();
    m_draft.estimate.UpdDate.clear();
    m_draft.estimate.OpnPrtDate.clear();
    for (ClaimRow& claim : m_draft.claims) claim.ask = {};
    ui->lblPriceBase->setText(gPriceYear);
    showNumbers(m_draft);
}

void frmCsEstimate::RepriceAll() {
    dropOrphans();
    const bool incomplete = repriceAll(m_draft.lines, itemCells(), ui->pagBasic->ageKbn());
    m_makeEditor->refresh(ui->pagBasic->ageKbn());
    m_partsEditor->refresh(ui->pagBasic->ageKbn());
    RecalcAmounts();
    m_edited = true;
    if (!incomplete) return;
    ShowMessage(
        902, u"更新処理中に該当するデータが存在しない。またはデータが複数存在しました。ログ内容をご確認ください。"_qs);
    if (gLogger) OpenWithShell(gLogger->FileNm());
}

void frmCsEstimate::clearPerson() {
    if (ShowMessage(204, u"個人情報"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        m_draft.customer = {};
        m_draft.claims.clear();
        ui->pagBasic->showCustomer({}, {}, {}, {});
        ui->pagBasic->ui->txtGrantNo->setValue({});
        ui->pagSchedule->resetTax();
    }
    becomeNewEstimate();
    RepriceAll();
}

void frmCsEstimate::ClearEstimate(Clearing level) {
    showStatus(WorkStatus::Nothing);
    EstimateDraft empty;
    empty.claims = ui->pagBasic->insuranceRows();
    empty.estimate.Memo = ui->pagSchedule->ui->txtEstMemo->value();
    const Percentages kept = ui->pagSchedule->percentages();
    ui->pagSchedule->showEstimate(empty.estimate);
    ui->pagPrint->showOrder(empty);
    if (level != Clearing::Everything) {
        ui->pagSchedule->ui->cboDiscount1->setText(kept.discount1);
        ui->pagSchedule->ui->cboDiscount2->setText(kept.discount2);
        ui->pagSchedule->ui->cboDiscount3->setText(kept.discount3);
    } else {
        empty.estimate.GrantNo = ui->pagBasic->ui->txtGrantNo->value();
        ui->pagBasic->showProduct(empty);
        ui->pagSchedule->ui->txtEstMemo->setValue({});
    }
    if (level == Clearing::Dates) return;
    ui->txtEstName->setValue({});
    ui->pagBasic->ui->txtProductCd->setValue({});
    ui->pagBasic->ui->lblProductNm->clear();
    ui->pagBasic->ui->numPartialPayment->setValue({});
    ui->pagItem->showItems({});
    m_draft.lines.clear();
    m_makeEditor->clear();
    m_partsEditor->clear();
}

void frmCsEstimate::clearEstimate() {
    if (ShowMessage(204, u"見積"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        ClearEstimate(Clearing::Everything);
    }
    becomeNewEstimate();
    RecalcAmounts();
    m_edited = true;
}

void frmCsEstimate::takeCurrentPrices() {
    if (ShowMessage(205, u"価格更新処理"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        ui->pagSchedule->resetTax();
    }
    ui->lblPriceBase->setText(gPriceYear);
    RepriceAll();
}

void frmCsEstimate::receiveAgain() {
    if (ShowMessage(205, u"再来受付処理"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        ClearEstimate(Clearing::Dates);
        ui->pagSchedule->resetTax();
    }
    becomeNewEstimate();
    EstId.clear();
    setMode(Add);
    RepriceAll();
}

// --- header commands ---

void frmCsEstimate::chooseEstimate() {
    if (frmCsEstimateList::isOpen()) {
        ShowMessage(902, u"検索画面は既に開いています。\n「閉じる」ボタンで、一覧画面に戻ってください"_qs);
        return;
    }
    if (const auto choice = frmCsEstimateList::choose(this)) openStored(choice->EstId, choice->EditMode);
}

void frmCsEstimate::markUncollected() {
    if (ui->lblStatus->text() == WorkStatus::UncollectedName) {
        ShowMessage(901, u"作業状況が未回収となっているため変更できません。"_qs);
        return;
    }
    if (ShowMessage(904, u"作業状況を未回収に変更してよろしいでしょうか。"_qs) != AnswerYes) return;
    ui->lblStatus->setText(WorkStatus::UncollectedName);
    m_edited = true;
}

void frmCsEstimate::proposeName() {
    QList<NamedItem> items;
    for (const ShownItem& item : ui->pagItem->items())
        items << NamedItem{item.cells.at(ItemGrid::Item), item.cells.at(ItemGrid::Name), item.cells.at(ItemGrid::Form),
                           item.texts.at(ItemGrid::PickStyle - ItemGrid::Item),
                           item.texts.at(ItemGrid::GrantRepair - ItemGrid::Item)};
    const NameSettings settings{gSysSettingManager.value(17), gSysSettingManager.value(18),
                                gSysSettingManager.value(19)};
    ui->txtEstName->setValue(automaticName(items, ui->pagBasic->ui->cboLR->text(), settings));
}

// --- printing ---

namespace {

const QString printAndSave = u"印刷終了後必ず反映処理を実行してください。"_qs;

} // namespace

void frmCsEstimate::printTicked(EstimatePrinting::To to) {
    if (!leaveField()) return;
    m_warnedUnsaved = false;
    const EstimateDraft draft = collect();
    QList<EstimatePrinting::TickedRow> ticks(claimRowCount);
    for (int kind = CsEstimatePrintPage::Estimate; kind <= CsEstimatePrintPage::Receipt; ++kind)
        for (const int row : ui->pagPrint->ticked(static_cast<CsEstimatePrintPage::Document>(kind)))
            ticks[row - 1].ticked[kind - 1] = true;
    const DocumentOrder order = orderDocuments(EstimatePrinting::gridRows(draft, ticks));
    if (order.outcome == DocumentOrder::Outcome::Refused) {
        ShowMessage(901, order.message);
        if (order.row >= 0) {
            const bool receipt = order.message.startsWith(u"領収"_qs);
            (receipt ? ui->pagPrint->payPrice(order.row) : ui->pagPrint->askPrice(order.row))->setFocus();
        }
        return;
    }
    // With several payers the amounts are theirs; with one alone the receipt follows the order.
    const bool soleReceipt = order.outcome == DocumentOrder::Outcome::Print && draft.usedClaims().size() == 1 &&
                             !order.claimsOf(DocumentKind::Receipt).isEmpty();
    const bool wholeSum = soleReceipt && to == EstimatePrinting::To::Printer && setReceiptAmount();
    if (confirmPrinting(to)) EstimatePrinting::run({collect(), order, ui->pagPrint->hasReceivedMark(), wholeSum, to});
}

void frmCsEstimate::printReceipt() {
    if (!leaveField()) return;
    m_warnedUnsaved = false;
    const bool wholeSum = setReceiptAmount();
    const EstimateDraft draft = collect();
    DocumentOrder order;
    if (draft.usedClaims().isEmpty()) order.outcome = DocumentOrder::Outcome::WithoutClaim;
    order.payPrice = Money::leadingNumber(ui->pagPrint->payPrice(0)->value());
    order.claims.at(static_cast<size_t>(DocumentKind::Receipt) - 1) = {1};
    if (confirmPrinting(EstimatePrinting::To::Printer))
        EstimatePrinting::run({draft, order, ui->pagPrint->hasReceivedMark(), wholeSum, EstimatePrinting::To::Printer});
}

// The row of the first claim; without a claim the first row.
int frmCsEstimate::firstClaimRow() const {
    const QList<ClaimRow> rows = ui->pagBasic->insuranceRows();
    const auto used = std::find_if(rows.begin(), rows.end(), [](const ClaimRow& row) { return row.isUsed(); });
    return used == rows.end() ? 0 : static_cast<int>(used - rows.begin());
}

bool frmCsEstimate::setReceiptAmount() {
    const NumberField* partial = ui->pagBasic->ui->numPartialPayment;
    const QString advance = partial->isEnabled() ? partial->value() : QString();
    const bool whole = advance.isEmpty();
    const QString expected = whole ? m_draft.estimate.EstSum : formatWhole(advance);
    NumberField* received = ui->pagPrint->payPrice(firstClaimRow());
    if (Money::leadingNumber(received->value()) == Money::leadingNumber(expected)) return whole;
    const bool unsaved = EstId.isEmpty() || IsEdited();
    received->setValue(expected);
    if (!unsaved) {
        ShowMessage(902, u"領収金額を自動設定しました。\n"_qs + printAndSave);
        m_warnedUnsaved = true;
    }
    return whole;
}

bool frmCsEstimate::confirmPrinting(EstimatePrinting::To to) {
    if (!m_warnedUnsaved && (m_draft.estimate.EstId.isEmpty() || IsEdited()))
        ShowMessage(902, u"データベースに未反映の情報があります。\n"_qs + printAndSave);
    return to == EstimatePrinting::To::Preview || ShowMessage(203, {}) == AnswerYes;
}
