#include "reports/engine/ReportOutput.h"

#include "base/AppError.h"
#include "base/clsProfile.h"
#include "reports/ReportComposer.h"
#include "reports/engine/ReportPainter.h"
#include "reports/engine/frmPreview.h"

#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <cmath>

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr double tenthsPerInch = 254;
constexpr int landscapeCode = 2;

// The driver's code of a paper bin is the place of the bin in this list.
constexpr std::array paperBins{
    QPrinter::Auto,    QPrinter::Upper,       QPrinter::Lower,          QPrinter::Middle,
    QPrinter::Manual,  QPrinter::Envelope,    QPrinter::EnvelopeManual, QPrinter::Auto,
    QPrinter::Tractor, QPrinter::SmallFormat, QPrinter::LargeFormat,    QPrinter::LargeCapacity,
    QPrinter::Auto,    QPrinter::Auto,        QPrinter::Cassette,       QPrinter::FormSource,
};

void applyPageSize(const ReportPrintSettings& settings, QPrinter& printer) {
    if (settings.pageWidth && settings.pageHeight)
        printer.setPageSize(QPageSize(QSizeF(*settings.pageWidth / twipsPerPoint, *settings.pageHeight / twipsPerPoint),
                                      QPageSize::Point, {}, QPageSize::FuzzyMatch));
    else if (settings.pageSize && QPageSize::id(*settings.pageSize) != QPageSize::Custom)
        printer.setPageSize(QPageSize(QPageSize::id(*settings.pageSize)));
}

void prepare(QPrinter& printer, const ReportJob& job) {
    printer.setDocName(job.title);
    const QPageLayout paper = paperOf(job.pages.first().paperWidth, job.pages.first().paperHeight);
    printer.setPageSize(paper.pageSize());
    printer.setPageOrientation(paper.orientation());
    applyPrintSettings(job.settings, printer);
}

// What is chosen differently there holds for the documents behind as well. A file or a range of pages is meant for a
// single one.
bool askOnce(QPrinter& printer, QList<ReportJob>& documents) {
    const QString proposed = printer.printerName();
    const int copies = printer.copyCount();
    QPrintDialog dialog(&printer);
    if (documents.size() > 1) {
        dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
        dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    }
    if (dialog.exec() != QDialog::Accepted) return false;
    for (ReportJob& document : documents) {
        if (printer.printerName() != proposed) document.settings.printer = printer.printerName();
        if (printer.copyCount() != copies) document.settings.copies = printer.copyCount();
    }
    return true;
}

} // namespace

ReportOutput& reportOutput() {
    static ReportOutput output{printOnPaper, [](const QList<ReportJob>& jobs) { frmPreview(jobs).exec(); }};
    return output;
}

QString printerOf(const ReportPrintSettings& settings) {
    return settings.printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : settings.printer;
}

int offsetTwips(int tenths) { return static_cast<int>(std::lround(tenths * twipsPerInch / tenthsPerInch)); }

void applyPrintSettings(const ReportPrintSettings& settings, QPrinter& printer) {
    if (!settings.printer.isEmpty()) printer.setPrinterName(settings.printer);
    if (settings.paperBin && *settings.paperBin < static_cast<int>(paperBins.size()))
        printer.setPaperSource(paperBins.at(static_cast<size_t>(*settings.paperBin)));
    if (settings.orientation)
        printer.setPageOrientation(*settings.orientation == landscapeCode ? QPageLayout::Landscape
                                                                          : QPageLayout::Portrait);
    applyPageSize(settings, printer);
    if (settings.copies) printer.setCopyCount(*settings.copies);
}

QList<ReportPage> pagesFor(const QString& printer, const ReportJob& job) {
    const ReportOffset own = readReportOffset(clsProfile(), job.reportClass, printer);
    if (own == job.offset) return job.pages;
    return shifted(job.pages, offsetTwips(own.right - job.offset.right), offsetTwips(own.down - job.offset.down));
}

bool printPages(const QList<ReportPage>& pages, QPrinter& printer, const std::function<bool()>& pause) {
    printer.setFullPage(true);
    QPainter painter(&printer);
    if (!painter.isActive()) throw AppError(u"プリンターに送れません。"_qs, u"PrintReport"_qs);
    const double scale = printer.resolution() / twipsPerInch;
    qsizetype printed = 0;
    for (const ReportPage& page : pages) {
        if (printed > 0 && !printer.newPage())
            throw AppError(u"プリンターが次のページを受け付けません。"_qs, u"PrintReport"_qs);
        painter.save();
        painter.scale(scale, scale);
        paintPage(painter, page);
        painter.restore();
        if (++printed % pagesPerPause == 0 && pause && !pause()) {
            painter.end();
            printer.abort();
            return false;
        }
    }
    return true;
}

QList<ReportPage> pagesInRange(const QList<ReportPage>& pages, const QPrinter& printer) {
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1) return pages;
    return pages.mid(printer.fromPage() - 1, printer.toPage() - printer.fromPage() + 1);
}

void printOnPaper(const QList<ReportJob>& jobs, bool withDialog) {
    QList<ReportJob> documents = jobs;
    documents.removeIf([](const ReportJob& job) { return job.pages.isEmpty(); });
    if (documents.isEmpty()) return;
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        throw AppError(
            u"プリンターが見つかりません。プリンターを設定するか、プレビューから PDF に保存してください。"_qs,
            u"PrintReport"_qs);
    for (qsizetype i = 0; i < documents.size(); ++i) {
        const ReportJob job = documents.at(i);
        QPrinter printer(QPrinter::HighResolution);
        prepare(printer, job);
        if (i == 0 && withDialog && !askOnce(printer, documents)) return;
        const QList<ReportPage> pages = pagesInRange(pagesFor(printer.printerName(), job), printer);
        if (!printPages(pages, printer, job.pause)) return;
    }
}
