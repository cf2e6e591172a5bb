#include "price/screens/frmKakakuUpdate.h"

#include "base/Application.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "price/screens/frmKakakuChange.h"
#include "price/screens/frmKakakuFaults.h"
#include "ui/FormPieces.h"
#include "ui_frmKakakuUpdate.h"

#include <QEvent>
#include <QRegularExpression>
#include <QScopeGuard>

namespace {

constexpr int removable = 2; // kinds of drives
constexpr int compactDisc = 5;
constexpr int pauseEvery = 50; // milliseconds

} // namespace

frmKakakuUpdate::frmKakakuUpdate(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmKakakuUpdate>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    m_progress = {{ui->prgItem, ui->lblItemCnt},        {ui->prgBase, ui->lblBaseCnt},
                  {ui->prgAdd, ui->lblAddCnt},          {ui->prgElmt, ui->lblElmtCnt},
                  {ui->prgParts, ui->lblPartsCnt},      {ui->prgBsElm, ui->lblBsElmCnt},
                  {ui->prgKakakuUp, ui->lblKakakuUpCnt}};
    for (QRadioButton* option : ui->fraData->findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, this, &frmKakakuUpdate::showChoice);
    ui->cboChgKakaku->installEventFilter(this);
    onClick(ui->cbShowFiler, [this] { chooseFolder(); });
    onClick(ui->cbKakaku, [this] { revise(); });
    onClick(ui->cbChange, [this] { showChanges(); });
    onClick(ui->cbClose, [this] { close(); });
}

frmKakakuUpdate::~frmKakakuUpdate() = default;

void frmKakakuUpdate::load() {
    fillYears();
    ui->lblYearInForce->setText(gPriceYear);
    ui->idtSelYear->setValue(gSysYear);
    ui->opData_2->setChecked(true);
    clearProgress();
    showChoice();
    ui->txtDir->setFocus();
}

// Another machine may have taken over a year since.
bool frmKakakuUpdate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->cboChgKakaku && event->type() == QEvent::FocusIn) guarded([this] { fillYears(); });
    return Screen::eventFilter(watched, event);
}

void frmKakakuUpdate::fillYears() {
    const QString chosen = ui->cboChgKakaku->text();
    ui->cboChgKakaku->clearEntries();
    for (const QString& year : PriceRevision::keptYears()) ui->cboChgKakaku->addEntry(year, year);
    ui->cboChgKakaku->setText(chosen);
}

int frmKakakuUpdate::choice() const {
    const QList<QRadioButton*> options{ui->opData_0, ui->opData_1, ui->opData_2, ui->opData_3, ui->opData_4};
    for (int i = 0; i < options.size(); ++i)
        if (options.at(i)->isChecked()) return i;
    return Folder;
}

// What the choice does not ask for takes nothing.
void frmKakakuUpdate::showChoice() {
    ui->txtDir->setEnabled(choice() == Folder);
    ui->cbShowFiler->setEnabled(choice() == Folder);
    ui->txtUrl->setEnabled(choice() == Download);
    ui->cboChgKakaku->setEnabled(choice() == KeptYear);
    ui->idtSelYear->setEnabled(choice() != KeptYear);
}

void frmKakakuUpdate::chooseFolder() {
    FileDialogRequest request;
    request.caption = u"価格データのフォルダ"_qs;
    request.folder = ui->txtDir->value();
    const QString folder = seams().openFolder(request);
    if (!folder.isEmpty()) ui->txtDir->setValue(folder);
}

// --- what is asked for ---

// The folder or the kept year; nothing when there is none, which was told where it can be helped.
std::optional<QString> frmKakakuUpdate::source() {
    const auto told = [](const QString& source, const QString& otherwise) {
        if (!source.isEmpty()) return std::optional(source);
        if (!otherwise.isEmpty()) ShowMessage(Message::Warning, otherwise);
        return std::optional<QString>();
    };
    switch (choice()) {
    case Floppy:
        return told(FindDriveByType(removable), u"価格改訂ファイルを正しくセットしてください。"_qs);
    case CdRom:
        return told(FindDriveByType(compactDisc), u"価格改訂ファイルを正しくセットしてください。"_qs);
    case Folder:
        return told(ResolvePath(ui->txtDir->value()), u"価格データが格納されているフォルダを指定してください。"_qs);
    case KeptYear:
        return told(ui->cboChgKakaku->text(), {});
    default:
        return std::nullopt; // there is nothing to load from
    }
}

std::optional<PriceRevision::Request> frmKakakuUpdate::request() {
    using Request = PriceRevision::Request;
    const auto from = source();
    if (!from) return std::nullopt;
    const Request request{choice() == KeptYear ? Request::KeptYear : Request::Files, *from, ui->idtSelYear->value()};
    if (!PriceRevision::isPossible(request)) return std::nullopt;
    static const QRegularExpression fourDigits(u"^[0-9]{4}$"_qs);
    if (request.source == Request::Files && !fourDigits.match(request.year).hasMatch()) {
        ShowMessage(Message::Warning, u"[年度]は西暦4桁で指定してください。"_qs);
        ui->idtSelYear->setFocus();
        return std::nullopt;
    }
    return request;
}

// The list that the revision would take over. Without one the operator chooses among those kept.
void frmKakakuUpdate::showChanges() {
    if (!leaveField()) return;
    PriceList list;
    if (choice() == KeptYear && !ui->cboChgKakaku->text().isEmpty())
        list = {PriceList::KeptYear, ui->cboChgKakaku->text()};
    if (choice() < Download) {
        const auto from = source();
        if (!from) return;
        list = {PriceList::Files, *from};
    }
    using Request = PriceRevision::Request;
    const auto kind = list.kind == PriceList::KeptYear ? Request::KeptYear : Request::Files;
    if (list.kind != PriceList::InForce && !PriceRevision::isThere({kind, list.from, {}})) return;
    openScreen<frmKakakuChange>(
        this, [&](frmKakakuChange& screen) { screen.After = list; }, [](const frmKakakuChange&) {});
}

// --- the run ---

void frmKakakuUpdate::revise() {
    if (!leaveField()) return;
    clearProgress();
    setBusy(true);
    const auto end = qScopeGuard([this] { setBusy(false); });
    run();
}

void frmKakakuUpdate::run() {
    const auto asked = request();
    if (!asked) return;
    if (asked->source == PriceRevision::Request::Files &&
        !frmKakakuFaults::mayTake(this, asked->from, [this] { pause(); }))
        return;
    SetWaitCursor(true);
    const auto end = qScopeGuard([] { SetWaitCursor(false); });
    PriceRevision revision(
        gDbManager.Connection(), [this](PriceRevision::Part part, qint64 count, qint64 all) { tell(part, count, all); },
        [this] { pause(); });
    if (!revision.run(*asked)) return;
    ui->lblYearInForce->setText(gPriceYear);
    ShowMessage(Message::Information, u"価格改訂が完了しました。"_qs);
}

void frmKakakuUpdate::setBusy(bool busy) {
    m_busy = busy;
    for (QWidget* part :
         std::initializer_list<QWidget*>{ui->fraData, ui->idtSelYear, ui->cbKakaku, ui->cbChange, ui->cbClose})
        part->setEnabled(!busy);
    if (busy) return;
    fillYears(); // a revision keeps years
    showChoice();
    ui->cbKakaku->setFocus();
}

void frmKakakuUpdate::clearProgress() {
    for (const Progress& progress : std::as_const(m_progress)) {
        progress.bar->setRange(0, 1);
        progress.bar->setValue(0);
        progress.count->setText(u"0"_qs);
    }
}

void frmKakakuUpdate::tell(PriceRevision::Part part, qint64 count, qint64 all) {
    const Progress& progress = m_progress.at(part);
    progress.bar->setRange(0, qMax(1, static_cast<int>(all)));
    progress.bar->setValue(all > 0 ? static_cast<int>(count) : 1);
    progress.count->setText(formatThousands(count));
}

// The window answers some ten times a second; more often would cost more than the work.
void frmKakakuUpdate::pause() {
    if (m_sincePause.isValid() && m_sincePause.elapsed() < pauseEvery) return;
    seams().letEventsRun();
    m_sincePause.start();
}
