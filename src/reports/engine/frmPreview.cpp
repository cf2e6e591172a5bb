#include "reports/engine/frmPreview.h"

#include "base/Seams.h"
#include "base/basMessage.h"
#include "reports/engine/ReportPdf.h"
#include "ui/BusyPanel.h"
#include "ui/FormPieces.h"
#include "ui_frmPreview.h"

#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace {

// The fixed steps of the zoom list in percent; behind them stand the page's width and the whole page.
constexpr std::array zoomPercents{50, 75, 100, 125, 150, 200, 300};
constexpr int wholePage = static_cast<int>(zoomPercents.size()) + 1;
constexpr int pageWidth = static_cast<int>(zoomPercents.size());

} // namespace

frmPreview::frmPreview(ReportJob job, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmPreview>()), m_job(std::move(job)) {
    ui->setupUi(this);
    if (!m_job.title.isEmpty()) setWindowTitle(m_job.title + u" - "_qs + windowTitle());
    for (const int percent : zoomPercents) ui->cboZoom->addItem(u"%1 %"_qs.arg(percent));
    ui->cboZoom->addItems({u"ページ幅"_qs, u"ページ全体"_qs});
    ui->cboZoom->setCurrentIndex(wholePage);
    connect(ui->cmdPrev, &QPushButton::clicked, this, [this] { showPage(m_page - 1); });
    connect(ui->cmdNext, &QPushButton::clicked, this, [this] { showPage(m_page + 1); });
    connect(ui->cmdZoomIn, &QPushButton::clicked, this, [this] { stepZoom(1); });
    connect(ui->cmdZoomOut, &QPushButton::clicked, this, [this] { stepZoom(-1); });
    connect(ui->cboZoom, &QComboBox::currentIndexChanged, this, [this] { applyZoom(); });
    connect(ui->cmdPrint, &QPushButton::clicked, this, [this] { guarded([this] { print(); }); });
    connect(ui->cmdPdf, &QPushButton::clicked, this, [this] { guarded([this] { savePdf(); }); });
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    const FormUnderlay underlay = FormUnderlay::ifReadable(m_job.underlay);
    ui->chkUnderlay->setVisible(!underlay.isEmpty());
    connect(ui->chkUnderlay, &QCheckBox::toggled, this,
            [this, underlay](bool on) { ui->sheet->setUnderlay(on ? underlay : FormUnderlay()); });
    ui->chkUnderlay->setChecked(!underlay.isEmpty());
    addShortcuts();
    showPage(1);
    ui->scrPage->setFocus();
}

frmPreview::~frmPreview() = default;

// As shortcuts, because the page's scroll area would take these keys for itself.
void frmPreview::addShortcuts() {
    const auto add = [this](Qt::Key key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    add(Qt::Key_PageUp, [this] { showPage(m_page - 1); });
    add(Qt::Key_PageDown, [this] { showPage(m_page + 1); });
    add(Qt::Key_Home, [this] { showPage(1); });
    add(Qt::Key_End, [this] { showPage(static_cast<int>(m_job.pages.size())); });
    add(Qt::Key_Plus, [this] { stepZoom(1); });
    add(Qt::Key_Minus, [this] { stepZoom(-1); });
}

void frmPreview::showPage(int page) {
    const int count = static_cast<int>(m_job.pages.size());
    m_page = std::clamp(page, 1, std::max(1, count));
    ui->lblPage->setText(u"%1 / %2 ページ"_qs.arg(m_page).arg(count));
    FormPieces::allow(ui->cmdPrev, m_page > 1 ? QString() : u"最初のページです。"_qs);
    FormPieces::allow(ui->cmdNext, m_page < count ? QString() : u"最後のページです。"_qs);
    if (m_page > count) return;
    ui->sheet->setPage(m_job.pages.at(m_page - 1), m_page);
    ui->scrPage->verticalScrollBar()->setValue(0);
    applyZoom();
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

// A long one says how far it is, and can be stopped.
void frmPreview::print() {
    BusyPanel panel(this, u"印刷中"_qs);
    m_printing = true;
    const auto end = qScopeGuard([this] { m_printing = false; });
    ReportJob job = m_job;
    job.pause = [&panel] { return panel.goesOn(); };
    reportOutput().print(job, true);
}

void frmPreview::reject() {
    if (!m_printing) QDialog::reject();
}

void frmPreview::savePdf() {
    FileDialogRequest request;
    request.caption = u"PDF に保存"_qs;
    request.fileName = m_job.title + u".pdf"_qs;
    request.filters = {u"PDF ファイル (*.pdf)"_qs};
    const QString path = seams().saveFile(request);
    if (!path.isEmpty()) ::savePdf(m_job.pages, m_job.title, path);
}

void frmPreview::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    applyZoom();
}

void frmPreview::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    applyZoom();
}
