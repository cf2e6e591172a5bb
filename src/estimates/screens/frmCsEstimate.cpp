#include "estimates/screens/frmCsEstimate.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "composition/CompositionName.h"
#include "composition/Pricing.h"
#include "composition/screens/CompositionUndo.h"
#include "customers/screens/frmCsUpdConf.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateChecks.h"
#include "estimates/EstimateDates.h"
#include "estimates/EstimateDraftJson.h"
#include "estimates/MasterTaking.h"
#include "estimates/RecentOrders.h"
#include "estimates/screens/EstimateDateLinks.h"
#include "estimates/screens/EstimateMarks.h"
#include "estimates/screens/MasterCommands.h"
#include "estimates/screens/frmCsEstimateList.h"
#include "reference/ReferenceManagers.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui_frmCsEstimate.h"

#include <QScopedValueRollback>

namespace {

const QString subject = u"見積"_qs;
const QString printAndSave = u"印刷終了後必ず反映処理を実行してください。"_qs;
const QString notSavedYet = u"データベースに未反映の情報があります。\n"_qs + printAndSave;

// Raises an error when it is gone.
EstimateDraft storedEstimate(const QString& EstId) {
    EstimateDraft draft;
    if (!loadEstimate(EstId, draft)) throw AppError(GetMessageText(Message::NotFound, subject), u"frmCsEstimate"_qs);
    return draft;
}

} // namespace

frmCsEstimate::frmCsEstimate(QWidget* parent)
    : EditScreen(parent, {u"顧客見積作成"_qs, subject, u"顧客見積"_qs}), ui(std::make_unique<Ui::frmCsEstimate>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->pagItem->addCommand(ui->cmdInsEstMst);
    for (LinePage* page : {ui->pagMake, ui->pagParts}) page->setComposition(m_draft.composition);
    turnPagesByKeys(ui->tabCsEst);
    m_marks = std::make_unique<EstimateMarks>(ui->tabCsEst);
    m_undo = new CompositionUndo(m_draft.composition, ui->tabCsEst,
                                 {ui->pagItem->grid(), ui->pagMake->grid(), ui->pagParts->grid()});
    connectPages();
    connectMirrors();
    connectCommands();
}

frmCsEstimate::~frmCsEstimate() = default;

void frmCsEstimate::connectPages() {
    connect(ui->tabCsEst, &QTabWidget::currentChanged, this, [this](int page) {
        guarded([&] {
            enterPage(page);
            showAmounts();
            goToGrid(page);
        });
    });
    connect(ui->pagBasic, &CsEstimateBasicPage::nameChanged, this, [this] {
        ui->lblName->setText(ui->pagBasic->customerName());
        guarded([this] { showRemarks(); });
    });
    connect(ui->pagBasic, &CsEstimateBasicPage::insurancesChanged, this, [this] {
        ui->pagPrint->showClaims(ui->pagBasic->claimRows());
        noteClaims();
    });
    connect(ui->pagBasic, &CsEstimateBasicPage::customerChosen, this, [this](const clsCustomer& customer) {
        m_draft.customer = customer;
        showHeader();
        noteEdit();
    });
    connect(ui->pagBasic, &CsEstimateBasicPage::estimateChosen, this,
            [this](const QString& id, qint16 mode) { guarded([&] { openStored(id, mode); }); });
    connect(ui->pagBasic, &CsEstimateBasicPage::partialPaymentEmptied, this, [this] { takeBackAdvance(); });
    connect(ui->pagBasic, &CsEstimateBasicPage::masterChosen, this,
            [this](const clsMstEstimate& master) { guarded([&] { takeMaster(master); }); });
    const auto composed = [this] {
        noteEdit();
        m_undo->note();
        guarded([this] { showAmounts(); });
    };
    connect(ui->pagItem, &ItemPage::changed, this, composed);
    for (LinePage* page : {ui->pagMake, ui->pagParts}) {
        page->pricedByList = [this] { return m_draft.estimate.PriceSedYear == gPriceYear; };
        connect(page, &LinePage::changed, this, composed);
    }
    connect(m_undo, &CompositionUndo::restored, this, [this, composed] {
        ui->pagItem->show(m_draft.composition);
        enterPage(ui->tabCsEst->currentIndex());
        composed();
    });
    connect(ui->pagSchedule, &CsEstimateSchedulePage::percentagesChanged, this, [this] {
        if (m_suppressed) return;
        ui->pagSchedule->collectPercentages(m_draft.estimate);
        guarded([this] { showAmounts(); });
    });
    connect(ui->pagPrint, &CsEstimatePrintPage::changed, this, &frmCsEstimate::noteClaims);
}

void frmCsEstimate::noteClaims() {
    if (m_suppressed) return;
    noteEdit();
    guarded([this] { showRemarks(); });
}

void frmCsEstimate::connectMirrors() {
    EstimateDateLinks::connect(ui->pagBasic->quickDates(), *ui->pagSchedule, *ui->pagPrint,
                               [this] { return m_suppressed; });
}

void frmCsEstimate::connectCommands() {
    QList<QWidget*> changing{ui->fraHeader, ui->cmdExec, ui->cmdNew, ui->cmdClear, ui->cmdPrivateClear};
    for (int page = 0; page < ui->tabCsEst->count(); ++page)
        changing << findChild<QWidget*>(u"fraData_%1"_qs.arg(page));
    setUpEditing(
        {changing, {ui->cmdNewPrice, ui->cmdReCome}, ui->cmdCancel, ui->cmdDel, ui->cmdClose, ui->lblModeTitle});
    onClick(ui->cmdExec, [this] { execute(); });
    onClick(ui->cmdNew, [this] { clearAll(); });
    onClick(ui->cmdPrivateClear, [this] { clearPerson(); });
    onClick(ui->cmdClear, [this] { clearEstimate(); });
    onClick(ui->cmdNewPrice, [this] { takeCurrentPrices(); });
    onClick(ui->cmdReCome, [this] { receiveAgain(); });
    onClick(ui->cmdPayNo, [this] { markUncollected(); });
    onClick(ui->cmdAutoName, [this] { proposeName(); });
    onClick(ui->cmdEstList, [this] { chooseEstimate(); });
    connect(ui->pagPrint, &CsEstimatePrintPage::printingAsked, this,
            [this](EstimatePrinting::To to) { guarded([&] { printTicked(to); }); });
    connect(ui->pagPrint, &CsEstimatePrintPage::opinionAsked, this,
            [this](EstimatePrinting::To to) { guarded([&] { printOpinion(to); }); });
    connect(ui->pagBasic, &CsEstimateBasicPage::receiptAsked, this, [this] { guarded([this] { printReceipt(); }); });
    onClick(ui->cmdInsEstMst, [this] { MasterCommands::store(this, collect()); });
    connect(ui->pagBasic, &CsEstimateBasicPage::opinionAsked, this,
            [this] { guarded([this] { printOpinion(EstimatePrinting::To::Printer); }); });
}

// --- what stands on the screen ---

void frmCsEstimate::fillLists() {
    ui->tabCsEst->setCurrentIndex(Basic);
    ui->pagBasic->fillLists();
    ui->pagSchedule->fillLists();
}

QWidget* frmCsEstimate::firstField() const { return ui->pagBasic->firstField(); }

void frmCsEstimate::showStored() { showDraft(EstId.isEmpty() ? newEstimate() : storedEstimate(EstId)); }

bool frmCsEstimate::openStored(const QString& id, qint16 mode) {
    if (!queryUnload()) return false;
    showDraft(storedEstimate(id));
    EstId = id;
    setMode(mode);
    return true;
}

void frmCsEstimate::showDraft(const EstimateDraft& draft) {
    showEstimate(draft);
    RecentOrders::note(draft.estimate.EstId);
    const QScopedValueRollback refilling(m_suppressed, true);
    ui->pagBasic->showCustomer(draft.customer, draft.chart, draft.orderCd, draft.claims);
    clearEdited();
    m_marks->show(remarksOf(draft));
}

// All but the person, the case and the laws.
void frmCsEstimate::showEstimate(const EstimateDraft& draft) {
    const QScopedValueRollback refilling(m_suppressed, true);
    for (LinePage* page : {ui->pagMake, ui->pagParts}) page->clear(); // its item is one of the estimate before
    m_draft = draft;
    m_receiptSet.clear();
    showHeader();
    ui->txtEstName->setValue(draft.estimate.EstNm);
    ui->pagBasic->showProduct(draft);
    ui->pagItem->show(m_draft.composition);
    ui->pagSchedule->showEstimate(draft.estimate);
    ui->pagPrint->showEstimate(draft);
    enterPage(ui->tabCsEst->currentIndex());
    showAmounts();
    m_undo->restart();
    m_marks->show(remarksOf(collect()));
}

void frmCsEstimate::showHeader() {
    const clsCustomer& customer = m_draft.customer;
    ui->lblCsNo->setText(customer.CustNo.isEmpty() ? automaticNumber : customer.CustNo);
    ui->lblCsId->setText(customer.CustId);
    ui->lblCsSubId->setText(customer.CustSubId);
    const clsCsEstimate& estimate = m_draft.estimate;
    ui->lblEstNo->setText(estimate.EstNo.isEmpty() ? automaticNumber : estimate.EstNo);
    ui->lblEstId->setText(estimate.EstId);
    ui->lblPriceBase->setText(estimate.PriceSedYear);
    const QString status = m_draft.uncollected ? WorkStatus::Uncollected : estimate.ProcKbnNo;
    ui->lblStNo->setText(estimate.ProcKbnNo);
    ui->lblStatus->setText(gProcKbnManager.nameOf(status));
}

void frmCsEstimate::showAmounts() {
    m_draft.takeAmounts();
    const EstimateAmounts amounts = m_draft.amounts();
    for (AmountsBlock* block : {ui->amountsItem, ui->amountsMake, ui->amountsParts}) block->showAmounts(amounts);
    ui->pagSchedule->showAmounts(amounts);
    ui->pagPrint->showAmounts(amounts);
    showRemarks();
}

void frmCsEstimate::showRemarks() {
    if (!m_suppressed) m_marks->show(remarksOf(collect()));
}

QStringList frmCsEstimate::tiers() const { return {ui->pagBasic->ageKbn()}; }

// To the grid that a page is filled in by, if it has one; the first page has fields.
void frmCsEstimate::goToGrid(int page) {
    auto* grid = ui->tabCsEst->widget(page)->findChild<Grid*>();
    if (page != Basic && grid) grid->setFocus();
}

void frmCsEstimate::enterPage(int page) {
    if (page == Print) ui->pagPrint->enter();
    if (page != MakeElements && page != Parts) return;
    m_draft.composition.dropUnusableLines();
    (page == MakeElements ? ui->pagMake : ui->pagParts)->enter(tiers());
}

EstimateDraft frmCsEstimate::collect() const {
    EstimateDraft draft = m_draft;
    draft.composition.dropUnusableLines();
    draft.claims = ui->pagBasic->claimRows();
    for (int i = 0; i < draft.claims.size(); ++i) draft.claims[i].ask = m_draft.claims.value(i).ask;
    ui->pagBasic->collect(draft);
    ui->pagSchedule->collect(draft.estimate);
    ui->pagPrint->collect(draft);
    draft.estimate.EstNm = ui->txtEstName->value();
    draft.estimate.Claim.clear();
    draft.takeAmounts();
    return draft;
}

// The amount that the advance payment had put into the first claim goes with it; another one was typed there.
void frmCsEstimate::takeBackAdvance() {
    const int row = firstClaimRow(ui->pagBasic->claimRows());
    const QString put = m_draft.partialPayment;
    if (!put.isEmpty() && Money::leadingNumber(ui->pagPrint->payPrice(row)) == Money::leadingNumber(put))
        ui->pagPrint->setPayPrice(row, {});
}

// --- saving ---

// False when a save would lose an amount, which was told.
bool frmCsEstimate::keepsAmounts(const EstimateDraft& draft) {
    const int row = rowOfLostAmount(draft, m_draft, m_receiptSet);
    if (row < 0) return true;
    ShowMessage(Message::Warning, lostAmountWords(row));
    ui->tabCsEst->setCurrentIndex(Print);
    ui->pagPrint->goTo(draft.claims.at(row).ask.AskPrice.isEmpty() ? DocumentRequest::Field::PayPrice
                                                                   : DocumentRequest::Field::AskPrice,
                       row);
    return false;
}

std::optional<EstimateDraft> frmCsEstimate::store() {
    if (!leaveField()) return std::nullopt;
    const EstimateDraft entered = collect();
    if (!keepsAmounts(entered)) return std::nullopt;
    EstimateDraft stored = entered;
    SetWaitCursor(true);
    const auto confirm = std::bind_front(frmCsUpdConf::ask, this);
    const SaveResult result = saving([&] { return saveEstimate(gDbManager.Connection(), stored, confirm); });
    SetWaitCursor(false);
    if (result != SaveResult::Saved) {
        if (!entered.composition.hasLines()) goToMissingLines();
        return std::nullopt;
    }
    m_draft.takeIdentity(entered, stored); // a further press is about this one
    Updated = true;
    EstId = stored.estimate.EstId;
    setMode(Edit);
    clearEdited();
    return stored;
}

KeptWork frmCsEstimate::workToKeep() const {
    const EstimateDraft draft = collect();
    return {titleOf(draft), {{u"EstId"_qs, EstId}, {u"estimate"_qs, estimateToJson(draft)}}};
}

void frmCsEstimate::showKept(const QJsonObject& content) {
    EstId = content[u"EstId"].toString();
    showDraft(estimateFromJson(content[u"estimate"].toObject()));
}

// To the first thing that is missing for a line: an item, else the line itself.
void frmCsEstimate::goToMissingLines() {
    const Page page = m_draft.composition.hasUsableItem() ? MakeElements : Items;
    ui->tabCsEst->setCurrentIndex(page);
    goToGrid(page);
}

void frmCsEstimate::execute() {
    const bool isNew = EditMode == Add;
    const auto stored = store();
    if (!stored) return;
    showSaved([&] { showDraft(*stored); },
              isNew ? u"見積番号:"_qs + stored->estimate.EstNo + u" で新規登録しました。"_qs : u"保存しました。"_qs);
}

bool frmCsEstimate::removeStored() {
    deleteEstimate(gDbManager.Connection(), EstId, m_draft.estimate.UpdDate);
    return true;
}

// --- clearing and rebuilding ---

void frmCsEstimate::clearAll() {
    if (ShowMessage(Message::Question, u"顧客見積情報をクリアします。よろしいですか？"_qs) != AnswerYes) return;
    ui->tabCsEst->setCurrentIndex(Basic);
    EstId.clear();
    showStored();
    setMode(Add);
    firstField()->setFocus();
}

void frmCsEstimate::RepriceAll() {
    m_draft.composition.dropUnusableLines();
    Pricing pricing(tiers());
    pricing.reprice(m_draft.composition);
    m_undo->restart();
    for (LinePage* page : {ui->pagMake, ui->pagParts}) page->refresh(tiers());
    showAmounts();
    noteEdit();
    if (!pricing.incomplete()) return;
    ShowMessage(
        Message::Information,
        u"更新処理中に該当するデータが存在しない。またはデータが複数存在しました。ログ内容をご確認ください。"_qs);
    if (gLogger) OpenWithShell(gLogger->FileNm());
}

void frmCsEstimate::clearPerson() {
    if (ShowMessage(Message::AskClear, u"個人情報"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        m_draft = collect();
        m_draft.clearPerson();
        m_draft.takeCurrentTax();
        m_draft.becomeNew();
        ui->pagBasic->showCustomer(m_draft.customer, m_draft.chart, m_draft.orderCd, m_draft.claims);
        ui->pagBasic->showProduct(m_draft);
        ui->pagSchedule->showPercentages(m_draft.estimate);
    }
    showHeader();
    RepriceAll();
}

void frmCsEstimate::clearEstimate() {
    if (ShowMessage(Message::AskClear, subject) != AnswerYes) return;
    EstimateDraft cleared = collect();
    cleared.clearEstimate(EstimateDraft::Clearing::Everything);
    cleared.takeCurrentTax();
    cleared.becomeNew();
    showEstimate(cleared);
    noteEdit();
}

void frmCsEstimate::takeCurrentPrices() {
    if (ShowMessage(Message::AskRun, u"価格更新処理"_qs) != AnswerYes) return;
    {
        const QScopedValueRollback refilling(m_suppressed, true);
        m_draft.takeCurrentTax();
        m_draft.estimate.PriceSedYear = gPriceYear;
        ui->pagSchedule->showPercentages(m_draft.estimate);
    }
    showHeader();
    RepriceAll();
}

void frmCsEstimate::receiveAgain() {
    if (ShowMessage(Message::AskRun, u"再来受付処理"_qs) != AnswerYes) return;
    EstimateDraft again = collect();
    again.clearEstimate(EstimateDraft::Clearing::Dates);
    again.takeCurrentTax();
    again.becomeNew();
    showEstimate(again);
    EstId.clear();
    setMode(Add);
    RepriceAll();
}

void frmCsEstimate::takeMaster(const clsMstEstimate& master) {
    EstimateDraft taken = collect();
    ::takeMaster(taken, master, ui->pagBasic->ageKbn());
    showEstimate(taken);
    noteEdit();
    if (gSysSettingManager.value(Setting::UsesProductName) == u"1")
        ui->txtEstName->setValue(master.ProductNm);
    else
        proposeName();
}

// --- header commands ---

void frmCsEstimate::chooseEstimate() {
    if (frmCsEstimateList::isOpen()) {
        ShowMessage(Message::Information,
                    u"検索画面は既に開いています。\n「閉じる」ボタンで、一覧画面に戻ってください"_qs);
        return;
    }
    if (const auto choice = frmCsEstimateList::choose(this)) openStored(choice->EstId, choice->EditMode);
}

void frmCsEstimate::markUncollected() {
    if (m_draft.uncollected) {
        ShowMessage(Message::Warning, u"作業状況が未回収となっているため変更できません。"_qs);
        return;
    }
    if (ShowMessage(Message::Question, u"作業状況を未回収に変更してよろしいでしょうか。"_qs) != AnswerYes) return;
    m_draft.uncollected = true;
    showHeader();
    noteEdit();
}

void frmCsEstimate::proposeName() {
    ui->txtEstName->fillIn(automaticName(m_draft.composition, officeNameRules(ui->pagBasic->side())));
}

// --- printing ---

void frmCsEstimate::printTicked(EstimatePrinting::To to) {
    if (!leaveField()) return;
    m_warnedUnsaved = false;
    const EstimateDraft draft = collect();
    const DocumentRequest request = requestDocuments(EstimatePrinting::gridRows(draft, ui->pagPrint->ticks()));
    if (request.outcome == DocumentRequest::Outcome::Refused) {
        ShowMessage(Message::Warning, request.message);
        return ui->pagPrint->goTo(request.field, request.row);
    }
    if (EstimatePrinting::refusesEmpty(draft)) return;
    // With several payers the amounts are theirs; with one alone the receipt follows the estimate.
    const bool soleReceipt = request.outcome == DocumentRequest::Outcome::Print && draft.usedClaims().size() == 1 &&
                             !request.claimsOf(DocumentKind::Receipt).isEmpty();
    const bool wholeSum = soleReceipt && setReceiptAmount();
    if (!confirmPrinting(to)) return;
    ui->pagPrint->showPrinted(
        EstimatePrinting::run({collect(), request, ui->pagPrint->hasReceivedMark(), wholeSum, to}));
}

void frmCsEstimate::printReceipt() {
    if (!leaveField() || EstimatePrinting::refusesEmpty(collect())) return;
    m_warnedUnsaved = false;
    const bool wholeSum = setReceiptAmount();
    const EstimateDraft draft = collect();
    DocumentRequest request;
    if (draft.usedClaims().isEmpty()) request.outcome = DocumentRequest::Outcome::WithoutClaim;
    request.payPrice = Money::leadingNumber(ui->pagPrint->payPrice(0));
    request.claims.at(static_cast<size_t>(DocumentKind::Receipt) - 1) = {1};
    if (confirmPrinting(EstimatePrinting::To::Printer))
        ui->pagPrint->showPrinted(EstimatePrinting::run(
            {draft, request, ui->pagPrint->hasReceivedMark(), wholeSum, EstimatePrinting::To::Printer}));
}

void frmCsEstimate::printOpinion(EstimatePrinting::To to) {
    if (!leaveField()) return;
    m_warnedUnsaved = false;
    if (confirmPrinting(to)) EstimatePrinting::runOpinion(collect(), to);
}

bool frmCsEstimate::setReceiptAmount() {
    const QString advance = ui->pagBasic->partialPayment();
    const bool whole = advance.isEmpty();
    const QString expected = whole ? m_draft.estimate.EstSum : formatWhole(advance);
    const int row = firstClaimRow(ui->pagBasic->claimRows());
    if (Money::leadingNumber(ui->pagPrint->payPrice(row)) == Money::leadingNumber(expected)) return whole;
    const bool unsaved = EstId.isEmpty() || isEdited();
    ui->pagPrint->setPayPrice(row, expected);
    m_receiptSet = expected;
    const QString set = u"領収金額を自動設定しました。\n"_qs + printAndSave;
    ShowMessage(Message::Information, unsaved ? set + u"\n\n"_qs + notSavedYet : set);
    m_warnedUnsaved = true;
    return whole;
}

bool frmCsEstimate::confirmPrinting(EstimatePrinting::To to) {
    if (!m_warnedUnsaved && (m_draft.estimate.EstId.isEmpty() || isEdited()))
        ShowMessage(Message::Information, notSavedYet);
    return to == EstimatePrinting::To::Preview || ShowMessage(Message::AskPrint, {}) == AnswerYes;
}
