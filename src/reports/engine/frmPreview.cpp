#include "reports/engine/frmPreview.h"

#include "base/Arrangement.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "reports/engine/ReportPdf.h"
#include "ui/BusyPanel.h"
#include "ui/FormPieces.h"
#include "ui/SpokenNames.h"
#include "ui/Style.h"
#include "ui/WindowArrangement.h"
#include "ui_frmPreview.h"

#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace {

// The fixed steps of the zoom list in percent; behind them stand the page's width and the whole page.
constexpr std::array zoomPercents{50, 75, 100, 125, 150, 200, 300};
constexpr int wholePage = static_cast<int>(zoomPercents.size()) + 1;
constexpr int pageWidth = static_cast<int>(zoomPercents.size());
constexpr int wheelStep = 120; // of a wheel that clicks; others turn by less

const QString arrangedAs = u"preview"_qs;

// The folder used last; one that is gone is not offered.
QString lastFolder() {
    const QString folder = Arrangement::of(arrangedAs).value(u"folder"_qs).toString();
    return QFileInfo(folder).isDir() ? folder : QString();
}

void keepChoice(const QString& key, const QString& choice) {
    QJsonObject kept = Arrangement::of(arrangedAs);
    kept.insert(key, choice);
    Arrangement::keep(arrangedAs, kept);
}

} // namespace

frmPreview::frmPreview(const QList<ReportJob>& jobs, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmPreview>()), m_papers(jobs) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    if (const QString title = m_papers.title(); !title.isEmpty()) setWindowTitle(title + u" - "_qs + windowTitle());
    for (const int percent : zoomPercents) ui->cboZoom->addItem(u"%1 %"_qs.arg(percent));
    ui->cboZoom->addItems({u"ページ幅"_qs, u"ページ全体"_qs});
    restoreZoom();
    SpokenNames::give(this);
    listPapers();
    connectCommands();
    addShortcuts();
    ui->fraSaved->hide();
    WindowArrangement::restore(this);
    showPage(1);
    ui->scrPage->setFocus();
}

frmPreview::~frmPreview() = default;

void frmPreview::connectCommands() {
    connect(ui->cmdPrev, &QPushButton::clicked, this, [this] { showPage(m_page - 1); });
    connect(ui->cmdNext, &QPushButton::clicked, this, [this] { showPage(m_page + 1); });
    connect(ui->cmdZoomIn, &QPushButton::clicked, this, [this] { stepZoom(1); });
    connect(ui->cmdZoomOut, &QPushButton::clicked, this, [this] { stepZoom(-1); });
    connect(ui->cboZoom, &QComboBox::currentIndexChanged, this, [this] { applyZoom(); });
    connect(ui->numPage, &NumberField::valueSettled, this, &frmPreview::goToTypedPage);
    connect(ui->numPage, &QLineEdit::returnPressed, this, [this] {
        ui->numPage->commit();
        ui->scrPage->setFocus();
    });
    connect(ui->lstPaper, &QListWidget::currentRowChanged, this,
            [this](int paper) { showPage(m_papers.firstPageOf(paper)); });
    connect(ui->chkUnderlay, &QCheckBox::toggled, this, &frmPreview::showUnderlay);
    connect(ui->cmdPrint, &QPushButton::clicked, this, [this] { guarded([this] { print(m_papers.all()); }); });
    connect(ui->cmdPrintPaper, &QPushButton::clicked, this,
            [this] { guarded([this] { print({m_papers.paper(m_papers.paperOf(m_page))}); }); });
    connect(ui->cmdPdf, &QPushButton::clicked, this, [this] { guarded([this] { savePdf(); }); });
    connect(ui->cmdOpenPdf, &QPushButton::clicked, this, [this] { guarded([this] { OpenWithShell(m_saved); }); });
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

// As shortcuts, because the page's scroll area would take these keys for itself.
void frmPreview::addShortcuts() {
    const auto add = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    add(Qt::Key_PageUp, [this] { turnView(-1); });
    add(Qt::Key_PageDown, [this] { turnView(1); });
    add(Qt::Key_Home, [this] { showPage(1); });
    add(Qt::Key_End, [this] { showPage(m_papers.pages()); });
    add(Qt::Key_Plus, [this] { stepZoom(1); });
    add(Qt::Key_Minus, [this] { stepZoom(-1); });
    add(Qt::CTRL | Qt::Key_P, [this] { ui->cmdPrint->click(); });
    ui->scrPage->viewport()->installEventFilter(this);
}

void frmPreview::listPapers() {
    for (int paper = 0; paper < m_papers.papers(); ++paper) {
        const int first = m_papers.firstPageOf(paper);
        const auto pages = static_cast<int>(m_papers.paper(paper).pages.size());
        const QString range = pages == 1 ? QString::number(first) : u"%1～%2"_qs.arg(first).arg(first + pages - 1);
        ui->lstPaper->addItem(u"%1　%2"_qs.arg(m_papers.name(paper), range));
    }
    ui->fraPapers->setVisible(m_papers.papers() > 1);
    ui->fraPapers->setFixedWidth(
        std::max(Style::charactersWide(24), ui->lstPaper->sizeHintForColumn(0) + Style::charactersWide(4)));
}

void frmPreview::showPage(int page) {
    const int count = m_papers.pages();
    m_page = std::clamp(page, 1, std::max(1, count));
    FormPieces::allow(ui->cmdPrev, m_page > 1 ? QString() : u"最初のページです。"_qs);
    FormPieces::allow(ui->cmdNext, m_page < count ? QString() : u"最後のページです。"_qs);
    ui->numPage->setValue(QString::number(m_page));
    ui->lblPage->setText(u"/ %1 ページ"_qs.arg(count));
    if (m_page > count) return;
    const QSignalBlocker following(ui->lstPaper);
    ui->lstPaper->setCurrentRow(m_papers.paperOf(m_page));
    showUnderlay();
    ui->sheet->setPage(m_papers.page(m_page), m_papers.pageInPaper(m_page));
    ui->scrPage->verticalScrollBar()->setValue(0);
    applyZoom();
}

// Each paper may have a scan of its own.
void frmPreview::showUnderlay() {
    const FormUnderlay underlay = FormUnderlay::ifReadable(m_papers.paper(m_papers.paperOf(m_page)).underlay);
    ui->chkUnderlay->setVisible(!underlay.isEmpty());
    ui->sheet->setUnderlay(ui->chkUnderlay->isChecked() ? underlay : FormUnderlay());
}

void frmPreview::goToTypedPage() {
    const int page = ui->numPage->value().toInt();
    if (page != m_page) showPage(page == 0 ? m_page : page);
}

// Through what a page is too tall to show, then to the page behind it or before it.
void frmPreview::turnView(int views) {
    QScrollBar* bar = ui->scrPage->verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + views * bar->pageStep());
    const int page = m_page + views;
    if (bar->value() != before || page < 1 || page > m_papers.pages()) return;
    showPage(page);
    if (views < 0) bar->setValue(bar->maximum());
}

void frmPreview::turnWheel(int angle) {
    m_wheel += angle;
    const int steps = m_wheel / wheelStep;
    m_wheel -= steps * wheelStep;
    for (int step = 0; step < std::abs(steps); ++step) stepZoom(steps > 0 ? 1 : -1);
}

// From the zoom in force to the next step of the list, also when the page was fitted to the window.
void frmPreview::stepZoom(int steps) {
    const double percent = ui->sheet->zoom() * 100;
    const auto above = std::upper_bound(zoomPercents.begin(), zoomPercents.end(), percent + 0.5);
    const auto from = std::lower_bound(zoomPercents.begin(), zoomPercents.end(), percent - 0.5);
    const auto place = steps > 0 ? above - zoomPercents.begin() : from - zoomPercents.begin() - 1;
    ui->cboZoom->setCurrentIndex(std::clamp(static_cast<int>(place), 0, pageWidth - 1));
}

void frmPreview::applyZoom() {
    const int choice = ui->cboZoom->currentIndex();
    const QSize room = ui->scrPage->maximumViewportSize();
    if (choice == pageWidth)
        ui->sheet->setZoom(
            ui->sheet->zoomForWidth(room.width() - ui->scrPage->verticalScrollBar()->sizeHint().width()));
    else if (choice == wholePage)
        ui->sheet->setZoom(ui->sheet->zoomForWhole(room));
    else
        ui->sheet->setZoom(zoomPercents.at(static_cast<size_t>(choice)) / 100.0);
}

void frmPreview::restoreZoom() {
    const int kept = ui->cboZoom->findText(Arrangement::of(arrangedAs).value(u"zoom"_qs).toString());
    ui->cboZoom->setCurrentIndex(kept < 0 ? wholePage : kept);
}

// A long one says how far it is, and can be stopped.
void frmPreview::print(const QList<ReportJob>& jobs) {
    BusyPanel panel(this, u"印刷中"_qs);
    m_printing = true;
    const auto end = qScopeGuard([this] { m_printing = false; });
    QList<ReportJob> paused = jobs;
    for (ReportJob& job : paused) job.pause = [&panel] { return panel.goesOn(); };
    reportOutput().print(paused, true);
}

void frmPreview::reject() {
    if (!m_printing) QDialog::reject();
}

void frmPreview::done(int result) {
    keepChoice(u"zoom"_qs, ui->cboZoom->currentText());
    WindowArrangement::keep(this);
    QDialog::done(result);
}

void frmPreview::savePdf() {
    FileDialogRequest request;
    request.caption = u"PDF に保存"_qs;
    request.folder = lastFolder();
    request.fileName = m_papers.fileName();
    request.filters = {u"PDF ファイル (*.pdf)"_qs};
    const QString path = seams().saveFile(request);
    if (path.isEmpty()) return;
    ::savePdf(m_papers.allPages(), m_papers.title(), path, m_papers.bookmarks());
    keepChoice(u"folder"_qs, QFileInfo(path).path());
    m_saved = path;
    ui->lblSaved->setText(u"保存しました：%1"_qs.arg(QDir::toNativeSeparators(path)));
    ui->fraSaved->show();
    layout()->activate(); // it takes its room from the page
    applyZoom();
}

bool frmPreview::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel) return QDialog::eventFilter(watched, event);
    const auto* wheel = static_cast<QWheelEvent*>(event);
    if (!(wheel->modifiers() & Qt::ControlModifier)) return QDialog::eventFilter(watched, event);
    turnWheel(wheel->angleDelta().y());
    return true;
}

void frmPreview::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    applyZoom();
}

void frmPreview::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    applyZoom();
}
