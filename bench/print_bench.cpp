// The unpaid list of an office on its way to a printer that writes a PDF file, against the bare painter that draws the
// same texts, lines and boxes on such a printer, in one run:
// print_bench FILE.ini
#include "base/AppError.h"
#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/clsDbManager.h"
#include "operations/Managers.h"
#include "reports/clsReportManager.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportFonts.h"
#include "reports/engine/ReportPainter.h"
#include "ui/Style.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int rounds = 3;
constexpr double ratioBound = 0.6;
constexpr double twipsPerInch = 1440;

double since(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e9; }

struct Timed {
    double seconds = 1e9;
    qsizetype pages = 0;
    double pagesPerSecond() const { return static_cast<double>(pages) / seconds; }
};

void prepare(QPrinter& printer, const QString& path, const ReportPage& page) {
    const QPageLayout paper = paperOf(page.paperWidth, page.paperHeight);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageSize(paper.pageSize());
    printer.setPageOrientation(paper.orientation());
}

// What an operator waits for: rows with their claims, pages, paper; with a look at the window between.
Timed wholePrint(const QString& path, QList<ReportPage>& kept) {
    Timed timed;
    reportOutput().print = [&](const QList<ReportJob>& jobs, bool) {
        const ReportJob& job = jobs.first();
        QPrinter printer(QPrinter::HighResolution);
        prepare(printer, path, job.pages.first());
        printPages(job.pages, printer, job.pause);
        timed.pages = job.pages.size();
        kept = job.pages;
    };
    const auto pause = [] {
        QCoreApplication::processEvents();
        return true;
    };
    QElapsedTimer timer;
    timer.start();
    clsReportManager manager;
    manager.Prepare(gDbManager.Connection());
    ReportRecordset records;
    manager.GetStNoPaymentData({}, {}, records, pause);
    Report report(u"repStNoPayment"_qs);
    report.Recordset(std::move(records));
    report.Pausing(pause);
    report.PrintReport(false);
    timed.seconds = since(timer);
    return timed;
}

QFont fontOf(const ReportFont& font) {
    QFont bare(font.gothic ? u"IPAexGothic"_qs : u"IPAexMincho"_qs);
    bare.setPixelSize(static_cast<int>(font.size * 20)); // a unit is a twip
    return bare;
}

Timed barePainter(const QString& path, const QList<ReportPage>& pages) {
    QElapsedTimer timer;
    timer.start();
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer, path, pages.first());
    printer.setFullPage(true);
    QPainter painter(&printer);
    const double scale = printer.resolution() / twipsPerInch;
    painter.scale(scale, scale);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        if (i > 0) printer.newPage();
        const ReportPage& page = pages.at(i);
        for (const ReportPageBox& box : page.boxes) painter.drawRect(box.at.x, box.at.y, box.at.width, box.at.height);
        for (const ReportPageLine& line : page.lines) painter.drawLine(line.x1, line.y1, line.x2, line.y2);
        for (const ReportPageText& text : page.texts) {
            painter.setFont(fontOf(text.font));
            painter.drawText(QPointF(text.x, text.baseline), text.text);
        }
    }
    painter.end();
    return {since(timer), pages.size()};
}

bool run() {
    const QTemporaryDir folder;
    Timed whole, bare;
    QList<ReportPage> pages;
    for (int round = 0; round < rounds; ++round) {
        const Timed once = wholePrint(folder.filePath(u"whole.pdf"_qs), pages);
        if (once.pages == 0) throw AppError(u"no unpaid orders"_qs);
        if (once.seconds < whole.seconds) whole = once;
        const Timed other = barePainter(folder.filePath(u"bare.pdf"_qs), pages);
        if (other.seconds < bare.seconds) bare = other;
    }
    const double ratio = whole.pagesPerSecond() / bare.pagesPerSecond();
    std::printf("unpaid orders, %lld pages: %.0f pages a second (%.2f s), bare painter %.0f (%.2f s), ratio %.2f%s\n",
                static_cast<long long>(whole.pages), whole.pagesPerSecond(), whole.seconds, bare.pagesPerSecond(),
                bare.seconds, ratio, ratio < ratioBound ? "  <-- below the bound" : "");
    return ratio >= ratioBound;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2) return 2;
    Text::assertConverters();
    Style::apply(application);
    const QFileInfo ini(QString::fromLocal8Bit(argv[1]));
    seams().programFolder = [folder = ini.absolutePath()] { return folder; };
    try {
        assertPaperFonts();
        gLogger = std::make_unique<clsLogger>();
        setSystemDate({});
        gDbManager.DBOpen();
        Managers::prepare(gDbManager.Connection());
        const bool holds = run();
        Managers::release();
        gDbManager.DBClose();
        return holds ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const AppError& error) {
        std::fprintf(stderr, "print_bench: %s\n", qUtf8Printable(error.description()));
        return 2;
    }
}
