#include "operations/screens/frmPrintAdjust.h"

#include "base/AppError.h"
#include "base/Money.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "reports/FormSample.h"
#include "reports/engine/Report.h"
#include "ui/FormPieces.h"
#include "ui_frmPrintAdjust.h"

#include <QFileInfo>
#include <QPrinterInfo>
#include <QScopedValueRollback>

#include <cmath>

namespace {

enum Column { RowNo, Document, ClassName, Right, Down, Underlay };

QList<GridColumn> columns() {
    return {GridColumn::rowNumber(),
            GridColumn::of(u"書類"_qs, 16),
            GridColumn::of(u"帳票"_qs, 24),
            GridColumn::of(u"右"_qs, 6).aligned(Qt::AlignRight),
            GridColumn::of(u"下"_qs, 6).aligned(Qt::AlignRight),
            GridColumn::of(u"下敷き"_qs, 8).aligned(Qt::AlignCenter)};
}

QString millimetres(int tenths) { return numberText(tenths / 10.0); }

ReportJob sampleOf(const QString& name) {
    const ReportClass& known = reportClass(name);
    Report report(name);
    for (const auto& [value, given] : known.sample.given.value(0).asKeyValueRange()) report.Value(value, given);
    report.Recordset(sampleRecords(known));
    return report.Job();
}

} // namespace

frmPrintAdjust::frmPrintAdjust(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmPrintAdjust>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->flxReport->setColumns(columns());
    ui->cboZoom->addItems({u"ページ全体"_qs, u"100 %"_qs, u"200 %"_qs});
    ui->cboZoom->setCurrentIndex(0);
    connect(ui->flxReport, &Grid::currentRowChanged, this, [this] { guarded([this] { showReport(); }); });
    connect(ui->cboPrinter, &ChoiceBox::valueChanged, this, [this] {
        guarded([this] {
            if (!m_showing) fillReports();
        });
    });
    connect(ui->cboZoom, &ChoiceBox::valueChanged, this, [this] { applyZoom(); });
    for (NumberField* field : {ui->numRight, ui->numDown})
        connect(field, &NumberField::valueSettled, this, [this] {
            guarded([this] {
                if (!m_showing) takeOffset();
            });
        });
    onClick(ui->cmdUnderlay, [this] { chooseUnderlay(); });
    onClick(ui->cmdUnderlayClear, [this] { takeUnderlay({}); });
    onClick(ui->cmdPreview, [this] { reportOutput().preview({m_sample}); });
    onClick(ui->cmdTest, [this] { printRuler(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmPrintAdjust::~frmPrintAdjust() = default;

void frmPrintAdjust::load() {
    {
        const QScopedValueRollback filling(m_showing, true);
        ui->cboPrinter->addEntry(u"すべてのプリンター"_qs);
        for (const QString& name : QPrinterInfo::availablePrinterNames()) ui->cboPrinter->addEntry(name, name);
        ui->cboPrinter->setCurrentIndex(0);
    }
    ui->flxReport->setRows(static_cast<int>(reportClasses().size()));
    fillReports();
    ui->flxReport->setCurrent(1, Document);
    ui->flxReport->setFocus();
}

QString frmPrintAdjust::reportName() const { return ui->flxReport->value(ui->flxReport->currentRow(), ClassName); }

QString frmPrintAdjust::printer() const { return ui->cboPrinter->data(); }

ReportOffset frmPrintAdjust::offset() const { return readReportOffset(clsProfile(), reportName(), printer()); }

void frmPrintAdjust::fillReports() {
    for (int row = 1; row <= ui->flxReport->rows(); ++row) showRow(row);
    if (ui->flxReport->currentRow() > 0) showReport();
}

void frmPrintAdjust::showRow(int row) {
    const clsProfile profile;
    const ReportClass& report = reportClasses().at(row - 1);
    const ReportOffset moved = readReportOffset(profile, report.name, printer());
    const bool hasUnderlay = !readReportUnderlay(profile, report.name).isEmpty();
    ui->flxReport->setRowValues(row,
                                {documentName(report), report.name, millimetres(moved.right), millimetres(moved.down),
                                 hasUnderlay ? u"あり"_qs : QString()},
                                Document);
}

void frmPrintAdjust::showReport() {
    const QScopedValueRollback filling(m_showing, true);
    const QString underlay = readReportUnderlay(clsProfile(), reportName());
    ui->numRight->setValue(millimetres(offset().right));
    ui->numDown->setValue(millimetres(offset().down));
    ui->lblUnderlay->setText(QFileInfo(underlay).fileName());
    ui->lblUnderlay->setToolTip(underlay);
    ui->cmdUnderlayClear->setEnabled(!underlay.isEmpty());
    showSample();
}

void frmPrintAdjust::showSample() {
    m_sample = sampleOf(reportName());
    m_sample.settings.printer = printer().isEmpty() ? m_sample.settings.printer : printer();
    m_sample.pages = pagesFor(printer(), m_sample);
    m_sample.offset = offset();
    ui->sheet->setUnderlay(FormUnderlay::ifReadable(m_sample.underlay));
    if (!m_sample.pages.isEmpty()) ui->sheet->setPage(m_sample.pages.first());
    applyZoom();
}

void frmPrintAdjust::applyZoom() {
    const int choice = ui->cboZoom->currentIndex();
    ui->sheet->setZoom(choice < 1 ? ui->sheet->zoomForWhole(ui->scrPage->maximumViewportSize()) : choice);
}

void frmPrintAdjust::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    applyZoom();
}

void frmPrintAdjust::takeOffset() {
    const auto tenths = [](const NumberField* field) { return std::lround(Val(field->value()) * 10); };
    const long right = tenths(ui->numRight), down = tenths(ui->numDown);
    if (std::labs(right) > largestOffset || std::labs(down) > largestOffset) {
        ShowMessage(Message::Warning, u"動かせるのは、右、下とも -50 から 50 ミリメートルまでです。"_qs);
        return showReport();
    }
    const ReportOffset moved{static_cast<int>(right), static_cast<int>(down)};
    if (moved == offset()) return;
    saveReportOffset(clsProfile(), reportName(), printer(), moved);
    showRow(ui->flxReport->currentRow());
    showReport();
}

void frmPrintAdjust::chooseUnderlay() {
    FileDialogRequest request;
    request.caption = u"下敷きにする用紙の画像"_qs;
    request.filters = FormUnderlay::fileFilters();
    const QString path = seams().openFile(request);
    if (path.isEmpty()) return;
    const FormUnderlay readable(path);
    takeUnderlay(path);
}

void frmPrintAdjust::takeUnderlay(const QString& path) {
    if (const QStringList missing = Text::missingInCp932(path); !missing.isEmpty())
        throw AppError(u"ファイルの名前に使えない文字があります: %1\n別の名前か場所にして、選び直してください。"_qs.arg(
                           missing.join(u' ')),
                       u"frmPrintAdjust"_qs);
    saveReportUnderlay(clsProfile(), reportName(), path);
    showRow(ui->flxReport->currentRow());
    showReport();
}

void frmPrintAdjust::printRuler() {
    if (!leaveField()) return;
    const ReportLayout layout =
        withPageSettings(loadReportLayout(reportName()), readReportPrintSettings(clsProfile(), reportName()));
    const ReportOffset moved = offset();
    ReportJob job = m_sample;
    job.title = u"位置合わせ "_qs + documentName(reportClass(reportName()));
    job.pages = {rulerPage(
        layout, {job.title, u"右へ %1 mm　下へ %2 mm"_qs.arg(millimetres(moved.right), millimetres(moved.down)),
                 u"四隅の十字が紙の端から 10 mm に来るように、"_qs, u"右と下の値を直してください。"_qs})};
    job.pages = shifted(job.pages, offsetTwips(moved.right), offsetTwips(moved.down));
    reportOutput().print({job}, false);
}
