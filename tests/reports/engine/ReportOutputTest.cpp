#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/engine/ReportOutput.h"
#include "reports/engine/ReportPainter.h"
#include "reports/engine/ReportRecorder.h"

#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

namespace {

ReportPage pageOf(const QString& text) {
    ReportPage page;
    page.paperWidth = 1440;
    page.paperHeight = 2880;
    page.texts.append({u"lbl"_qs, text, {}, 200, 400, 200, 1, {}});
    page.boxes.append({{100, 1000, 500, 500}, 20, false, 100});
    return page;
}

} // namespace

class ReportOutputTest : public QObject {
    Q_OBJECT

private slots:
    void settingsArePutIntoForce() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        ReportPrintSettings settings;
        settings.orientation = 2;
        settings.pageSize = 13;
        settings.copies = 3;
        applyPrintSettings(settings, printer);
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Landscape);
        QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::JisB5);
        QCOMPARE(printer.copyCount(), 3);
    }

    void aUserDefinedPaperTakesItsHeightAndWidth() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        ReportPrintSettings settings;
        settings.pageSize = 256;
        settings.pageHeight = 14400;
        settings.pageWidth = 7200;
        applyPrintSettings(settings, printer);
        QCOMPARE(printer.pageLayout().pageSize().sizePoints(), QSize(360, 720));
    }

    void emptySettingsChangeNothing() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A5));
        applyPrintSettings({}, printer);
        QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::A5);
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);
    }

    void pagesStandOnPaperWhereTheirTwipsSay() {
        QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(u"paper.pdf"_qs));
        printer.setPageSize(QPageSize(QSizeF(72, 144), QPageSize::Point));
        printPages({pageOf(u"A"_qs), pageOf(u"B"_qs)}, printer);
        QProcess reader;
        reader.start(u"pdftotext"_qs, {u"-bbox"_qs, printer.outputFileName(), u"-"_qs});
        QVERIFY(reader.waitForFinished());
        const QString boxes = QString::fromUtf8(reader.readAllStandardOutput());
        QCOMPARE(boxes.count(u"<page width=\"72"_qs), 2);
        QCOMPARE(boxes.count(u"<word xMin=\"10.0"_qs), 2); // 200 twips
        QVERIFY(boxes.contains(u">B</word>"));
    }

    void paperThatIsWiderThanHighLiesOnItsSide() {
        const QPageLayout upright = paperOf(11906, 16838), lying = paperOf(16838, 11906);
        QCOMPARE(upright.orientation(), QPageLayout::Portrait);
        QCOMPARE(lying.orientation(), QPageLayout::Landscape);
        QCOMPARE(lying.pageSize().id(), QPageSize::A4);
        QCOMPARE(lying.fullRectPoints().size(), QSize(842, 595));
        QCOMPARE(upright.fullRectPoints().size(), QSize(595, 842));
    }

    void theRecorderKeepsDocumentsInOrder() {
        ReportRecorder recorder;
        reportOutput().print({ReportJob{u"repCsEstimateA4"_qs, {pageOf(u"一"_qs)}, {}, {}}}, false);
        reportOutput().preview({ReportJob{u"repCsEstItemA4"_qs, {pageOf(u"二"_qs), pageOf(u"三"_qs)}, {}, {}}});
        QCOMPARE(recorder.documents(), (QStringList{u"repCsEstimateA4"_qs, u"repCsEstItemA4"_qs}));
        QCOMPARE(recorder.pages().size(), 3);
        QCOMPARE(recorder.pages().at(2).plainText(), u"三"_qs);
        recorder.clear();
        QVERIFY(recorder.documents().isEmpty());
    }

    void theRecorderWritesWhatItKept() {
        QTemporaryDir folder;
        ReportRecorder recorder;
        QVERIFY_EXCEPTION_THROWN(recorder.saveAsPdf(folder.filePath(u"none.pdf"_qs)), AppError);
        reportOutput().print({ReportJob{u"repCsEstimateA4"_qs, {pageOf(u"一"_qs)}, {}, {}}}, false);
        recorder.saveAsPdf(folder.filePath(u"kept.pdf"_qs));
        recorder.saveAsPng(folder.filePath(u"kept.png"_qs));
        QVERIFY(QFile::exists(folder.filePath(u"kept.pdf"_qs)));
        const QImage picture(folder.filePath(u"kept.png"_qs));
        QCOMPARE(picture.size(), QSize(110, 220));
        QVERIFY_EXCEPTION_THROWN(recorder.saveAsPng(folder.filePath(u"two.png"_qs), 2), AppError);
    }

    void aPictureShowsTheInkAtItsPlace() {
        const QImage picture = pageImage(pageOf({}), 144);
        QCOMPARE(picture.size(), QSize(144, 288));
        QCOMPARE(picture.pixelColor(35, 125), QColor(Qt::black));
        QCOMPARE(picture.pixelColor(100, 250), QColor(Qt::white));
    }
};

HALVANE_TEST(ReportOutputTest)
#include "ReportOutputTest.moc"
